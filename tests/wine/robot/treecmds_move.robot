# host: demo samples/plant.json
# expect: run: editing
# expect: modified: yes
# Moving a variable and a data source: the moved item stays selected at its
# new place; where the toolkit refuses, nothing changes and nothing is said.
wait form frmDataBrowser
click node "1:1"
click cmdMoveUp
check no msgbox
check node "1:1" selected
check node "1:1" text "LT101_Intake_Level"
click cmdMoveDown
check node "1:2" selected
check node "1:2" text "LT101_Intake_Level"
check node "1:1" text "FT101_Intake_Flow"
check cmdMoveUp enabled
click node "_archive/daily_totals.bin2"
click cmdMoveUp
check node "_archive/daily_totals.bin1" selected
check node "_trend/raw_water_intake.dat2" present
click cmdMoveUp
check no msgbox
check node "_archive/daily_totals.bin1" selected
click dbClose
wait gone
