# host: demo samples/plant.json
# env: VD_DEMO_SCRATCH=1
# env: VD_DEMO_AUDIT=1
# expect: run: editing
# expect: modified: yes
# expect: display: changed
# expect: scada calls: ScriptFileChanged
# A new data-change script file for a generic signal: named in the input box,
# made from the application's template in a scratch copy of the application
# directory, opened in Wine's own notepad, which the robot closes; the dialog
# comes back with the file as the combo's text and Apply enabled.
wait form frmDataBrowser
click node "_Raw_Water_Station.custom6"
click node "6:7"
check cmbKorlFileSelect visible
check cmbKorlFileSelect text ""
check cmbKorlFileSelect items "Create and edit new file...|Edit selected file...|LEVEL_SCALE.KORL|TEMPLATEforDataChange.korl"
check cmdTelvaneDsvApply disabled
# The first entry, reached with the arrow key in the closed list, runs the command at once.
click cmbKorlFileSelect
key DOWN
wait form InputBox
check caption "KORL file"
check lblPrompt text "Give file name. File will be located in PICT directory "
type txtInput "INTAKE_TREND.KORL"
click OKButton
close window Notepad
wait form frmDataBrowser
check cmbKorlFileSelect text "INTAKE_TREND.KORL"
check cmdTelvaneDsvApply enabled
click cmdTelvaneDsvApply
check cmdTelvaneDsvApply disabled
check cmbKorlFileSelect items "Create and edit new file...|Edit selected file...|INTAKE_TREND.KORL|LEVEL_SCALE.KORL|TEMPLATEforDataChange.korl"
click dbClose
wait gone
