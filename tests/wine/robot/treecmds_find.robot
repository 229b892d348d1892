# host: demo samples/plant.json
# expect: run: editing
# expect: modified: yes
# Ctrl+F in the tree opens the find dialog; Enter searches, Escape cancels;
# F3 and Shift+F3 repeat the search from a text box, without the dialog.
wait form frmDataBrowser
click node "1:1"
key F ctrl
wait form frmFindDialog
check caption "Find source/variable"
check OKButton disabled
check optDown checked
check cboFindWhat focused
# The access keys of the options and the name
key S alt
check chkMatchCase checked
key S alt
check chkMatchCase unchecked
key U alt
check optUp checked
key D alt
check optDown checked
check optUp unchecked
key A alt
check cboFindWhat focused
type cboFindWhat "spare"
check OKButton enabled
key ENTER
wait gone
wait form frmDataBrowser
check node "6:13" selected
check txtDsvName text "LT101_Intake_Level"
click txtDsvName
key F3
check node "6:14" selected
key F3 shift
check node "6:13" selected
click node "6:14"
click txtDsvName
key F3
answer msgbox "Cannot find \"spare\"" title "Data Selection" button OK
check node "6:14" selected
key F ctrl
wait form frmFindDialog
check cboFindWhat text "spare"
type cboFindWhat "nothing like it"
key ESCAPE
wait gone
wait form frmDataBrowser
check no msgbox
check node "6:14" selected
click dbClose
wait gone
