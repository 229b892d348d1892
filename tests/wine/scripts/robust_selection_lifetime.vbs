' SelectionHandler's lifetime as a script sees it: many times create it, hand
' it a variable, ask for the selected one, release both. Every variable handed
' over is released again (its Class_Terminate runs once the script lets go),
' nothing is kept (Nothing comes back), and the script's own private memory
' (vd_parent_memory.exe, beside the DLL) grows by no more than the script
' engine's own share between the first tenth and the end. Wine's script engine
' keeps about 48 bytes per CreateObject of a class in a DLL of its own (850 KiB
' over 18,000 cycles, the same for the test bridge's class; the same calls from
' a C++ host keep nothing), so the bound is that plus about 10 bytes a cycle:
' a handler or a copy kept per cycle goes past it.
Const kCycles = 20000
Const kBoundKiB = 1024

Dim released
released = 0

Class HandedVariable
  Private Sub Class_Terminate()
    released = released + 1
  End Sub
End Class

Function PrivateKiB()
  PrivateKiB = CreateObject("WScript.Shell").Run("vd_parent_memory.exe", 0, True)
End Function

Sub Cycle()
  Dim handler, handed, result, selected
  Set handler = CreateObject("VarDeskGUI.SelectionHandler")
  Set handed = New HandedVariable
  result = handler.SetSelectedVariable(handed)
  Set selected = handler.GetSelectedVariable()
  If Not IsEmpty(result) Or Not selected Is Nothing Then kept = kept + 1
End Sub

Dim kept, i, early, atEnd
kept = 0
For i = 1 To kCycles \ 10
  Cycle
Next
early = PrivateKiB()
For i = kCycles \ 10 + 1 To kCycles
  Cycle
Next
atEnd = PrivateKiB()

WScript.Echo "selection handler: " & kCycles & " cycles, private " & early & " KiB after " & (kCycles \ 10) & _
             ", " & atEnd & " KiB at the end"
Check "the script's private memory is measured", early > 0
Check "private memory grows no more than the script engine's share over the last " & (kCycles - kCycles \ 10) & " cycles (grew " & (atEnd - early) & _
      " KiB, bound " & kBoundKiB & ")", atEnd - early <= kBoundKiB
CheckEqual "every variable handed over is released", released, kCycles
CheckEqual "no cycle got a result or a selected variable back", kept, 0
Finish "robust_selection_lifetime"
