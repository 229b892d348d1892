' Starts the robot (vd_robot.exe) on tests/wine/robot/<name>.robot without
' waiting for it: it plays the user in the dialogs that the scenario opens
' next. The test run passes where things are (VD_ROBOT, VD_ROBOT_SCRIPTS,
' VD_ROBOT_LOGS, VD_ROBOT_ARTIFACTS) and reads the robot's log afterwards.
Sub StartRobot(name)
  Dim shell, robot, folder
  Set shell = CreateObject("WScript.Shell")
  robot = shell.ExpandEnvironmentStrings("%VD_ROBOT%")
  folder = shell.ExpandEnvironmentStrings("%VD_ROBOT_SCRIPTS%")
  shell.Run """" & robot & """ --log """ & shell.ExpandEnvironmentStrings("%VD_ROBOT_LOGS%") & "\" & name & _
    ".log"" --artifacts """ & shell.ExpandEnvironmentStrings("%VD_ROBOT_ARTIFACTS%") & """ """ & folder & "\" & _
    name & ".robot""", 0, False
End Sub
