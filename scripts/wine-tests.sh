#!/usr/bin/env bash
# The Windows tests under Wine. Checks both component DLLs, then in a fresh
# Wine prefix on a virtual screen (Xvfb): runs the C++ test host (loads the DLL
# unregistered), runs the demo host's dialog with the window-message driver as
# the user (DLL beside it), registers the component per machine with regsvr32,
# runs the VBScript scenarios with Wine's cscript and the demo host's editing
# runs, lets the robot play the user in the real dialog (scripts/wine-robot.sh),
# unregisters it, and registers it per user. The 32-bit build runs the
# same way where 32-bit Wine is installed. Ends with "wine: N passed, M failed"
# and exits non-zero when anything failed.
set -uo pipefail
cd "$(dirname "$0")/.."
root=$PWD
run_started=$(date +%s.%N)

passed=0
failed=0
ok() { passed=$((passed + 1)); echo "ok - $*"; }
bad() { failed=$((failed + 1)); echo "FAIL - $*"; }
# Counts and echoes the "ok - " / "FAIL - " lines of a program's output.
tally() {
  local label=$1 line
  while IFS= read -r line; do
    line=${line%$'\r'}
    case $line in
      "ok - "*) passed=$((passed + 1)); echo "ok - [$label] ${line#ok - }" ;;
      "FAIL - "*) failed=$((failed + 1)); echo "FAIL - [$label] ${line#FAIL - }" ;;
    esac
  done
}
seconds_since() { awk -v a="$1" -v b="$(date +%s.%N)" 'BEGIN { printf "%.2f", b - a }'; }
winpath() { local p=${1//\//\\}; printf 'Z:%s' "$p"; }  # Wine maps Z: to /

out_dir=$root/build/wine-tests
mkdir -p "$out_dir"

echo "== DLL checks"
tally "check" < <(bash scripts/check-dll.sh build/win64/bin/VarDeskGUI.dll x86-64)
tally "check" < <(bash scripts/check-dll.sh build/win32/bin/VarDeskGUI.dll i386)

source scripts/wine-session.sh  # WINE: the 64-bit loader
source scripts/wine-robot.sh    # the robot as the user
wine64=$WINE
wine32=
if [[ -x /usr/lib/wine/wine && -e /usr/lib/i386-linux-gnu/wine/i386-windows/kernel32.dll ]]; then
  wine32=/usr/lib/wine/wine
fi

# The dialog runs need a screen: always a virtual one (Xvfb), never the
# user's. Wine picks its display driver when the prefix's desktop starts, so
# the screen is there before the first Wine program.
trap wine_session_end EXIT
unset DISPLAY
wine_session_screen own && ok "a virtual screen for the dialog runs ($DISPLAY)" || bad "a virtual screen for the dialog runs"
echo "== fresh Wine prefix $root/build/wine-prefix"
started=$(date +%s.%N)
wine_session_prefix "$root/build/wine-prefix" fresh
prefix_ok=$?
prefix_time=$(seconds_since "$started")
((prefix_ok == 0)) && ok "a fresh Wine prefix is created (${prefix_time} s)" || bad "a fresh Wine prefix is created"

cscript_first=
cscript_times=()
regsvr32_time=

# reg_value LOADER SYSDIR KEY [NAME]: the REG_SZ value (default value without NAME), empty when absent.
reg_value() {
  local loader=$1 sysdir=$2 key=$3 name=${4:-}
  local args=(/ve)
  [[ -n $name ]] && args=(/v "$name")
  "$loader" "C:\\windows\\$sysdir\\reg.exe" query "$key" "${args[@]}" 2>/dev/null | tr -d '\r' |
    sed -n 's/^.*REG_SZ[[:space:]]*//p' | head -n 1
}
reg_exists() { "$1" "C:\\windows\\$2\\reg.exe" query "$3" >/dev/null 2>&1; }

expect_value() {  # label loader sysdir key name expected
  local got
  got=$(reg_value "$2" "$3" "$4" "$5")
  if [[ $got == "$6" ]]; then ok "$1"; else bad "$1: got '$got', expected '$6'"; fi
}

# run_gtest_program ARCH LOADER BIN PROGRAM LABEL: a GoogleTest program of BIN, counted test by test.
run_gtest_program() {
  local arch=$1 loader=$2 bin=$3 program=$4 label=$5 xml=$out_dir/${4%.exe}-$1.xml output summary tests failures errors
  rm -f "$xml"
  output=$(cd "$bin" && "$loader" "$program" --gtest_brief=1 "--gtest_output=xml:$(winpath "$xml")" 2>&1)
  summary=$(grep -m1 -o '<testsuites [^>]*' "$xml" 2>/dev/null)
  if [[ -z $summary ]]; then
    bad "$arch: the $label ran"
    echo "$output" | tail -n 20
    return
  fi
  tests=$(sed -n 's/.* tests="\([0-9]*\)".*/\1/p' <<<"$summary")
  failures=$(sed -n 's/.* failures="\([0-9]*\)".*/\1/p' <<<"$summary")
  errors=$(sed -n 's/.* errors="\([0-9]*\)".*/\1/p' <<<"$summary")
  passed=$((passed + tests - failures - errors))
  failed=$((failed + failures + errors))
  echo "ok - [$arch $label] $((tests - failures - errors)) of $tests GoogleTest tests passed"
  ((failures + errors == 0)) || echo "$output" | tr -d '\r' | grep -E '^\[  FAILED  \]|Failure|Expected|Which is|actual' | head -n 60
}

run_scenario() {  # arch loader sysdir name
  local arch=$1 loader=$2 sysdir=$3 name=$4 file=$out_dir/$1-$4.vbs output started
  cat tests/wine/scripts/lib/check.vbs tests/wine/scripts/lib/display.vbs "tests/wine/scripts/$name.vbs" >"$file"
  started=$(date +%s.%N)
  output=$("$loader" "C:\\windows\\$sysdir\\cscript.exe" //nologo "$(winpath "$file")" 2>&1 | tr -d '\r')
  local took
  took=$(seconds_since "$started")
  [[ -z $cscript_first ]] && cscript_first=$took || cscript_times+=("$took")
  tally "$arch $name" <<<"$output"
  if grep -qx "END $name" <<<"$output"; then
    ok "$arch: scenario $name ran to its end (${took} s)"
  else
    # An uncaught script error still exits 0: the missing marker tells, the engine's message says why.
    bad "$arch: scenario $name ran to its end"
    echo "$output" | tail -n 5
    WINEDEBUG=-all,fixme+vbscript,err+vbscript "$loader" "C:\\windows\\$sysdir\\cscript.exe" //nologo \
      "$(winpath "$file")" 2>&1 | grep -E 'parser_error|OnScriptError|err:' | head -n 5
  fi
}

# demo_run ARCH LOADER BIN LABEL EXPECTED HOST-ARGS... -- DRIVER-ARGS...
# Runs the demo host over the plant sample while the driver acts as the user
# with window messages; EXPECTED is the host's whole output, lines joined with "|".
demo_run() {
  local arch=$1 loader=$2 bin=$3 label=$4 expected=$5
  shift 5
  local host_args=() driver_args=() out=$out_dir/demo-$1-$4.txt host driven got
  while (($#)) && [[ $1 != -- ]]; do host_args+=("$1"); shift; done
  (($#)) && shift
  driver_args=("$@")
  (cd "$bin" && timeout 120 "$loader" vd_demo_host.exe "$(winpath "$root/samples/plant.json")" "${host_args[@]}" \
    2>/dev/null | tr -d '\r' >"$out") &
  host=$!
  driven=$(cd "$bin" && VD_DRIVER_TIMEOUT_MS=60000 timeout 120 "$loader" vd_dialog_driver.exe "${driver_args[@]}" \
    2>/dev/null | tr -d '\r')
  if grep -q FAILED <<<"$driven" || [[ -z $driven ]]; then
    bad "$arch demo: $label: the driver acted as the user"
    echo "$driven" | tail -n 3
    (cd "$bin" && VD_DRIVER_TIMEOUT_MS=5000 "$loader" vd_dialog_driver.exe "${driver_args[0]}" close >/dev/null 2>&1)
  fi
  wait "$host"
  got=$(paste -sd '|' "$out")
  if [[ $got == "$expected" ]]; then
    ok "$arch demo: $label"
  else
    bad "$arch demo: $label: got '$got', expected '$expected'"
  fi
}

run_demos() {  # arch loader bin registered(yes|no)
  local arch=$1 loader=$2 bin=$3 origin dynamics="Data Selection for Dynamics"
  if [[ $4 == yes ]]; then
    origin="component: registered class VarDeskGUI.VarDeskUI"
    demo_run "$arch" "$loader" "$bin" "an editing run closed without edits is not modified" \
      "$origin|run: editing|modified: no" -- "Data Selection" wait enabled dbClose yes click dbClose gone
    demo_run "$arch" "$loader" "$bin" "the close box ends an editing run" \
      "$origin|run: editing|modified: no" -- "Data Selection" wait close gone
    return
  fi
  origin="component: $(winpath "$bin/VarDeskGUI.dll") (not registered)"
  # The variable panel's fill writes the shown variable's scope back: a run that showed one is modified.
  demo_run "$arch" "$loader" "$bin" "OK after picking a variable returns that variable" \
    "$origin|run: selection (context 1, type 501, rows 0, cols 0)|selected: Operator_Entries / SP_LT201_High_m|modified: yes" \
    --select 1 501 0 0 -- "$dynamics" wait node 3:1 enabled dbOK yes click dbOK gone
  demo_run "$arch" "$loader" "$bin" "Close returns none, also after picking a variable" \
    "$origin|run: selection (context 1, type 501, rows 0, cols 0)|selected: none|modified: yes" \
    --select 1 501 0 0 -- "$dynamics" wait node 3:1 click dbClose gone
  demo_run "$arch" "$loader" "$bin" "a text variable leaves OK disabled under the numeric filter" \
    "$origin|run: selection (context 2, type 501, rows 0, cols 0)|selected: Operator_Entries / SP_LT201_Low_m|modified: yes" \
    --select 2 501 0 0 -- "Data Selection for Input Objects" wait node 3:1 enabled dbOK yes node 1:4 enabled dbOK no \
    node 3:2 enabled dbOK yes click dbOK gone
}

run_arch() {  # arch loader sysdir bin platform
  local arch=$1 loader=$2 sysdir=$3 bin=$root/$4 platform=$5
  local dll bridge started classes='HKLM\Software\Classes' user='HKCU\Software\Classes'
  local clsid='{18918549-798F-48FD-B33F-D049C5B6C3B0}' libid='{F165069A-298F-4B23-92D8-ED5889444ADC}'
  dll=$(winpath "$bin/VarDeskGUI.dll")
  bridge=$(winpath "$bin/VdTestBridge.dll")
  local regsvr32="C:\\windows\\$sysdir\\regsvr32.exe"

  echo "== $arch: C++ test host"
  run_gtest_program "$arch" "$loader" "$bin" vd_wine_host_tests.exe "C++ test host"

  echo "== $arch: Win32 views on the virtual screen"
  mkdir -p "$root/build/artifacts"
  VD_WINVIEWS_SCREENSHOT="/usr/bin/import -display $DISPLAY -window root $root/build/artifacts/winviews-dialog-$arch.png" \
    run_gtest_program "$arch" "$loader" "$bin" vd_winviews_tests.exe "views tests"

  echo "== $arch: demo host, DLL beside it, the user played by window messages"
  run_demos "$arch" "$loader" "$bin" no

  echo "== $arch: registration per machine"
  started=$(date +%s.%N)
  "$loader" "$regsvr32" /s "$dll"
  local rc=$?
  local took
  took=$(seconds_since "$started")
  [[ -z $regsvr32_time ]] && regsvr32_time=$took
  ((rc == 0)) && ok "$arch: regsvr32 registers the component (${took} s)" || bad "$arch: regsvr32 registers the component (exit $rc)"
  "$loader" "$regsvr32" /s "$bridge" && ok "$arch: regsvr32 registers the test bridge" || bad "$arch: regsvr32 registers the test bridge"
  expect_value "$arch: ProgID VarDeskGUI.VarDeskUI names its class" "$loader" "$sysdir" \
    "$classes\\VarDeskGUI.VarDeskUI\\CLSID" "" "$clsid"
  expect_value "$arch: ProgID VarDeskGUI.SelectionHandler names its class" "$loader" "$sysdir" \
    "$classes\\VarDeskGUI.SelectionHandler\\CLSID" "" '{91A182CF-7842-43C8-8C07-BB10D5C73CA2}'
  expect_value "$arch: the class is served by the DLL" "$loader" "$sysdir" "$classes\\CLSID\\$clsid\\InprocServer32" "" "$dll"
  expect_value "$arch: the class lives in the apartment" "$loader" "$sysdir" \
    "$classes\\CLSID\\$clsid\\InprocServer32" ThreadingModel Apartment
  expect_value "$arch: the type library is registered" "$loader" "$sysdir" "$classes\\TypeLib\\$libid\\1.0\\0\\$platform" "" "$dll"
  expect_value "$arch: the dual interface uses the Automation marshaler" "$loader" "$sysdir" \
    "$classes\\Interface\\{BA6CC585-BE35-4C72-B4BF-399271E8A167}\\ProxyStubClsid32" "" '{00020424-0000-0000-C000-000000000046}'

  echo "== $arch: VBScript scenarios (cscript)"
  for name in registered adapters events; do
    run_scenario "$arch" "$loader" "$sysdir" "$name"
  done

  echo "== $arch: demo host, registered component"
  run_demos "$arch" "$loader" "$bin" yes

  echo "== $arch: the robot as the user"
  robot_self_test "$arch" "$loader" "$bin"
  robot_demos "$arch" "$loader" "$bin"
  for name in dialog_runs dialog_panels; do
    robot_scenario "$arch" "$loader" "$sysdir" "$bin" "$name"
  done

  echo "== $arch: unregistration"
  "$loader" "$regsvr32" /s /u "$dll" && ok "$arch: regsvr32 /u succeeds" || bad "$arch: regsvr32 /u succeeds"
  "$loader" "$regsvr32" /s /u "$bridge"
  reg_exists "$loader" "$sysdir" "$classes\\VarDeskGUI.VarDeskUI" && bad "$arch: regsvr32 /u removes the ProgID" \
    || ok "$arch: regsvr32 /u removes the ProgID"
  reg_exists "$loader" "$sysdir" "$classes\\CLSID\\$clsid" && bad "$arch: regsvr32 /u removes the class" \
    || ok "$arch: regsvr32 /u removes the class"
  reg_exists "$loader" "$sysdir" "$classes\\TypeLib\\$libid" && bad "$arch: regsvr32 /u removes the type library" \
    || ok "$arch: regsvr32 /u removes the type library"
  run_scenario "$arch" "$loader" "$sysdir" unregistered

  echo "== $arch: registration per user (regsvr32 /n /i:user)"
  "$loader" "$regsvr32" /s /n /i:user "$dll" && ok "$arch: per-user registration succeeds" \
    || bad "$arch: per-user registration succeeds"
  expect_value "$arch: per user, the ProgID names its class" "$loader" "$sysdir" "$user\\VarDeskGUI.VarDeskUI\\CLSID" "" "$clsid"
  expect_value "$arch: per user, the class is served by the DLL" "$loader" "$sysdir" \
    "$user\\CLSID\\$clsid\\InprocServer32" "" "$dll"
  expect_value "$arch: per user, the class lives in the apartment" "$loader" "$sysdir" \
    "$user\\CLSID\\$clsid\\InprocServer32" ThreadingModel Apartment
  expect_value "$arch: per user, the type library is registered" "$loader" "$sysdir" \
    "$user\\TypeLib\\$libid\\1.0\\0\\$platform" "" "$dll"
  reg_exists "$loader" "$sysdir" "$classes\\VarDeskGUI.VarDeskUI" && bad "$arch: per user, nothing is written per machine" \
    || ok "$arch: per user, nothing is written per machine"
  "$loader" "$regsvr32" /s /u /n /i:user "$dll" && ok "$arch: per-user unregistration succeeds" \
    || bad "$arch: per-user unregistration succeeds"
  reg_exists "$loader" "$sysdir" "$user\\VarDeskGUI.VarDeskUI" && bad "$arch: per-user unregistration removes the ProgID" \
    || ok "$arch: per-user unregistration removes the ProgID"
  reg_exists "$loader" "$sysdir" "$user\\CLSID\\$clsid" && bad "$arch: per-user unregistration removes the class" \
    || ok "$arch: per-user unregistration removes the class"
}

run_arch 64-bit "$wine64" system32 build/win64/bin win64
if [[ -n $wine32 ]]; then
  run_arch 32-bit "$wine32" syswow64 build/win32/bin win32
else
  echo "32-bit: built and checked, not run (no 32-bit Wine)"
fi

wine_session_end
trap - EXIT
robot_screenshots
warm=${cscript_times[*]:-}
echo "figures: fresh prefix ${prefix_time} s; regsvr32 ${regsvr32_time:-?} s; first cscript run ${cscript_first:-?} s;" \
  "later cscript runs ${warm// / s, } s; whole run $(seconds_since "$run_started") s"
echo "wine: $passed passed, $failed failed"
((failed == 0))
