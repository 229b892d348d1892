#!/usr/bin/env bash
# Runs a Windows program in the project's Wine session: the one CTest started
# (VD_WINE_SESSION names its folder), else a session of its own under
# build/wine-run that ends with the program. CTest's emulator for the Windows
# presets.   scripts/wine-run.sh PROGRAM [ARGUMENTS...]
# Prints the program's output once it has ended (the prefix's helper
# processes may keep a pipe open long after); its error output only when it
# failed. Exits with the program's status.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source "$here/wine-session.sh"
wine_session_use "${VD_WINE_SESSION:-$here/../build/wine-run}" || exit 1
out=$(mktemp -d "${TMPDIR:-/tmp}/vd-wine-run.XXXXXX")
"$WINE" "$@" </dev/null >"$out/stdout" 2>"$out/stderr"
status=$?
tr -d '\r' <"$out/stdout"
((status == 0)) || tr -d '\r' <"$out/stderr" | grep -v '^\(fixme\|err:winediag\)' | tail -n 40 >&2
rm -rf "$out"
exit "$status"
