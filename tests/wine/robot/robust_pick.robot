# host: vbs robust_pick
# expect: END robust_pick
# The user in tests/wine/scripts/robust_pick.vbs picks the entry the type list
# already shows; each pick is a Click, so the type picked is stored.
wait form frmDataBrowser
click node "1:1"
check cboDsvType items "Float"
check cboDsvType text "Float"
pick cboDsvType "Float"
check cboDsvType text "Float"
click node "2:1"
check cboDsvType items "Float|Text"
check cboDsvType text "Text"
check txtDsvCols text ""
pick cboDsvType "Text"
check txtDsvCols text "255"
click node "3:1"
check cboDsvType text "Long"
pick cboDsvType "Long"
check cboDsvType text "Long"
click dbClose
wait gone
