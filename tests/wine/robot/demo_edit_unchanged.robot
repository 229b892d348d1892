# host: demo samples/plant.json
# expect: run: editing
# expect: modified: no
# An editing run: OK and Edit are hidden, Close stands alone. Looking at data
# sources changes nothing.
wait form frmDataBrowser
check caption "Data Selection"
check dbOK hidden
check dbEdit hidden
check dbClose visible
check dbClose caption "&Close"
click node "_Operator_Entries3"
check fraDs visible
check txtDsName text "Operator_Entries"
check txtSize text "8"
click node "_Plant_Constants4"
check txtDsName text "Plant_Constants"
check txtSize text "6"
click dbClose
wait gone
