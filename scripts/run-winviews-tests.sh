#!/usr/bin/env bash
# Runs the Win32 views' test program under Wine on a virtual X screen: a fresh
# Wine prefix under build/, Wine's X11 driver unmanaged (Managed=N, so that
# windows have frames and captions without a window manager), Xvfb on a free
# display, and a screenshot of the dialog (import -window root) into
# build/artifacts/winviews-dialog.png, taken by the program while its dialog is
# on the screen. Ends with "winviews: N passed, M failed"; exits non-zero when
# anything failed.
#
#   scripts/run-winviews-tests.sh [program.exe] [GoogleTest options...]
# The program defaults to build/win64/bin/vd_winviews_tests.exe (cmake --build
# --preset win64 --target vd_winviews_tests, with the views' folders added to
# the build).
set -uo pipefail
cd "$(dirname "$0")/.."
root=$PWD
program=${1:-build/win64/bin/vd_winviews_tests.exe}
(($#)) && shift

if [[ ! -f $program ]]; then
  echo "no test program at $program (build the win64 preset's vd_winviews_tests first)" >&2
  echo "winviews: 0 passed, 1 failed"
  exit 1
fi

source scripts/wine-display.sh

artifacts=$root/build/artifacts
mkdir -p "$artifacts"
screenshot=$artifacts/winviews-dialog.png
rm -f "$screenshot"

wine_display_start "$root/build/winviews-prefix" || {
  echo "winviews: 0 passed, 1 failed"
  exit 1
}
trap wine_display_stop EXIT

output=$(mktemp)
VD_WINVIEWS_SCREENSHOT="/usr/bin/import -display $DISPLAY -window root $screenshot" \
  "$WINE_LOADER" "$program" --gtest_brief=1 "$@" 2>/dev/null | tr -d '\r' | tee "$output" | grep -v '^winviews: '
summary=$(grep -E '^winviews: [0-9]+ passed, [0-9]+ failed$' "$output" | tail -n 1)
rm -f "$output"

if [[ -z $summary ]]; then
  echo "the test program ended without its summary"
  summary="winviews: 0 passed, 1 failed"
fi
if [[ -s $screenshot ]]; then
  echo "screenshot: $screenshot"
else
  echo "no screenshot was taken"
fi
echo "$summary"
[[ $summary =~ ', 0 failed'$ ]]
