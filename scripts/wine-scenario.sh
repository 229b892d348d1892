#!/usr/bin/env bash
# Runs one Windows scenario in the project's Wine session (scripts/wine-run.sh
# finds or starts it); one CTest test each.
#   scripts/wine-scenario.sh BIN tests/wine/robot/NAME.robot
#   scripts/wine-scenario.sh BIN tests/wine/scripts/NAME.vbs
# A .robot file's first comment lines say how it runs:
#   # host: demo ARGUMENTS   vd_demo_host.exe with these arguments (a path of
#                            the source tree is handed over as Wine sees it);
#                            without any, over samples/plant.json
#   # host: vbs NAME         tests/wine/scripts/NAME.vbs under cscript
#   # host: target           the robot's own target: vd_winviews_tests.exe --robot-target
#   # expect: TEXT           a line the host must print (several: in this order);
#                            the target must print these lines and no others
#   # env: NAME=VALUE        an environment variable for the host
#   # robot: TEXT            a line the robot must print (in order); with these
#                            the robot's failing steps are what the script shows
# The robot (BIN/vd_robot.exe) plays the user from the script while the host
# runs; it must pass every step unless the script has "# robot:" lines. A VBScript host runs with the helpers of tests/wine/scripts/lib; it
# passes when it prints "END NAME" and no "FAIL - " line.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/.." && pwd)
bin=$(cd "${1:?usage: wine-scenario.sh BIN FILE}" && pwd)
file=$(realpath "${2:?usage: wine-scenario.sh BIN FILE}")
source "$here/wine-session.sh"
wine_session_use "${VD_WINE_SESSION:-$root/build/wine-run}" || exit 1

name=$(basename "$file")
name=${name%.*}
work=$root/build/wine-scenarios/$name
rm -rf "$work"
mkdir -p "$work"
failures=0
fail() { echo "FAIL - $*"; failures=$((failures + 1)); }
# in_order WHO FILE LINE...: the lines are in FILE, in this order.
in_order() {
  local who=$1 file=$2 next=3 line
  while IFS= read -r line && ((next <= $#)); do
    [[ $line == "${!next}" ]] && next=$((next + 1))
  done <"$file"
  ((next > $#)) || fail "$who did not print (in order): ${!next}"
}

host=() expects=() envs=() robot_lines=() vbs= exact=
if [[ $file == *.vbs ]]; then
  vbs=$name
else
  while IFS= read -r line; do
    line=${line%$'\r'}
    [[ $line == '#'* ]] || break
    case $line in
      '# host: demo') host=(samples/plant.json) ;;
      '# host: demo '*) read -ra host <<<"${line#'# host: demo '}" ;;
      '# host: vbs '*) vbs=${line#'# host: vbs '} ;;
      '# host: target') host=(vd_winviews_tests.exe --robot-target) exact=1 ;;
      '# robot: '*) robot_lines+=("${line#'# robot: '}") ;;
      '# expect: '*) expects+=("${line#'# expect: '}") ;;
      '# env: '*) envs+=("${line#'# env: '}") ;;
    esac
  done <"$file"
  [[ -n $vbs || ${#host[@]} -gt 0 ]] || { echo "$file: no '# host:' line"; exit 2; }
fi

if [[ -n $vbs ]]; then
  cat "$root"/tests/wine/scripts/lib/*.vbs "$root/tests/wine/scripts/$vbs.vbs" >"$work/host.vbs"
  command=("$WINE" "C:\\windows\\system32\\cscript.exe" //nologo "$(wine_winpath "$work/host.vbs")")
else
  [[ ${host[0]} == *.exe ]] || host=(vd_demo_host.exe "${host[@]}")
  command=("$WINE")
  for word in "${host[@]}"; do
    [[ -e $root/$word ]] && word=$(wine_winpath "$root/$word")
    command+=("$word")
  done
fi

# run_once: the robot (for a .robot file) and the host side by side; sets
# robot_status and host_status. The robot's own output goes to robot.err.
run_once() {
  local robot= host
  rm -f "$work/robot.log"
  if [[ $file == *.robot ]]; then
    # The robot runs in the host's environment too: Wine writes the user locale's
    # settings to the registry at each program's start, so both must agree.
    (cd "$bin" && exec env "${envs[@]}" timeout 300 "$WINE" vd_robot.exe --log "$(wine_winpath "$work/robot.log")" \
      "$(wine_winpath "$file")" </dev/null >"$work/robot.err" 2>&1) &
    robot=$!
  fi
  (cd "$bin" && exec env "${envs[@]}" timeout 300 "${command[@]}" </dev/null >"$work/host.out" 2>"$work/host.err") &
  host=$!
  host_stopped=
  if [[ -n $robot ]]; then
    wait "$robot"
    robot_status=$?
    # Once the robot has ended, the host ends too: it has 30 s, then it is stopped.
    timeout 30 tail --pid="$host" -f /dev/null || { kill "$host" 2>/dev/null; host_stopped=yes; }
  fi
  wait "$host"
  host_status=$?
}

run_once
# A robot that wrote no log never reached its first step: Wine did not start
# it. That says nothing of the component; say what Wine printed and run the
# scenario once more.
if [[ $file == *.robot && ! -e $work/robot.log ]]; then
  echo "note - the robot did not start (status $robot_status); Wine printed:"
  tr -d '\r' <"$work/robot.err" | grep -v '^fixme' | tail -n 20
  echo "note - the scenario runs once more"
  run_once
fi
[[ -n $host_stopped ]] && fail "the host did not end after the robot"
tr -d '\r' <"$work/host.out" >"$work/host.txt"
cat "$work/host.txt"

if [[ $file == *.robot ]]; then
  { tr -d '\r' <"$work/robot.log" >"$work/robot.txt"; } 2>/dev/null
  cat "$work/robot.txt" 2>/dev/null
  if ((${#robot_lines[@]})); then
    in_order "the robot" "$work/robot.txt" "${robot_lines[@]}"
  else
    ((robot_status == 0)) || fail "the robot's steps (exit $robot_status)"
  fi
fi
((host_status == 0)) || fail "the host ended with status $host_status"
((${#expects[@]})) && in_order "the host" "$work/host.txt" "${expects[@]}"
if [[ -n $exact ]] && ! diff <(printf '%s\n' "${expects[@]}") "$work/host.txt" >"$work/host.diff"; then
  cat "$work/host.diff"
  fail "the target printed other lines than the expected ones"
fi
if [[ -n $vbs ]]; then
  grep -qx "END $vbs" "$work/host.txt" || fail "the script did not run to its end"
  grep -q '^FAIL - ' "$work/host.txt" && failures=$((failures + 1))
fi
((failures == 0))
