# Close ends a selection run without a variable, also after one was shown.
wait form frmDataBrowser
click node "4:2"
check dbOK enabled
click dbClose
wait gone
