# host: demo
# env: VD_DEMO_AUDIT=1
# expect: run: editing
# expect: display: unchanged
# expect: scada calls: none
# A look never writes: every SCADA data source and variable of the plant is
# shown, with no edit; the frames are filled and nothing is stored or asked.
wait form frmDataBrowser
click node "_Raw_Water_Station.custom6"
check fraTelvaneDsSettings visible
check cboTelvaneApplication text "1"
check txtBlinkPeriod text "500"
click node "6:1"
check txtTelvaneObjectReference text "RW_P101:POV10"
check cboTelvaneSignalType text "State indication"
check optTelvaneSwapNone checked
check cmdTelvaneDsvApply disabled
click node "6:2"
check optTelvaneSwap01 checked
click node "6:3"
check optTelvaneSwap12 checked
click node "6:4"
check cboTelvaneSignalType text "Status color"
check txtVarInfo text "3,5,7"
click node "6:5"
click node "6:6"
check cmbKorlFileSelect text "LEVEL_SCALE.KORL"
click node "6:7"
click node "6:8"
click node "6:9"
check txtTelvaneObjectReference text "RW_STA:SOV10"
click node "6:10"
click node "6:11"
check txtTelvaneObjectReference text "SYS_WD1:BOV"
click node "6:12"
click node "6:13"
check fraTelvaneDsvSettings hidden
click node "6:14"
click node "_Clear_Water_Tanks.custom7"
check cboTelvaneApplication text "2"
check txtBlinkPeriod text "1000"
click node "7:1"
click node "7:2"
click node "7:3"
click node "7:4"
click node "7:5"
click node "_Softening_Plant.custom8"
check cboTelvaneApplication text "0"
check cmdTelvaneDsApply disabled
click node "8:1"
check txtTelvaneObjectReference text ""
click node "6:6"
click node "_Raw_Water_Station.custom6"
click dbClose
wait gone
