#!/usr/bin/env bash
# Times opening the data browser over the generated large display (2,000 data
# sources x 50 variables) through the component, beside a bare tree view
# filled with the same texts, under Wine on a virtual screen; prints both and
# their ratio. The session's prefix (build/bench-session) is made once and reused.
#   scripts/wine-bench.sh [ROUNDS]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
cmake --preset win64 >/dev/null
cmake --build --preset win64 -j2 --target VarDeskGUI vd_dialog_bench | tail -n 1
source scripts/wine-session.sh
wine_session_start "$root/build/bench-session"
trap 'wine_session_stop "$root/build/bench-session"' EXIT
cd build/win64/bin
"$WINE" vd_dialog_bench.exe "${1:-5}" 2>/dev/null | tr -d '\r'
