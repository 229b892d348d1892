#!/usr/bin/env bash
# Every test: installs what is missing, then for each preset builds and runs
# CTest: native, native-asan (address + undefined sanitizers) and win64 (the
# Windows tests under Wine, scripts/wine-run.sh). The 32-bit DLL is built and
# checked (scripts/check-dll.sh), not run: 32-bit Wine is optional. Every
# libFuzzer target (preset fuzz, clang) replays its kept inputs and fuzzes for
# VD_FUZZ_SECONDS (8) seconds (scripts/fuzz-smoke.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

jobs=$(nproc)
step() { printf '\n=== %s\n' "$*"; }

for preset in native native-asan win64; do
  step "$preset: build and test"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  ctest --preset "$preset"
done

step "fuzz: kept inputs, then ${VD_FUZZ_SECONDS:-8} s of fuzzing per target"
VD_FUZZ_SECONDS=${VD_FUZZ_SECONDS:-8} bash scripts/fuzz-smoke.sh

step "win32: build and check the DLL (not run)"
cmake --preset win32 >/dev/null
cmake --build --preset win32 -j "$jobs"
bash scripts/check-dll.sh build/win64/bin/VarDeskGUI.dll x86-64
bash scripts/check-dll.sh build/win32/bin/VarDeskGUI.dll i386
