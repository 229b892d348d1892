# A check that fails is counted and the script goes on; an action that fails
# stops it, and the robot closes the target so that it ends.
timeout 2000
wait form frmTarget
check txtValue text "not this"
click cmdNoSuchButton
click cmdHello
