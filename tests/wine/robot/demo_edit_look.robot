# host: demo samples/plant.json
# expect: run: editing
# expect: modified: yes
# The panel fill lets the scope option's click through, which writes the
# variable's scope back: a mere look at a variable marks the display modified.
wait form frmDataBrowser
click node "3:1"  # SP_LT201_High_m, public
check fraDsv visible
check optDsvPublic checked
click dbClose
wait gone
