# host: vbs dialog_runs
# The user in the runs of tests/wine/scripts/dialog_runs.vbs, in order.
# 1. A selection run: OK on Level.
wait form frmDataBrowser
check caption "Data Selection for Dynamics"
click node "1:1"
check dbOK enabled
check txtDsvName text "Level"
click dbOK
wait gone
# 2. A selection run closed after a variable was shown: no variable.
wait form frmDataBrowser
click node "1:2"
click dbClose
wait gone
# 3. An editing run: Pressure renamed in the variable panel.
wait form frmDataBrowser
check caption "Data Selection"
click node "1:2"
check txtDsvName text "Pressure"
type txtDsvName "Pressure_bar"
check node "1:2" text "Pressure_bar"
click dbClose
wait gone
# 4. A selection run for graphs: "More..." on Flow of the custom data source
#    raises EditCustomDsv; its variable nodes are built again; OK.
wait form frmDataBrowser
check caption "Data Selection for Graphs"
click dbEdit
check dbEdit caption "<< &Edit"
click node "2:1"
check cmdDSVcustom visible
check cmdDSVcustom caption "More..."
click cmdDSVcustom
check node "2:1" present
check node "_Scada2" selected
click dbOK
wait gone
# 5. A selection run for data mapping: the host marked Pressure_bar, which
#    comes selected with the mark taken off the names.
wait form frmDataBrowser
check caption "Data Selection for Data Mapping"
check node "1:2" selected
check node "_Tanks1" text "Tanks"
check node "1:2" text "Pressure_bar"
check txtDsvName text "Pressure_bar"
check dbOK enabled
click dbOK
wait gone
