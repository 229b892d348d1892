' The registered component created by ProgID, as a script host uses it.
Class ScriptComm
  Public Sub GetApplications(names, numbers)
    names = Array("Plant")
    numbers = Array(1)
  End Sub
End Class

Const kObjectNotSet = "Object variable or With block variable not set"

Dim ui, other, handler, d, r, modified, bridge, source
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
Check "VarDeskUI is created by its ProgID", IsObject(ui) And Not ui Is Nothing
Set handler = CreateObject("VarDeskGUI.SelectionHandler")
Check "SelectionHandler is created by its ProgID", IsObject(handler) And Not handler Is Nothing

ui.HelpFile = "C:\Help\Data Browser.chm"
CheckEqual "HelpFile reads back what was set", ui.HelpFile, "C:\Help\Data Browser.chm"
Set other = CreateObject("VarDeskGUI.VarDeskUI")
CheckEqual "HelpFile is one for the whole application", other.HelpFile, "C:\Help\Data Browser.chm"
other.HelpFile = ""
CheckEqual "HelpFile can be emptied", ui.HelpFile, ""

Set ui.Communication = New ScriptComm
Check "Communication reads as Nothing after it was set", ui.Communication Is Nothing

Set d = SampleDisplay("{'dataSources': [{'name': 'Tanks', 'kind': 'memory', 'variables': [{'name': 'Level'}]}]}")
r = handler.SetSelectedVariable(d.GetDataSources().DsItem(1).GetDsVars().DsvItem(1))
Check "SetSelectedVariable returns Empty", IsEmpty(r)
Check "GetSelectedVariable is Nothing after SetSelectedVariable", handler.GetSelectedVariable() Is Nothing
r = handler.SetSelectedVariable(Nothing)
Check "SetSelectedVariable takes Nothing", IsEmpty(r)

On Error Resume Next
ui.EditDataSources Nothing
CheckError "EditDataSources without a display", 91, kObjectNotSet
Set r = ui.SelectDataVar(Nothing, 1, 501, 0, 0)
source = Err.Source
CheckError "SelectDataVar without a display", 91, kObjectNotSet
CheckEqual "the error's source", source, "VarDeskGUI.VarDeskUI"
modified = ui.IsModified()
CheckError "IsModified before any run", 0, ""
Check "IsModified is False before any edit", modified = False
ui.NoSuchMember
CheckError "an unknown member", 438, ""
On Error Goto 0

Set bridge = CreateObject("VdTestBridge.EventBridge")
On Error Resume Next
bridge.Connect ui, New ScriptComm
CheckError "a sink connects to the VarDeskUI events", 0, ""
bridge.Disconnect
CheckError "the sink disconnects", 0, ""
bridge.Connect handler, New ScriptComm
Check "SelectionHandler has no events to connect to", Err.Number <> 0
Err.Clear
On Error Goto 0

Finish "registered"
