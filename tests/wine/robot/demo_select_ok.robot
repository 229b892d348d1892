# host: demo samples/plant.json --select 1 501 0 0
# expect: run: selection (context 1, type 501, rows 0, cols 0)
# expect: selected: Plant_Constants / Tank_T201_Volume_m3
# expect: modified: yes
# A selection run for dynamics under the numeric filter (the demo host over
# the plant sample): a data source and a text variable cannot be chosen, a
# numeric variable can, and OK hands it to the host.
wait form frmDataBrowser
check caption "Data Selection for Dynamics"
check sbSelectStatus text "Select: Numeric, any shape."
check dbOK disabled
check dbClose caption "&Close"
check dbEdit caption "&Edit >>"
click node "_Plant_Constants4"
check node "_Plant_Constants4" selected
check dbOK disabled
click node "1:4"  # Sample_Time, a text
check dbOK disabled
click node "4:1"  # Tank_T201_Volume_m3
check dbOK enabled
check txtDsvName text "Tank_T201_Volume_m3"
click dbOK
wait gone
