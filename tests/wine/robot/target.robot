# host: target
# expect: target: change txtValue "abc"
# expect: target: change txtValue "x"
# expect: target: change txtValue "xy"
# expect: target: key 9
# expect: target: change txtValue "box"
# expect: target: box answered 1
# expect: target: dropdown cboKind
# expect: target: pick cboKind 2 "Text"
# expect: target: click chkFlag checked
# expect: target: select node 1:2
# expect: target: select node 1:1
# expect: target: double-click node 1:1
# expect: target: key 114 shift
# expect: target: key 70 ctrl
# expect: target: click cmdHello
# expect: target: hello answered 2
# expect: target: click cmdHide
# The robot's own test: every kind of step against the small target program.
timeout 10000
wait form frmTarget
check caption "Robot Target"
check cmdHello enabled
check txtValue text "start"
type txtValue "abc"
check txtValue text "abc"
type txtValue "xy" keys
check txtValue text "xy"
check txtValue focused
key TAB
check txtOther focused
type txtValue "box"
answer msgbox "Box: 'box'" title "Robot Target" button OK
pick cboKind "Text"
check cboKind text "Text"
check cboKind items "Double|Float|Text"
click chkFlag
check chkFlag checked
click node "1:2"
check node "1:2" selected
check node "1:2" text "Two"
check node "_Alpha1" present
check node "_Beta2" absent
dblclick node "1:1"
key F3 shift
key F ctrl
click cmdHello
answer msgbox "Hello,\r\nrobot." title "Robot Target" button Cancel
check no msgbox
click cmdHide
wait gone
