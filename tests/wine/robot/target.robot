# host: target
# expect: target: txtName.Change:abc
# expect: target: txtName.KeyPress:120
# expect: target: txtName.Change:x
# expect: target: txtName.KeyPress:121
# expect: target: txtName.Change:xy
# expect: target: cmdApply.GotFocus
# expect: target: cboType.DropDown
# expect: target: cboType.Click:Float
# expect: target: chkExpandAll.Click:1
# expect: target: optBinary.Click
# expect: target: treItems.NodeClick:1:2
# expect: target: treItems.NodeClick:1:1
# expect: target: treItems.DblClick
# expect: target: Form.KeyDown:114:1
# expect: target: Form.KeyDown:70:2
# expect: target: cmdApply.Click
# expect: target: answer:2
# expect: target: cmdClose.Click
# The robot's own test: every kind of step against the views' sample form,
# whose event log shows what the robot's input made of it.
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
key TAB
check cmdApply focused
pick cboType "Float"
check cboType text "Float"
check cboType items "Byte|Short|Long|Float|Double"
click chkExpandAll
check chkExpandAll checked
click optBinary
check optASCII unchecked
click node "1:2"
check node "1:2" selected
check node "1:2" text "Var 1.2"
check node "_Source3" present
check node "_Source11" absent
dblclick node "1:1"
key F3 shift
key F ctrl
click cmdApply
answer msgbox "Hello,\r\nrobot." title "Robot Target" button Cancel
check no msgbox
click cmdClose
wait gone
