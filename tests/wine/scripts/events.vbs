' The events of VarDeskUI sunk by a script: a VarDeskUI object whose core
' raises the events at once stands in for the dialog; the bridge relays the
' connection point's calls to the handler's methods by name.
Class Handler
  Public Replacement
  Public Seen
  Public Calls
  Public FailWith
  Private Sub Class_Initialize
    Calls = 0
    FailWith = 0
  End Sub
  Public Sub EditCustomDs(obj)
    Calls = Calls + 1
    Set Seen = obj
    If FailWith <> 0 Then Err.Raise FailWith, "Handler", "The host refused"
    If IsObject(Replacement) Then Set obj = Replacement
  End Sub
  Public Sub EditCustomDsv(obj)
    Calls = Calls + 1
    Set Seen = obj
    If IsObject(Replacement) Then Set obj = Replacement
  End Sub
End Class

Dim h, ui, bridge, d, sink, r, replacementDsv
Set h = CreateObject("VdTestBridge.Harness")
Set ui = h.NewVarDeskUI()
Set bridge = CreateObject("VdTestBridge.EventBridge")
Set d = NewPlantDisplay()
Set sink = New Handler
bridge.Connect ui, sink

Set sink.Replacement = d.List.DsItem(3)
ui.EditDataSources d
CheckEqual "EditCustomDs reaches the script's handler once", sink.Calls, 1
Check "the handler sees the data source the dialog passed", sink.Seen Is d.List.DsItem(1)
Check "the object the handler stored is what the dialog gets back", h.LastEventObject() Is d.List.DsItem(3)

Set replacementDsv = d.List.DsItem(2).GetDsVars().DsvItem(2)
Set sink.Replacement = replacementDsv
Set r = ui.SelectDataVar(d, 1, 500, 0, 0)
CheckEqual "EditCustomDsv reaches the script's handler", sink.Calls, 2
Check "the handler sees the variable", sink.Seen Is d.List.DsItem(1).GetDsVars().DsvItem(1)
Check "the replaced variable is what comes back", r Is replacementDsv

sink.Replacement = Empty
ui.EditDataSources d
Check "a handler that stores nothing leaves the object", h.LastEventObject() Is d.List.DsItem(1)

sink.FailWith = 1001
On Error Resume Next
ui.EditDataSources d
CheckError "an error in the handler reaches the caller", 1001, ""
Set r = ui.SelectDataVar(d, 99, 500, 0, 0)
CheckError "an Automation error of the component shows its number", 5, "Invalid procedure call or argument"
ui.EditDataSources Nothing
CheckError "Nothing as the display", 91, "Object variable or With block variable not set"
On Error Goto 0
sink.FailWith = 0

CheckEqual "the bridge counted the events its handler completed", bridge.EventsRelayed(), 3
bridge.Disconnect
ui.EditDataSources d
CheckEqual "after Disconnect the handler hears nothing", sink.Calls, 4

Finish "events"
