# Sourced by scripts/wine-tests.sh: the robot (vd_robot.exe) as the user.
#   robot_self_test ARCH LOADER BIN          the robot against a small target program
#   robot_demos ARCH LOADER BIN              the demo host's runs, the robot in the dialog
#   robot_scenario ARCH LOADER SYSDIR BIN NAME   a VBScript host (tests/wine/scripts/NAME.vbs)
#                                            that starts the robot on tests/wine/robot/NAME.robot
#   robot_screenshots                        the robot's screenshots as PNG files
# The robot's scripts live in tests/wine/robot; every step it runs counts as
# one test. Screenshots go to build/artifacts. Uses ok, bad, winpath and the
# counters of wine-tests.sh, and needs its virtual screen.

robot_artifacts=$root/build/artifacts
robot_logs=$root/build/wine-tests/robot

# robot_tally LABEL: counts the step lines of a robot's output (on stdin).
robot_tally() {
  local label=$1 line summary=
  while IFS= read -r line; do
    line=${line%$'\r'}
    case $line in
      "robot: line "*": ok") line=${line#robot: } && ok "[$label] ${line%: ok}" ;;
      "robot: line "*": FAILED ("*) bad "[$label] ${line#robot: }" ;;
      "robot: script "*) bad "[$label] ${line#robot: }" ;;
      "robot: stopped at "*) echo "   ${line#robot: }" ;;
      "robot: "*" steps passed, "*" failed") summary=$line ;;
    esac
  done
  [[ -n $summary ]] || bad "[$label] the robot ended with its summary"
}

# robot_start LOADER BIN NAME: the robot on tests/wine/robot/NAME.robot, in the
# background (robot_pid), its log in $robot_logs/NAME.log.
robot_start() {
  local loader=$1 bin=$2 name=$3
  mkdir -p "$robot_logs" "$robot_artifacts"
  rm -f "$robot_logs/$name.log"
  (cd "$bin" && timeout 300 "$loader" vd_robot.exe --log "$(winpath "$robot_logs/$name.log")" \
    --artifacts "$(winpath "$robot_artifacts")" "$(winpath "$root/tests/wine/robot/$name.robot")" >/dev/null 2>&1) &
  robot_pid=$!
}

# robot_log_complete NAME: waits (at most a minute) for the robot's log to end with its summary.
robot_log_complete() {
  local log=$robot_logs/$1.log waited
  for waited in $(seq 1 600); do
    grep -q 'steps passed, ' "$log" 2>/dev/null && return 0
    sleep 0.1
  done
  return 1
}

robot_self_test() {  # arch loader bin
  local arch=$1 loader=$2 bin=$3 out=$robot_logs/target-$1.txt rc log
  mkdir -p "$robot_logs"
  robot_start "$loader" "$bin" target
  (cd "$bin" && timeout 120 "$loader" vd_robot_target.exe 2>/dev/null | tr -d '\r' >"$out")
  wait "$robot_pid"
  rc=$?
  robot_tally "$arch robot" <"$robot_logs/target.log"
  ((rc == 0)) && ok "$arch robot: exit code 0 when every step passed" || bad "$arch robot: exit code $rc, expected 0"
  if diff <(sed -n 's/^target: //p' "$out") tests/wine/robot/target.expected >/dev/null; then
    ok "$arch robot: the target received exactly the input its script stands for"
  else
    bad "$arch robot: the target received other input than its script stands for"
    diff <(sed -n 's/^target: //p' "$out") tests/wine/robot/target.expected | head -n 20
  fi

  # A failing check goes on, a failing action stops and closes the target.
  robot_start "$loader" "$bin" target_failure
  (cd "$bin" && timeout 120 "$loader" vd_robot_target.exe 2>/dev/null | tr -d '\r' >"$out")
  wait "$robot_pid"
  rc=$?
  log=$(tr -d '\r' <"$robot_logs/target_failure.log")
  ((rc == 1)) && ok "$arch robot: exit code 1 when a step failed" || bad "$arch robot: exit code $rc, expected 1"
  local line
  for line in 'robot: line 5: check txtValue text "not this": FAILED (seen: "start", after 2000 ms)' \
    'robot: line 6: click cmdNoSuchButton: FAILED (seen: no control named cmdNoSuchButton, after 2000 ms)' \
    'robot: stopped at line 6; 1 steps not run' 'robot: 2 steps passed, 2 failed'; do
    grep -qxF "$line" <<<"$log" && ok "$arch robot reports: $line" || bad "$arch robot reports: $line"
  done
  grep -qx 'target: close' "$out" && ok "$arch robot: after a failed action the target is closed" \
    || bad "$arch robot: after a failed action the target is closed"
}

# robot_demo ARCH LOADER BIN NAME EXPECTED HOST-ARGS...: the demo host over the
# plant sample while the robot plays the user from tests/wine/robot/NAME.robot.
# EXPECTED is the host's output after its first line, lines joined with "|".
robot_demo() {
  local arch=$1 loader=$2 bin=$3 name=$4 expected=$5 out got
  shift 5
  out=$robot_logs/$name-$arch.txt
  robot_start "$loader" "$bin" "$name"
  (cd "$bin" && timeout 300 "$loader" vd_demo_host.exe "$(winpath "$root/samples/plant.json")" "$@" 2>/dev/null |
    tr -d '\r' >"$out")
  wait "$robot_pid"
  robot_tally "$arch $name" <"$robot_logs/$name.log"
  got=$(tail -n +2 "$out" | paste -sd '|')
  if [[ $got == "$expected" ]]; then
    ok "$arch $name: the demo host printed $expected"
  else
    bad "$arch $name: the demo host printed '$got', expected '$expected'"
  fi
}

robot_demos() {  # arch loader bin
  local arch=$1 loader=$2 bin=$3
  local select="run: selection (context 1, type 501, rows 0, cols 0)"
  # A look at a variable writes its scope back, so a selection run that showed one is modified.
  robot_demo "$arch" "$loader" "$bin" demo_select_ok \
    "$select|selected: Plant_Constants / Tank_T201_Volume_m3|modified: yes" --select 1 501 0 0
  robot_demo "$arch" "$loader" "$bin" demo_select_close "$select|selected: none|modified: yes" --select 1 501 0 0
  robot_demo "$arch" "$loader" "$bin" demo_edit_unchanged "run: editing|modified: no"
  robot_demo "$arch" "$loader" "$bin" demo_edit_look "run: editing|modified: yes"
}

# robot_scenario ARCH LOADER SYSDIR BIN NAME: the VBScript host NAME.vbs (with
# the helpers of scripts/lib, robot.vbs among them), which starts the robot on NAME.robot.
robot_scenario() {
  local arch=$1 loader=$2 sysdir=$3 bin=$4 name=$5 file=$out_dir/$1-$5.vbs output
  mkdir -p "$robot_logs" "$robot_artifacts"
  rm -f "$robot_logs/$name.log"
  cat tests/wine/scripts/lib/check.vbs tests/wine/scripts/lib/display.vbs tests/wine/scripts/lib/robot.vbs \
    "tests/wine/scripts/$name.vbs" >"$file"
  output=$(VD_ROBOT=$(winpath "$bin/vd_robot.exe") VD_ROBOT_SCRIPTS=$(winpath "$root/tests/wine/robot") \
    VD_ROBOT_LOGS=$(winpath "$robot_logs") VD_ROBOT_ARTIFACTS=$(winpath "$robot_artifacts") \
    timeout 300 "$loader" "C:\\windows\\$sysdir\\cscript.exe" //nologo "$(winpath "$file")" 2>&1 | tr -d '\r')
  tally "$arch $name" <<<"$output"
  if grep -qx "END $name" <<<"$output"; then
    ok "$arch: scenario $name ran to its end"
  else
    bad "$arch: scenario $name ran to its end"
    echo "$output" | tail -n 5
  fi
  if robot_log_complete "$name"; then
    robot_tally "$arch $name robot" <"$robot_logs/$name.log"
  else
    bad "$arch $name: the robot ended with its summary"
    tail -n 5 "$robot_logs/$name.log" 2>/dev/null
  fi
}

robot_screenshots() {
  local bitmap png
  for bitmap in "$robot_artifacts"/*.bmp; do
    [[ -e $bitmap ]] || continue
    png=${bitmap%.bmp}.png
    if convert "$bitmap" "$png" 2>/dev/null; then
      rm -f "$bitmap"
      echo "screenshot: $png"
    else
      bad "the screenshot $bitmap converts to PNG"
    fi
  done
}
