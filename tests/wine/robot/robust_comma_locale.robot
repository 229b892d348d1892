# host: vbs robust_comma_locale
# env: LC_ALL=de_DE.UTF-8
# session: own
# expect: END robust_comma_locale
# The user in tests/wine/scripts/robust_comma_locale.vbs: in a locale whose
# decimal separator is ",", a look at each constant variable shows its value
# with "," and changes nothing. Wine keeps the user locale in the prefix and
# rewrites it at every program's start from that program's LC_ALL, so the
# scenario runs in a Wine session of its own (tests/wine/own_session.sh).
wait form frmDataBrowser
check caption "Data Selection"
click node "1:1"
check txtDsvValue visible
check txtDsvValue text "1,5"
click node "1:2"
check txtDsvValue text "-0,25"
click node "1:3"
check txtDsvValue text "1234,5"
click node "1:4"
click node "1:5"
click node "1:6"
click node "1:7"
check txtDsvValue text "1E+15"
click node "1:8"
click node "1:9"
click node "1:10"
click dbClose
wait gone
