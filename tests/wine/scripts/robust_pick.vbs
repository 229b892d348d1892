' The robot (tests/wine/robot/robust_pick.robot) picks, in the real dialog's
' type list, the entry already shown: a constant's only entry "Float" over a
' stored Double, "Text" over an ASCII file variable stored as Long. The pick
' clicks as a user's pick does, so the type picked is stored.
Dim ui, d, limits, readings, tanks, limit, reading, level
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
Set d = New TestDisplay
Set d.List = New TestDsList
Set limits = NewDs(d.List, "Limits", 3)
Set limit = NewDsv(limits, "HighLimit", 8, 2.5)
Set readings = NewDs(d.List, "Readings", 2)
readings.Ascii = True
Set reading = NewDsv(readings, "Count", 5, 0)
Set tanks = NewDs(d.List, "Tanks", 6)
Set level = NewDsv(tanks, "Level", 5, 0)

ui.EditDataSources d
Check "IsModified after the picks", ui.IsModified()
CheckEqual "HighLimit's picked type Float is stored", limit.GetDsvType(), 7
CheckEqual "Count's picked type Text is stored", reading.GetDsvType(), 9
CheckEqual "Count is as long as a new text", reading.GetDsvCols(), 255
CheckEqual "Level keeps its type Long", level.GetDsvType(), 5
CheckEqual "HighLimit keeps its value", limit.GetDsvValue(), 2.5

Finish "robust_pick"
