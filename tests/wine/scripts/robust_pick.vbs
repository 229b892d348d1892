' The robot (tests/wine/robot/robust_pick.robot) picks, in the real dialog's
' type list, the entry already shown: a constant's only entry "Float" over a
' stored Double, "Text" over an ASCII file variable stored as Long. The pick
' clicks as a user's pick does, so the type picked is stored.
Dim ui, d, limit, reading, level
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
Set d = SampleDisplay("{'dataSources': [" & _
  "{'name': 'Limits', 'kind': 'constant', 'variables': [{'name': 'HighLimit', 'type': 'Double', 'value': 2.5}]}, " & _
  "{'name': 'Readings', 'kind': 'file', 'variables': [{'name': 'Count', 'type': 'Long'}]}, " & _
  "{'name': 'Tanks', 'kind': 'memory', 'variables': [{'name': 'Level', 'type': 'Long'}]}]}")
Set limit = d.GetDataSources().DsItem(1).GetDsVars().DsvItem(1)
Set reading = d.GetDataSources().DsItem(2).GetDsVars().DsvItem(1)
Set level = d.GetDataSources().DsItem(3).GetDsVars().DsvItem(1)

ui.EditDataSources d
Check "IsModified after the picks", ui.IsModified()
CheckEqual "HighLimit's picked type Float is stored", limit.GetDsvType(), 7
CheckEqual "Count's picked type Text is stored", reading.GetDsvType(), 9
CheckEqual "Count is as long as a new text", reading.GetDsvCols(), 255
CheckEqual "Level keeps its type Long", level.GetDsvType(), 5
CheckEqual "HighLimit keeps its value", limit.GetDsvValue(), 2.5

Finish "robust_pick"
