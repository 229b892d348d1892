# host: demo samples/plant.json
# expect: run: editing
# expect: modified: yes
# Deleting: what is in use is refused with its message and stays; a variable
# that is not in use goes and the one before it is selected; a data source
# that goes leaves the first node selected.
wait form frmDataBrowser
click node "1:1"  # LT101_Intake_Level, in use once
click cmdDelete
answer msgbox "The data variable \"LT101_Intake_Level\" is in use." title "Data Selection" button OK
check node "1:1" text "LT101_Intake_Level"
click node "1:3"  # PT101_Intake_Pressure
click cmdDelete
check no msgbox
check node "1:2" selected
check node "1:3" text "Sample_Time"
check node "1:4" absent
click node "_trend/raw_water_intake.dat1"
click cmdDelete
answer msgbox "The data source \"trend/raw_water_intake.dat\" is in use." title "Data Selection" button OK
check node "_trend/raw_water_intake.dat1" present
click node "_Scratch9"
click cmdDelete
check no msgbox
check node "_Scratch9" absent
check node "_trend/raw_water_intake.dat1" selected
click dbClose
wait gone
