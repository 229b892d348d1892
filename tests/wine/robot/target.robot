# host: target
# expect: target: txtName.GotFocus
# expect: target: txtName.Change:abc
# expect: target: txtName.KeyPress:120
# expect: target: txtName.Change:x
# expect: target: txtName.KeyPress:121
# expect: target: txtName.Change:xy
# expect: target: Form.KeyDown:114:0
# expect: target: txtName.LostFocus
# expect: target: cmdApply.GotFocus
# expect: target: cmdApply.LostFocus
# expect: target: cboType.GotFocus
# expect: target: cboType.DropDown
# expect: target: cboType.Click:Float
# expect: target: Form.KeyDown:13:0
# expect: target: cboType.KeyPress:13
# expect: target: Form.KeyDown:40:0
# expect: target: cboType.Click:Double
# expect: target: cboType.LostFocus
# expect: target: cboFind.GotFocus
# expect: target: cboFind.KeyPress:76
# expect: target: cboFind.Change:L
# expect: target: cboFind.KeyPress:101
# expect: target: cboFind.Change:Le
# expect: target: cboFind.LostFocus
# expect: target: chkExpandAll.GotFocus
# expect: target: chkExpandAll.Click:1
# expect: target: chkExpandAll.Click:0
# expect: target: chkExpandAll.LostFocus
# expect: target: optBinary.GotFocus
# expect: target: optBinary.Click
# expect: target: optBinary.LostFocus
# expect: target: treItems.GotFocus
# expect: target: treItems.NodeClick:1:2
# expect: target: treItems.Click
# expect: target: Form.KeyDown:40:0
# expect: target: treItems.NodeClick:1:3
# expect: target: treItems.Click
# expect: target: treItems.NodeClick:_Source1
# expect: target: treItems.Click
# expect: target: treItems.NodeClick:_Source1
# expect: target: treItems.Click
# expect: target: treItems.DblClick
# expect: target: treItems.NodeClick:1:1
# expect: target: treItems.Click
# expect: target: Form.KeyDown:114:1
# expect: target: Form.KeyDown:70:2
# expect: target: treItems.KeyPress:6
# expect: target: treItems.LostFocus
# expect: target: cmdApply.GotFocus
# expect: target: cmdApply.Click
# expect: target: answer:2
# expect: target: cmdApply.LostFocus
# expect: target: cmdClose.GotFocus
# expect: target: cmdClose.Click
# The robot's own test: every kind of step against the views' sample form,
# whose event log shows what the robot's input made of it. The log is the
# target's whole output: every event, once, in order, and none besides (the
# focus moving with each click, no Click for an option cleared or for a pick's
# drop-down, no key-down for Tab, one KeyPress and one Change per typed key,
# the form's key preview from a box, a list and the tree, a keyboard pick
# without DropDown, a double click that leaves a data source expanded).
timeout 10000
wait form frmSample
check caption "Sample Browser"
check cmdApply enabled
check txtName text ""
type txtName "abc"
check txtName text "abc"
type txtName "xy" keys
check txtName text "xy"
check txtName focused
key F3
key TAB
check cmdApply focused
pick cboType "Float"
check cboType text "Float"
check cboType items "Byte|Short|Long|Float|Double"
key DOWN
check cboType text "Double"
type cboFind "Le" keys
check cboFind text "Le"
click chkExpandAll
check chkExpandAll checked
click chkExpandAll
check chkExpandAll unchecked
click optBinary
check optBinary checked
check optASCII unchecked
click node "1:2"
check node "1:2" selected
check node "1:2" text "Var 1.2"
key DOWN
check node "1:3" selected
check node "_Source3" present
check node "_Source11" absent
dblclick node "_Source1"
click node "1:1"
key F3 shift
key F ctrl
click cmdApply
answer msgbox "Hello,\r\nrobot." title "Robot Target" button Cancel
check no msgbox
click cmdClose
wait gone
