' A display written as script classes, read and changed through the
' component's adapters (driven by the test harness), and a communication
' object whose out arguments come back by reference.
Class ScriptComm
  Public LastChanged
  Public Sub GetApplications(names, numbers)
    names = Array("Plant", "Mill")
    numbers = Array(1, 7)
  End Sub
  Public Sub ExecuteKorl(request, result)
    result = "ran " & request
  End Sub
  Public Sub ExecuteKorlInApp(nr, request, result)
    result = "app " & nr & ": " & request
  End Sub
  Public Sub ScriptFileChanged(path)
    LastChanged = path
  End Sub
  Public Sub ValidateItem(itemId, value)
    If itemId = "bad" Then Err.Raise 5
    value = 3.5
  End Sub
End Class

Dim h, d, comm, n, vars, r
Set h = CreateObject("VdTestBridge.Harness")
Set d = NewPlantDisplay()

CheckEqual "the adapted display reads like the script's own", h.DescribeDisplay(d), DescribeOwnDisplay(d)
Check "a plain data source is not custom", Not h.IsCustomDs(d, 1)
Check "a data source that answers GetParams is custom", h.IsCustomDs(d, 2)

h.RenameDs d, 1, "Vessels"
CheckEqual "a rename through the adapter reaches the object", d.List.DsItem(1).GetDsName(), "Vessels"
n = h.AddDsv(d, 1)
Set vars = d.List.DsItem(1).GetDsVars()
CheckEqual "a variable added through the adapter is appended", vars.DsvCount(), 3
CheckEqual "the added variable has the model's name", vars.DsvItem(3).GetDsvName(), n
Check "the second variable moves up", h.MoveDsvUp(d, 1, 2)
CheckEqual "after the move the first variable is the former second", vars.DsvItem(1).GetDsvName(), "Pressure"
Check "the first variable cannot move up", Not h.MoveDsvUp(d, 1, 1)
h.SetParam d, 2, 2, 9, "4712"
CheckEqual "a parameter set through the adapter keeps its type", d.List.DsItem(2).GetParams().ParamItem(2).GetParamType(), 9
CheckEqual "a parameter set through the adapter keeps its value", d.List.DsItem(2).GetParams().ParamItem(2).GetParamValue(), "4712"
CheckEqual "the changed display still reads alike", h.DescribeDisplay(d), DescribeOwnDisplay(d)

d.List.DsItem(1).FailReading = True
On Error Resume Next
r = h.DsName(d, 1)
CheckError "an error raised by the script object keeps its number", 1234, ""
r = h.DsName(d, 7)
Check "a missing data source is an error", Err.Number <> 0
Err.Clear
On Error Goto 0
d.List.DsItem(1).FailReading = False

Set comm = New ScriptComm
CheckEqual "GetApplications fills both arrays by reference", h.Applications(comm), "Plant=1;Mill=7;"
CheckEqual "ExecuteKorl gives its result by reference", h.Korl(comm, "#return 1"), "ran #return 1"
CheckEqual "ExecuteKorlInApp gives its result by reference", h.KorlInApp(comm, 3, "x"), "app 3: x"
CheckEqual "ValidateItem gives the value by reference", h.Validate(comm, "Plant.Tank1.Level"), 3.5
h.ScriptChanged comm, "C:\App\PICT\Level.korl"
CheckEqual "ScriptFileChanged passes the path", comm.LastChanged, "C:\App\PICT\Level.korl"
On Error Resume Next
r = h.Validate(comm, "bad")
CheckError "ValidateItem's error comes back with its number", 5, ""
On Error Goto 0

' Values as the component reads them (its own type names).
CheckEqual "a small whole number is an Integer", h.EchoTypeName(5), "Integer"
CheckEqual "a large whole number is a Long", h.EchoTypeName(100000), "Long"
CheckEqual "a fraction is a Double", h.EchoTypeName(1.5), "Double"
CheckEqual "text is a String", h.EchoTypeName("x"), "String"
CheckEqual "True is a Boolean", h.EchoTypeName(True), "Boolean"
CheckEqual "Null stays Null", h.EchoTypeName(Null), "Null"
CheckEqual "Empty stays Empty", h.EchoTypeName(Empty), "Empty"
CheckEqual "an array is Variant()", h.EchoTypeName(Array(1, "a")), "Variant()"
r = h.Echo(Array(1, "two", 3.5))
CheckEqual "an array comes back with its bounds", LBound(r) & ".." & UBound(r), "0..2"
CheckEqual "an array comes back with its items", r(0) & "|" & r(1) & "|" & r(2), "1|two|3.5"
CheckEqual "text with blanks comes back unchanged", h.Echo("  two  blanks "), "  two  blanks "
Check "an object comes back as itself", h.Echo(d) Is d

Finish "adapters"
