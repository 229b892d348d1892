#!/usr/bin/env bash
# Runs one scenario (a robot script with the header line "# session: own") in
# a Wine session of its own: its own prefix, wineserver and virtual screen in
# the folder VD_WINE_SESSION (kept between runs, so only the first one makes
# the prefix), with the component and the test bridge registered there and
# the scenario's "# env:" lines set for every program the session starts.
# Nothing else runs in it, so settings that Wine writes into the prefix at a
# program's start (the user locale) stay the scenario's own.
#   tests/wine/own_session.sh BIN tests/wine/robot/NAME.robot
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
bin=$(cd "${1:?usage: own_session.sh BIN FILE}" && pwd)
file=${2:?usage: own_session.sh BIN FILE}
session=${VD_WINE_SESSION:?the session folder (VD_WINE_SESSION) is not set}

while IFS= read -r line; do
  line=${line%$'\r'}
  [[ $line == '#'* ]] || break
  [[ $line == '# env: '* ]] && export "${line#'# env: '}"
done <"$file"

source "$root/scripts/wine-session.sh"
wine_session_start "$session" || exit 1
trap 'wine_session_stop "$session"' EXIT
for dll in VarDeskGUI VdTestBridge; do
  (cd "$bin" && "$WINE" regsvr32 /s "$dll.dll" </dev/null >/dev/null 2>&1) || {
    echo "FAIL - $dll.dll does not register in the scenario's own session"
    exit 1
  }
done
bash "$root/scripts/wine-scenario.sh" "$bin" "$file"
