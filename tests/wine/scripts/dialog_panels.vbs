' The data source and variable panels of the real dialog, a sample display
' read back after the run: the robot (tests/wine/robot/dialog_panels.robot)
' changes types, shapes, dimensions, scope, a constant's value and a name.
Dim ui, d, tanks, level, flow, limits, highLimit
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
Set d = SampleDisplay("{'dataSources': [{'name': 'Tanks', 'kind': 'memory', 'variables': [" & _
  "{'name': 'Level', 'type': 'Double', 'value': 1.5}, {'name': 'Flow', 'type': 'Float', 'scope': 'public'}]}, " & _
  "{'name': 'Limits', 'kind': 'constant', 'variables': " & _
  "[{'name': 'HighLimit', 'type': 'Float', 'value': 2.5, 'scope': 'public'}]}]}")
Set tanks = d.GetDataSources().DsItem(1)
Set level = tanks.GetDsVars().DsvItem(1)
Set flow = tanks.GetDsVars().DsvItem(2)
Set limits = d.GetDataSources().DsItem(2)
Set highLimit = limits.GetDsVars().DsvItem(1)

ui.EditDataSources d
Check "IsModified after the panels' edits", ui.IsModified()
CheckEqual "Level's type is Long", level.GetDsvType(), 5
CheckEqual "Level's rows", level.GetDsvRows(), 3
CheckEqual "Level's columns: the refused entry left them", level.GetDsvCols(), 5
CheckEqual "Level is a matrix", level.GetDsvShape(), 3
CheckEqual "Level is public", level.GetDsvScope(), 2
CheckEqual "Flow's type is Text", flow.GetDsvType(), 9
CheckEqual "Flow's rows", flow.GetDsvRows(), 1
CheckEqual "Flow's length", flow.GetDsvCols(), 255
CheckEqual "HighLimit's value: the refused entry left it", CDbl(highLimit.GetDsvValue()), 7.25
CheckEqual "HighLimit's type", highLimit.GetDsvType(), 7
CheckEqual "Tanks is renamed", tanks.GetDsName(), "Vessels"
CheckEqual "Limits keeps its name", limits.GetDsName(), "Limits"
CheckEqual "Tanks keeps its variables", tanks.GetDsVars().DsvCount(), 2

Finish "dialog_panels"
