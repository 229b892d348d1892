# host: demo samples/plant.json
# expect: run: editing
# expect: modified: no
# The close box ends an editing run as Close does.
wait form frmDataBrowser
check dbClose enabled
close
wait gone
