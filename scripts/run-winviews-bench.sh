#!/usr/bin/env bash
# Times the tree view mirror under Wine on a virtual X screen (a fresh prefix
# under build/, as the tests run): a bare tree view with redraw off against the
# same tree built through the forms and mirrored by the view.
#
#   scripts/run-winviews-bench.sh [nodes ...]   (default 100000)
# The program is build/win64/bin/vd_bench_tree_mirror.exe.
set -uo pipefail
cd "$(dirname "$0")/.."
program=build/win64/bin/vd_bench_tree_mirror.exe
[[ -f $program ]] || { echo "no timing program at $program (build the win64 preset's vd_bench_tree_mirror first)" >&2; exit 1; }
source scripts/wine-session.sh
wine_session_start "$PWD/build/winviews-bench-session" fresh || exit 1
trap 'wine_session_stop "$PWD/build/winviews-bench-session"' EXIT
"$WINE" "$program" "$@" 2>/dev/null | tr -d '\r'
