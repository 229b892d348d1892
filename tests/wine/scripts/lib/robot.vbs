' Starts the robot (vd_robot.exe) on tests/wine/robot/<name>.robot without
' waiting for it: it plays the user in the dialogs that the scenario opens
' next. The test run passes where things are (VD_ROBOT, VD_ROBOT_SCRIPTS,
' VD_ROBOT_LOGS, VD_ROBOT_ARTIFACTS) and reads the robot's log afterwards.
Function EnvironmentValue(shell, name)
  ' Wine 8's ExpandEnvironmentStrings counts the closing NUL into the text.
  EnvironmentValue = Replace(shell.ExpandEnvironmentStrings("%" & name & "%"), Chr(0), "")
End Function

Sub StartRobot(name)
  Dim shell, robot, folder, logs, artifacts
  Set shell = CreateObject("WScript.Shell")
  robot = EnvironmentValue(shell, "VD_ROBOT")
  folder = EnvironmentValue(shell, "VD_ROBOT_SCRIPTS")
  logs = EnvironmentValue(shell, "VD_ROBOT_LOGS")
  artifacts = EnvironmentValue(shell, "VD_ROBOT_ARTIFACTS")
  shell.Run """" & robot & """ --log """ & logs & "\" & name & ".log"" --artifacts """ & artifacts & """ """ & _
    folder & "\" & name & ".robot""", 0, False
End Sub
