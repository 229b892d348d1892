# host: demo
# env: VD_DEMO_AUDIT=1
# expect: run: editing
# expect: modified: yes
# expect: display: changed
# expect: scada calls: GetApplications
# The plant's SCADA frames in use: an application chosen from the list that
# the simulated system gives, a blink period applied, an invalid reference
# refused and undone, a reference applied by leaving the box, and a swap
# option stored at once.
wait form frmDataBrowser
click node "_Softening_Plant.custom8"
check cmdTelvaneDsApply disabled
# The list is loaded from the SCADA system when it drops down.
click cboTelvaneApplication
key F4
check cboTelvaneApplication items "1 - RAWWATER|2 - CLEARWTR|3 - SOFTENING"
# Each entry the arrow keys reach applies at once; the last one stays.
key DOWN
key DOWN
key DOWN
key ENTER
check cboTelvaneApplication text "3 - SOFTENING"
check cmdTelvaneDsApply enabled
type txtBlinkPeriod "750.4"
click cmdTelvaneDsApply
check txtBlinkPeriod text "750"
# A typed number applies at once and rewrites the item ids of the variables.
click node "_Clear_Water_Tanks.custom7"
type cboTelvaneApplication "4"
click node "7:1"
click lblObjectReference
answer msgbox "Current itemID: \t\\\\APL\\4\\P\\CW_LT201\\1:OV\r\nStored itemID: \t\\\\APL\\4\\P\\CW_LT201\\1:OV" title "Data Selection" button OK
click node "_Raw_Water_Station.custom6"
click node "6:12"
type txtTelvaneObjectReference "rw_p104"
check cmdTelvaneDsvApply enabled
check cmdTelvaneDsvUndo enabled
click cmdTelvaneDsvValidate
answer msgbox "Invalid object reference: \"RW_P104\"" title "Data Selection" button OK
click cmdTelvaneDsvUndo
check txtTelvaneObjectReference text "RW_P103:POV10"
check cmdTelvaneDsvUndo disabled
type txtTelvaneObjectReference "rw_p104:pov10"
key TAB
check txtTelvaneObjectReference text "RW_P104:POV10"
check cmdTelvaneDsvApply disabled
click optTelvaneSwap12
check optTelvaneSwap12 checked
check cmdTelvaneDsvApply disabled
click node "6:13"
click node "6:12"
check txtTelvaneObjectReference text "RW_P104:POV10"
check optTelvaneSwap12 checked
click node "_Softening_Plant.custom8"
check cboTelvaneApplication text "3"
check txtBlinkPeriod text "750"
click dbClose
wait gone
