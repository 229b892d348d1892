#!/usr/bin/env bash
# Opens the data browser over a sample display (default samples/plant.json) for
# an editing run, through the component registered in a Wine prefix under
# build/ (made once, then reused), with the demo host as the host.
#   - With a $DISPLAY that answers: the dialog opens in a window; the run ends
#     when you close it.
#   - Without: on a virtual screen (Xvfb). Once the dialog is shown and
#     painted, a screenshot goes to build/artifacts/demo-<display>.png and the
#     dialog is closed with a click on its Close button, so the run ends by itself.
# The host prints where the component came from and "modified: yes/no".
#   scripts/demo.sh [DISPLAY.json]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
display_file=$(realpath "${1:-samples/plant.json}")
name=$(basename "$display_file" .json)

echo "== build (win64 preset)"
cmake --preset win64 >/dev/null
cmake --build --preset win64 -j2 --target VarDeskGUI vd_demo_host vd_dialog_driver | tail -n 1
bin=$root/build/win64/bin

source scripts/wine-session.sh
trap wine_session_end EXIT
wine_session_screen
[[ -n $WINE_SESSION_OWN_SCREEN ]] && echo "== virtual screen $DISPLAY (Xvfb)"
reuse=new
[[ -d $root/build/demo-prefix/drive_c ]] && reuse=reused
echo "== Wine prefix build/demo-prefix ($reuse)"
wine_session_prefix "$root/build/demo-prefix"

# Per machine: Wine 8's COM finds classes only there (HKCU\Software\Classes is
# not part of its HKEY_CLASSES_ROOT); on Windows a per-user registration
# (regsvr32 /n /i:user) serves a host just as well.
echo "== register the component (regsvr32)"
"$WINE" "C:\\windows\\system32\\regsvr32.exe" /s "$(wine_winpath "$bin/VarDeskGUI.dll")"

echo "== editing run over $display_file"
host_command=("$WINE" vd_demo_host.exe "$(wine_winpath "$display_file")")
if [[ -z $WINE_SESSION_OWN_SCREEN ]]; then
  (cd "$bin" && "${host_command[@]}" 2>/dev/null | tr -d '\r')
  exit 0
fi

artifacts=$root/build/artifacts
mkdir -p "$artifacts"
screenshot=$artifacts/demo-$name.png
rm -f "$screenshot"
output=$(mktemp)
(cd "$bin" && timeout 300 "${host_command[@]}" 2>/dev/null | tr -d '\r' >"$output") &
host=$!
driver() { (cd "$bin" && timeout 300 "$WINE" vd_dialog_driver.exe "Data Selection" "$@" 2>/dev/null | tr -d '\r'); }
status=0
waited=$(driver wait || true)
if [[ $waited == *": ok" ]]; then
  import -display "$DISPLAY" -window root "$screenshot"
  driver click dbClose gone >/dev/null || status=1
else
  echo "the dialog did not appear: $waited"
  kill "$host" 2>/dev/null || true
  status=1
fi
wait "$host" || status=1
cat "$output"
rm -f "$output"
if [[ -s $screenshot ]]; then
  echo "screenshot: $screenshot"
else
  echo "no screenshot was taken"
  status=1
fi
exit "$status"
