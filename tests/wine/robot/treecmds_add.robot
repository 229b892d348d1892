# host: demo samples/plant.json
# expect: run: editing
# expect: modified: yes
# Adding a data source of the kind chosen in the list, then a variable to it:
# each new item comes last and is selected with its panel shown.
wait form frmDataBrowser
click node "_Scratch9"
pick cboDsAdd "Memory"
click cmdAddDs
check node "_memory1010" selected
check txtDsName text "memory10"
click cmdAddDsv
check node "10:1" present
check node "10:1" selected
check fraDsv visible
click dbClose
wait gone
