#!/usr/bin/env bash
# Opens the data browser over a sample display (default samples/plant.json) for
# an editing run, through the component registered in a Wine prefix under
# build/demo-session (made once, then reused), with the demo host as the host.
#   - With a $DISPLAY that answers: the dialog opens in a window; the run ends
#     when you close it.
#   - Without: on a virtual screen (Xvfb). Once the robot sees the dialog, a
#     screenshot goes to build/artifacts/demo-<display>.png, and the robot
#     clicks Close, so the run ends by itself.
# The host prints where the component came from and "modified: yes/no".
#   scripts/demo.sh [DISPLAY.json]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
display_file=$(realpath "${1:-samples/plant.json}")
name=$(basename "$display_file" .json)

echo "== build (win64 preset)"
cmake --preset win64 >/dev/null
cmake --build --preset win64 -j2 --target VarDeskGUI vd_demo_host vd_robot | tail -n 1
bin=$root/build/win64/bin

source scripts/wine-session.sh
session=$root/build/demo-session
wine_session_start "$session" user-screen
trap 'wine_session_stop "$session"' EXIT
own_screen=$(<"$session/xvfb.pid")
echo "== Wine session build/demo-session on $DISPLAY${own_screen:+ (Xvfb)}"

# Per machine: Wine 8's COM finds classes only there (HKCU\Software\Classes is
# not part of its HKEY_CLASSES_ROOT); on Windows a per-user registration
# (regsvr32 /n /i:user) serves a host just as well.
echo "== register the component (regsvr32)"
"$WINE" regsvr32 /s "$(wine_winpath "$bin/VarDeskGUI.dll")"

echo "== editing run over $display_file"
host=("$WINE" vd_demo_host.exe "$(wine_winpath "$display_file")")
if [[ -z $own_screen ]]; then
  (cd "$bin" && "${host[@]}" 2>/dev/null | tr -d '\r')
  exit 0
fi

artifacts=$root/build/artifacts
mkdir -p "$artifacts"
screenshot=$artifacts/demo-$name.png
rm -f "$screenshot"
# The robot plays the user twice: it waits for the dialog (then the screen is
# taken), and it clicks Close.
robot() {
  printf '%s\n' "$@" >"$session/demo.robot"
  (cd "$bin" && timeout 300 "$WINE" vd_robot.exe "$(wine_winpath "$session/demo.robot")" >/dev/null 2>&1)
}
(cd "$bin" && timeout 300 "${host[@]}" 2>/dev/null | tr -d '\r') &
demo=$!
status=0
if robot 'wait form frmDataBrowser'; then
  import -display "$DISPLAY" -window root "$screenshot"
  robot 'wait form frmDataBrowser' 'click dbClose' 'wait gone' || status=1
else
  echo "the dialog did not appear"
  status=1
fi
wait "$demo" || status=1
if [[ -s $screenshot ]]; then echo "screenshot: $screenshot"; else echo "no screenshot was taken"; status=1; fi
exit "$status"
