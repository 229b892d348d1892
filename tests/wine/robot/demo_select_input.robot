# host: demo samples/plant.json --select 2 501 0 0
# expect: run: selection (context 2, type 501, rows 0, cols 0)
# expect: selected: Operator_Entries / SP_LT201_Low_m
# expect: modified: yes
# Input objects take numeric variables only: OK follows the selected node's type.
wait form frmDataBrowser
check caption "Data Selection for Input Objects"
click node "3:1"
check dbOK enabled
click node "1:4"  # Sample_Time, a text
check dbOK disabled
click node "3:2"
check dbOK enabled
click dbOK
wait gone
