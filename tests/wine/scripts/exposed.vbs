' A C++ module's objects exposed to a script (the sample display the test
' bridge makes, as a C++ host exposes its own): members answer by name in any
' case, one object keeps one identity, a missing argument is error 450, an
' error of the object keeps its number and text, and only custom objects
' answer the custom members.
Dim d, tanks, level, scratch, flow
Set d = SampleDisplay("{'dataSources': [{'name': 'Tanks', 'kind': 'memory', 'variables': [{'name': 'Level'}]}, " & _
  "{'name': 'Scratch', 'kind': 'memory'}, {'name': 'Scada', 'kind': 'custom', 'className': 'Riverside.Custom', " & _
  "'variables': [{'name': 'Flow', 'access': 1}]}]}")
Set tanks = d.GetDataSources().DsItem(1)
Set level = tanks.GetDsVars().DsvItem(1)
Set scratch = d.GetDataSources().DsItem(2)
Set flow = d.GetDataSources().DsItem(3).GetDsVars().DsvItem(1)
tanks.setdsname "Renamed"
CheckEqual "a member called in another case", tanks.GETDSNAME(), "Renamed"
Check "one object, one identity", tanks Is d.GetDataSources().DsItem(1)
CheckEqual "a custom variable's access", flow.GetDsvAccess(), 1
On Error Resume Next
tanks.SetDsName
CheckError "a missing argument", 450, ""
CheckEqual "a call with an argument missing changes nothing", tanks.GetDsName(), "Renamed"
tanks.GetParams
CheckError "a data source that is not custom has no parameters", 438, ""
level.GetDsvAccess
CheckError "a variable that is not custom has no access", 438, ""
scratch.RemoveDs
scratch.GetDsName
CheckError "a deleted data source", 5, "The data source was deleted from the display"
On Error Goto 0

Finish "exposed"
