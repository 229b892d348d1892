# host: demo samples/plant.json
# expect: run: editing
# expect: modified: yes
# The view sort orders the tree only and locks the moves of that data source;
# Sort DS orders the data source itself by name, ignoring case.
wait form frmDataBrowser
click node "3:2"  # SP_LT201_Low_m of Operator_Entries
click chkSort
check chkSort checked
check cmdMoveUp disabled
check cmdMoveDown disabled
check node "3:2" selected
check node "3:2" text "SP_LT201_Low_m"
click chkSort
check chkSort unchecked
check cmdMoveUp enabled
click node "_Operator_Entries3"
click cmdSort
check node "3:1" text "Batch_Number"
check node "3:4" text "Shift_Operator"
check node "3:8" text "SP_LT201_Low_m"
check node "_Operator_Entries3" selected
click dbClose
wait gone
