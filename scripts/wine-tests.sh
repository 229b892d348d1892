#!/usr/bin/env bash
# The Windows tests under Wine. Checks both component DLLs, then in a fresh
# Wine prefix: runs the C++ test host (loads the DLL unregistered), registers
# the component per machine with regsvr32 and runs the VBScript scenarios with
# Wine's cscript, unregisters it, and registers it per user. The 32-bit build
# runs the same way where 32-bit Wine is installed. Ends with
# "wine: N passed, M failed" and exits non-zero when anything failed.
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

# The 64-bit loader: Debian's 'wine' script needs wine32 to pick it itself.
if [[ -x /usr/lib/wine/wine64 ]]; then
  wine64=/usr/lib/wine/wine64
else
  wine64=$(command -v wine64 || command -v wine)
fi
wine32=
if [[ -x /usr/lib/wine/wine && -e /usr/lib/i386-linux-gnu/wine/i386-windows/kernel32.dll ]]; then
  wine32=/usr/lib/wine/wine
fi

export WINEPREFIX=$root/build/wine-prefix WINEARCH=win64 WINEDEBUG=-all WINELOADER=$wine64
unset DISPLAY
echo "== fresh Wine prefix $WINEPREFIX"
wineserver -k >/dev/null 2>&1
rm -rf "$WINEPREFIX"
started=$(date +%s.%N)
"$wine64" wineboot -i >/dev/null 2>&1
wineserver -p  # keep one server for the whole run
trap 'wineserver -k >/dev/null 2>&1' EXIT
prefix_time=$(seconds_since "$started")
[[ -d $WINEPREFIX/drive_c/windows/system32 ]] && ok "a fresh Wine prefix is created (${prefix_time} s)" \
  || bad "a fresh Wine prefix is created"

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

run_host_tests() {  # arch loader bin
  local arch=$1 loader=$2 bin=$3 xml=$out_dir/host-$1.xml output summary tests failures errors
  rm -f "$xml"
  output=$(cd "$bin" && "$loader" vd_wine_host_tests.exe --gtest_brief=1 "--gtest_output=xml:$(winpath "$xml")" 2>&1)
  summary=$(grep -m1 -o '<testsuites [^>]*' "$xml" 2>/dev/null)
  if [[ -z $summary ]]; then
    bad "$arch: the C++ test host ran"
    echo "$output" | tail -n 20
    return
  fi
  tests=$(sed -n 's/.* tests="\([0-9]*\)".*/\1/p' <<<"$summary")
  failures=$(sed -n 's/.* failures="\([0-9]*\)".*/\1/p' <<<"$summary")
  errors=$(sed -n 's/.* errors="\([0-9]*\)".*/\1/p' <<<"$summary")
  passed=$((passed + tests - failures - errors))
  failed=$((failed + failures + errors))
  echo "ok - [$arch host] $((tests - failures - errors)) of $tests GoogleTest tests passed"
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

run_arch() {  # arch loader sysdir bin platform
  local arch=$1 loader=$2 sysdir=$3 bin=$root/$4 platform=$5
  local dll bridge started classes='HKLM\Software\Classes' user='HKCU\Software\Classes'
  local clsid='{18918549-798F-48FD-B33F-D049C5B6C3B0}' libid='{F165069A-298F-4B23-92D8-ED5889444ADC}'
  dll=$(winpath "$bin/VarDeskGUI.dll")
  bridge=$(winpath "$bin/VdTestBridge.dll")
  local regsvr32="C:\\windows\\$sysdir\\regsvr32.exe"

  echo "== $arch: C++ test host"
  run_host_tests "$arch" "$loader" "$bin"

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

wineserver -k >/dev/null 2>&1
trap - EXIT
warm=${cscript_times[*]:-}
echo "figures: fresh prefix ${prefix_time} s; regsvr32 ${regsvr32_time:-?} s; first cscript run ${cscript_first:-?} s;" \
  "later cscript runs ${warm// / s, } s; whole run $(seconds_since "$run_started") s"
echo "wine: $passed passed, $failed failed"
((failed == 0))
