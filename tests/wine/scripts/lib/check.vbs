' Test helpers for the scenarios: every check prints one line, "ok - name" or
' "FAIL - name: detail". The runner counts them and expects the scenario's
' last line, "END <scenario>", to see that no error ended the script early.
Dim vdPassed, vdFailed
vdPassed = 0
vdFailed = 0

Sub Check(name, condition)
  If condition Then
    vdPassed = vdPassed + 1
    WScript.Echo "ok - " & name
  Else
    vdFailed = vdFailed + 1
    WScript.Echo "FAIL - " & name
  End If
End Sub

Sub CheckEqual(name, actual, expected)
  If actual = expected Then
    vdPassed = vdPassed + 1
    WScript.Echo "ok - " & name
  Else
    vdFailed = vdFailed + 1
    WScript.Echo "FAIL - " & name & ": got [" & actual & "], expected [" & expected & "]"
  End If
End Sub

' Checks the error left by the statement before (under On Error Resume Next).
Sub CheckError(name, number, description)
  Dim gotNumber, gotDescription
  gotNumber = Err.Number
  gotDescription = Err.Description
  Err.Clear
  CheckEqual name & " (number)", gotNumber, number
  If description <> "" Then CheckEqual name & " (description)", gotDescription, description
End Sub

Sub Finish(scenario)
  WScript.Echo "END " & scenario
End Sub

' A display of the sample's in-memory toolkit, made by the test bridge from a
' sample file's JSON text (' stands for ", and \ is taken as written): the
' objects of another module that a host hands to the component.
Function SampleDisplay(json)
  Set SampleDisplay = CreateObject("VdTestBridge.EventBridge").SampleDisplay(Replace(Replace(json, "\", "\\"), "'", Chr(34)))
End Function
