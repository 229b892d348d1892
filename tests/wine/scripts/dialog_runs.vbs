' The registered component in its real dialog, a VBScript host, the robot
' (tests/wine/robot/dialog_runs.robot) as the user: selection runs ended by OK
' and by Close, an editing run that renames a variable, "More..." whose event
' handler replaces the object it is handed, and a variable the host marked.
Class DsvEditor
  Public Calls
  Public Seen
  Public Replacement
  Private Sub Class_Initialize
    Calls = 0
  End Sub
  Public Sub EditCustomDs(obj)
    Calls = Calls + 100
  End Sub
  Public Sub EditCustomDsv(obj)
    Calls = Calls + 1
    Set Seen = obj
    Set obj = Replacement
  End Sub
End Class

Const kMark = "0_ThIs_1_StRiNg_2_WiLl_3_NeVeR_4_eVeR_5_bE_6_uSeD_7_aS_8_a_9_nAmE_8_bY_7_THE_6_users543210"
Dim ui, d, level, pressure, flow, r, editor, bridge
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
Set d = SampleDisplay("{'dataSources': [{'name': 'Tanks', 'kind': 'file', 'ascii': false, 'variables': [" & _
  "{'name': 'Level', 'type': 'Double', 'value': 1.5, 'scope': 'public'}, " & _
  "{'name': 'Pressure', 'type': 'Long', 'value': 3, 'scope': 'public', 'useCount': 2}]}, " & _
  "{'name': 'Scada', 'kind': 'custom', 'className': 'Riverside.Custom', " & _
  "'params': [{'type': 'text', 'value': 'host1'}, {'type': 'number', 'value': 4711}], 'variables': [" & _
  "{'name': 'Flow', 'type': 'Float', 'value': 0.25, 'scope': 'public', 'access': 1}, " & _
  "{'name': 'Valve', 'type': 'Text', 'scope': 'public', 'access': 1}]}, " & _
  "{'name': 'Scratch', 'kind': 'memory'}]}")
Set level = d.GetDataSources().DsItem(1).GetDsVars().DsvItem(1)
Set pressure = d.GetDataSources().DsItem(1).GetDsVars().DsvItem(2)
Set flow = d.GetDataSources().DsItem(2).GetDsVars().DsvItem(1)

Set r = ui.SelectDataVar(d, 1, 501, 0, 0)
Check "OK returns a variable", Not r Is Nothing
If Not r Is Nothing Then CheckEqual "OK returns the variable chosen", r.GetDsvName(), "Level"
Check "the variable is the display's own object", r Is level

Set r = ui.SelectDataVar(d, 1, 501, 0, 0)
Check "Close returns Nothing", r Is Nothing

ui.EditDataSources d
Check "IsModified after a variable was renamed", ui.IsModified()
CheckEqual "the new name reached the display's variable", pressure.GetDsvName(), "Pressure_bar"

Set editor = New DsvEditor
Set editor.Replacement = level
Set bridge = CreateObject("VdTestBridge.EventBridge")
bridge.Connect ui, editor
Set r = ui.SelectDataVar(d, 0, 500, 0, 0)
CheckEqual "More... raises EditCustomDsv once", editor.Calls, 1
Check "the event carries the variable of the selected node", editor.Seen Is flow
CheckEqual "the bridge relayed the event", bridge.EventsRelayed(), 1
Check "OK returns the variable the panel showed, not the handler's replacement", r Is flow
bridge.Disconnect

d.GetDataSources().DsItem(1).SetDsName kMark & "Tanks"
pressure.SetDsvName kMark & "Pressure_bar"
Set r = ui.SelectDataVar(d, 3, 500, 0, 0)
Check "OK returns the variable the host marked", r Is pressure
CheckEqual "the mark is taken off the data source's name", d.GetDataSources().DsItem(1).GetDsName(), "Tanks"
CheckEqual "the mark is taken off the variable's name", pressure.GetDsvName(), "Pressure_bar"

Finish "dialog_runs"
