# host: demo samples/feeders.json
# env: VD_DEMO_AUDIT=1
# expect: run: editing
# expect: modified: yes
# expect: display: changed
# The rescan of a SCADA data source of 50 status colour variables: the
# progress display runs and is hidden again, and every variable holds what the
# simulated system answered for its object (offsets text, "0,0,0" for no
# offsets, a status or an unknown object, "" for a failed request).
wait form frmDataBrowser
click node "_Feeders.custom1"
check Command1 visible
check Command1 caption "&Rescan"
check ProgressBar1 hidden
check lblPercent hidden
click Command1
check ProgressBar1 hidden
check lblPercent hidden
check lblPercent caption "100 %"
click node "1:1"
check txtVarInfo text "1,2,3"
click node "1:10"
check txtVarInfo text "0,0,0"
click node "1:20"
check txtVarInfo text "0,0,0"
click node "1:30"
check txtVarInfo text ""
click node "1:40"
check txtVarInfo text "0,0,0"
click node "1:50"
check txtVarInfo text "50,51,52"
click dbClose
wait gone
