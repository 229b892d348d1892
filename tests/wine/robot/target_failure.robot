# host: target
# expect: target: txtName.GotFocus
# expect: target: Form.Unload
# robot: robot: line 12: check txtName text "not this": FAILED (seen: "", after 2000 ms)
# robot: robot: line 13: click cmdNoSuchButton: FAILED (seen: no control named cmdNoSuchButton, after 2000 ms)
# robot: robot: stopped at line 13; 1 steps not run
# robot: robot: 2 steps passed, 2 failed
# A check that fails is counted and the script goes on; an action that fails
# stops it, and the robot closes the form so that its program ends.
wait form frmSample
timeout 2000
check txtName text "not this"
click cmdNoSuchButton
click cmdApply
