# host: demo samples/plant.json --select 1 501 0 0
# expect: run: selection (context 1, type 501, rows 0, cols 0)
# expect: selected: none
# expect: modified: yes
# Close ends a selection run without a variable, also after one was shown.
wait form frmDataBrowser
click node "4:2"
check dbOK enabled
click dbClose
wait gone
