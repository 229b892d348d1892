# host: vbs dialog_panels
# The user in tests/wine/scripts/dialog_panels.vbs: an editing run that
# changes a variable's type, shape, dimensions and scope, a text variable,
# a constant's value and a data source's name, and meets the refusals.
wait form frmDataBrowser
check caption "Data Selection"
# Level: Double, scalar, private
click node "1:1"
check fraDsv visible
check txtDsvName text "Level"
check cboDsvType text "Double"
check cboDsvType items "Double|Float|Long|ULong|Short|UShort|Byte|UByte|Text"
check optDsvScalar checked
check optDsvPrivate checked
check txtDsvCols disabled
pick cboDsvType "Long"
check cboDsvType text "Long"
check optDsvScalar checked
click optDsvVector
check optDsvVector checked
check lblDsvCols caption "Length"
check txtDsvCols enabled
check txtDsvCols text "2"
check txtDsvRows disabled
type txtDsvCols "5"
check txtDsvCols text "5"
click optDsvMatrix
check optDsvMatrix checked
check lblDsvCols caption "Cols"
check txtDsvRows enabled
check txtDsvRows text "2"
check txtDsvCols text "5"
type txtDsvRows "3"
type txtDsvCols "abc"
answer msgbox "Invalid nummeric entry, 'abc'.  Entry must be a positive whole number." title "Data Selection" button OK
check txtDsvCols text "5"
type txtDsvRows "x1"
answer msgbox "Invalid nummeric entry, 'x1'.  Entry must be a positive whole number." title "Data Selection" button OK
check txtDsvRows text "3"
click optDsvPublic
check optDsvPublic checked
check optDsvPrivate unchecked
# Flow becomes a text of 255 characters
click node "1:2"
pick cboDsvType "Text"
check lblDsvCols caption "Length"
check txtDsvCols text "255"
check optDsvScalar disabled
check optDsvMatrix disabled
# HighLimit of the constant data source: its value
click node "2:1"
check cboDsvType items "Float"
check txtDsvValue visible
check txtDsvValue text "2.5"
type txtDsvValue "7.25"
key TAB
check no msgbox
type txtDsvValue "high"
key TAB
answer msgbox "Invalid numeric value: 'high'" title "Data Selection" button OK
check txtDsvValue text "7.25"
# Tanks renamed from its panel
click node "_Tanks1"
check fraDs visible
check txtDsName text "Tanks"
type txtDsName "Vessels"
check node "_Tanks1" text "Vessels"
click dbClose
wait gone
