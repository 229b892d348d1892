' An editing run in a locale whose decimal separator is "," (the run's
' environment sets it): the robot (tests/wine/robot/robust_comma_locale.robot)
' clicks every constant variable and closes. Every value must come back
' exactly as it was, since the panel shows each value and writes it back.
Dim ui, d, values, vars, json, i
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
values = Array(1.5, -0.25, 1234.5, 0.1 + 0.2, 1 / 3, 123456.789, 1E+15, 1.5E-07, 2 / 3 * 1E+300, 1E-300 / 7)
json = ""
For i = 0 To UBound(values)
  If i > 0 Then json = json & ", "
  json = json & "{'name': 'C" & (i + 1) & "', 'type': 'Float'}"
Next
Set d = SampleDisplay("{'dataSources': [{'name': 'Limits', 'kind': 'constant', 'variables': [" & json & "]}]}")
ReDim vars(UBound(values))
For i = 0 To UBound(values)
  Set vars(i) = d.GetDataSources().DsItem(1).GetDsVars().DsvItem(i + 1)
  vars(i).SetDsvValue values(i)  ' exact: no text between the script's Double and the model
Next

ui.EditDataSources d
Check "IsModified after looking at constants (a look writes value and scope back)", ui.IsModified()
For i = 0 To UBound(values)
  Check "C" & (i + 1) & " keeps its value bit for bit", vars(i).GetDsvValue() = values(i)
  CheckEqual "C" & (i + 1) & " keeps its type", vars(i).GetDsvType(), 7
Next

Finish "robust_comma_locale"
