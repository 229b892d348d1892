#!/usr/bin/env bash
# A screenshot of the data browser while the rescan of item offsets runs, its
# progress bar and percentage showing: build/artifacts/rescan-progress.png.
# The display is made here (build/artifacts/feeders-large.json): one SCADA
# data source of VARIABLES (default 4000) status colour variables, so that the
# rescan lasts long enough to be seen. The demo host runs it on a virtual
# screen; one robot selects the data source and clicks Rescan, a second one
# waits until the progress bar is visible, then the screen is taken.
#   scripts/rescan-shot.sh [VARIABLES]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
count=${1:-4000}

cmake --preset win64 >/dev/null
cmake --build --preset win64 -j2 --target VarDeskGUI vd_demo_host vd_robot | tail -n 1
bin=$root/build/win64/bin
artifacts=$root/build/artifacts
mkdir -p "$artifacts"

display=$artifacts/feeders-large.json
{
  printf '{\n  "dataSources": [ { "name": "Feeders.custom", "kind": "custom", "className": "TelvaneDV.DataSource",\n'
  printf '    "params": [ { "type": "text", "value": "Telvane DV DataSource" }, { "type": "number", "value": 1 }, { "type": "number", "value": 500 } ],\n'
  printf '    "variables": [\n'
  for ((i = 1; i <= count; i++)); do
    printf '      { "name": "FDR%05d_Breaker_Status", "type": "Long", "params": [ { "type": "empty" }, ' "$i"
    printf '{ "type": "text", "value": "\\\\\\\\APL\\\\1\\\\P\\\\FDR%05d\\\\11:OV" }, { "type": "number", "value": 1 }, ' "$i"
    printf '{ "type": "text", "value": "1,1,1" }, { "type": "text", "value": "" } ] }%s\n' "$( ((i < count)) && echo ,)"
  done
  printf '    ] } ],\n  "scada": { "currentApplication": 1,\n'
  printf '    "applications": [ { "number": 1, "name": "RAWWATER", "directory": "apl/RAWWATER" } ],\n    "objects": [\n'
  for ((i = 1; i <= count; i++)); do
    printf '      {"application": 1, "name": "FDR%05d", "kind": "P", "index": 11, "attributes": {"OV": 1}, "offsets": "%d,%d,%d"}%s\n' \
      "$i" "$i" $((i + 1)) $((i + 2)) "$( ((i < count)) && echo ,)"
  done
  printf '    ] }\n}\n'
} >"$display"

source scripts/wine-session.sh
session=$root/build/shot-session
wine_session_start "$session"
trap 'wine_session_stop "$session"' EXIT
"$WINE" regsvr32 /s "$(wine_winpath "$bin/VarDeskGUI.dll")"

robot() {  # robot NAME STEP...: the robot plays the steps, its log in build/artifacts/NAME.log
  printf '%s\n' "${@:2}" >"$session/$1.robot"
  (cd "$bin" && timeout 300 "$WINE" vd_robot.exe --log "$(wine_winpath "$artifacts/$1.log")" \
    "$(wine_winpath "$session/$1.robot")" </dev/null >/dev/null 2>&1)
}
shot=$artifacts/rescan-progress.png
rm -f "$shot"
(cd "$bin" && timeout 300 "$WINE" vd_demo_host.exe "$(wine_winpath "$display")" </dev/null 2>/dev/null | tr -d '\r') &
demo=$!
status=0
robot rescan-click 'wait form frmDataBrowser' 'click node "_Feeders.custom1"' 'click Command1' \
  'check ProgressBar1 hidden' 'click dbClose' 'wait gone' &
clicker=$!
if robot rescan-watch 'wait form frmDataBrowser' 'timeout 120000' 'check ProgressBar1 visible'; then
  import -display "$DISPLAY" -window root "$shot"
else
  echo "the progress bar was not seen"
  status=1
fi
wait "$clicker" || { echo "the rescan run failed: build/artifacts/rescan-click.log"; status=1; }
wait "$demo" || status=1
if [[ -s $shot ]]; then echo "screenshot: ${shot#"$root"/}"; else status=1; fi
exit "$status"
