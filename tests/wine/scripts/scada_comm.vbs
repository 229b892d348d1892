' A script host's own SCADA system: a VBScript class as the communication
' object, answering with arrays as VBScript makes them and raising as a
' script raises. The robot (tests/wine/robot/scada_comm.robot) loads the
' application list, validates items and applies a mapping and an application.

' Requests and validation of a small system with two applications; every call
' is noted in Calls, a failing one too, but for the application path requests
' that list the script files, which are only counted.
Class TestScada
  Public Calls
  Public PathRequests
  Private Sub Class_Initialize
    Calls = ""
    PathRequests = 0
  End Sub
  Private Sub Note(name)
    If Calls = "" Then Calls = name Else Calls = Calls & "," & name
  End Sub
  Public Sub GetApplications(names, numbers)
    Note "GetApplications"
    names = Array("RAW", "CLEAR")
    numbers = Array(1, 2)
  End Sub
  Public Sub ExecuteKorl(request, result)
    If request = "@path1=path(""APL_"")" & vbLf & "@path1 =%path1(1)" & vbLf & _
        "#return substr(%path1,1,length(%path1)-4)" Then
      PathRequests = PathRequests + 1
      result = "C:\apl\"
    Else
      Note "ExecuteKorl"
      Err.Raise vbObjectError + 1002, "TestScada", "request not understood"
    End If
  End Sub
  Public Sub ExecuteKorlInApp(applicationNr, request, result)
    Note "ExecuteKorlInApp"
    Err.Raise vbObjectError + 1002, "TestScada", "request not understood"
  End Sub
  Public Sub ScriptFileChanged(path)
    Note "ScriptFileChanged"
  End Sub
  Public Sub ValidateItem(itemId, value)
    Note "ValidateItem"
    Select Case itemId
      Case "\\APL\1\P\P101\10:OV"
        value = 1
      Case "\\APL\1\P\LT1\2:OV"
        value = Array(1.5, 2.5)
      Case Else
        Err.Raise vbObjectError + 1003, "TestScada", "unknown item " & itemId
    End Select
  End Sub
End Class

' A read-only variable of the station: a text parameter, its item id and its
' mapping code, then as many text parameters as tail says.
Const kEmpty = "{'type': 'text', 'value': ''}"
Function Variable(name, dsvType, itemId, mapping, tail)
  Variable = "{'name': '" & name & "', 'type': '" & dsvType & "', 'scope': 'public', 'access': 1, 'params': [" & _
    kEmpty & ", {'type': 'text', 'value': '" & itemId & "'}, {'type': 'number', 'value': " & mapping & "}" & _
    Replace(Space(tail), " ", ", " & kEmpty) & "]}"
End Function

Dim ui, d, station, run, trend, spare, comm
Set ui = CreateObject("VarDeskGUI.VarDeskUI")
Set d = SampleDisplay("{'dataSources': [{'name': 'Station', 'kind': 'custom', 'className': 'Riverside.Custom', " & _
  "'params': [{'type': 'text', 'value': 'Telvane DV DataSource'}, {'type': 'number', 'value': 1}, " & _
  "{'type': 'number', 'value': 500}], 'variables': [" & Variable("Run", "Long", "\\APL\1\P\P101\10:OV", 0, 2) & _
  ", " & Variable("Trend", "Double", "\\APL\1\P\LT1\2:OV", 2, 2) & ", " & Variable("Spare", "Double", "\\SYS\1:OV", 0, 0) & "]}]}")
Set station = d.GetDataSources().DsItem(1)
Set run = station.GetDsVars().DsvItem(1)
Set trend = station.GetDsVars().DsvItem(2)
Set spare = station.GetDsVars().DsvItem(3)
Set comm = New TestScada
Set ui.Communication = comm

ui.EditDataSources d
Check "IsModified after the SCADA edits", ui.IsModified()
CheckEqual "the application chosen from the list", station.GetParams().ParamItem(2).GetParamValue(), 2
CheckEqual "Run's item id in the new application", run.GetParams().ParamItem(2).GetParamValue(), _
  "\\APL\2\P\P102\10:OV"
CheckEqual "Run's mapping code: swap 1 and 2, state indication", run.GetParams().ParamItem(3).GetParamValue(), 32
CheckEqual "Trend's item id in the new application", trend.GetParams().ParamItem(2).GetParamValue(), _
  "\\APL\2\P\LT1\2:OV"
CheckEqual "Spare belongs to no application", spare.GetParams().ParamItem(2).GetParamValue(), "\\SYS\1:OV"
CheckEqual "what the SCADA system was asked", comm.Calls, "ValidateItem,ValidateItem,ValidateItem,GetApplications"
Check "the script file list asked for the application path", comm.PathRequests > 0

Finish "scada_comm"
