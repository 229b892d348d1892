# host: vbs scada_comm
# The user in tests/wine/scripts/scada_comm.vbs, whose communication object
# is a VBScript class: items validated (a value, a vector, an unknown item),
# a reference and a swap option applied, the application chosen from the list.
wait form frmDataBrowser
click node "1:1"
check txtTelvaneObjectReference text "P101:POV10"
check optTelvaneSwapNone checked
click cmdTelvaneDsvValidate
answer msgbox "Object reference \"P101:POV10\" is valid.\r\n\r\nCurrent value: \"1\"" title "Data Selection" button OK
click node "1:2"
check cmbKorlFileSelect visible
click cmdTelvaneDsvValidate
answer msgbox "Object reference \"LT1:POV2\" is valid.\r\n\r\nCurrent value: \"<vector>\"" title "Data Selection" button OK
click node "1:1"
type txtTelvaneObjectReference "p102:pov10"
click cmdTelvaneDsvValidate
answer msgbox "Could not validate object reference \"P102:POV10\".\r\n\r\nGenerated OPC itemid: \\\\APL\\1\\P\\P102\\10:OV" title "Data Selection" button OK
check cmdTelvaneDsvApply disabled
click optTelvaneSwap12
check optTelvaneSwap12 checked
click node "_Station1"
check cboTelvaneApplication text "1"
click cboTelvaneApplication
key F4
check cboTelvaneApplication items "1 - RAW|2 - CLEAR"
key DOWN
key DOWN
key ENTER
check cboTelvaneApplication text "2 - CLEAR"
click dbClose
wait gone
