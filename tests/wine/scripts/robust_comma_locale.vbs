' An editing run in a locale whose decimal separator is "," (the run's
' environment sets it): the robot (tests/wine/robot/robust_comma_locale.robot)
' clicks every constant variable and closes. Every value must come back
' exactly as it was, since the panel shows each value and writes it back.
Dim ui, d, limits, values, vars, i  ' Wine 8: "Dim vars()" then ReDim crashes the engine
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
Set d = New TestDisplay
Set d.List = New TestDsList
Set limits = NewDs(d.List, "Limits", 3)
values = Array(1.5, -0.25, 1234.5, 0.1 + 0.2, 1 / 3, 123456.789, 1E+15, 1.5E-07, 2 / 3 * 1E+300, 1E-300 / 7)
ReDim vars(UBound(values))
For i = 0 To UBound(values)
  Set vars(i) = NewDsv(limits, "C" & (i + 1), 7, values(i))
Next

ui.EditDataSources d
Check "IsModified after looking at constants (a look writes value and scope back)", ui.IsModified()
For i = 0 To UBound(values)
  Check "C" & (i + 1) & " keeps its value bit for bit", vars(i).GetDsvValue() = values(i)
  CheckEqual "C" & (i + 1) & " keeps its type", vars(i).GetDsvType(), 7
Next

Finish "robust_comma_locale"
