#!/usr/bin/env bash
# Every test: installs what is missing, builds the native, sanitizer and both
# Windows presets, runs the native suites, then the Windows tests under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

jobs=$(nproc)
step() { printf '\n=== %s\n' "$*"; }

step "native: build and test"
cmake --preset native >/dev/null
cmake --build --preset native -j "$jobs"
ctest --preset native

step "native-asan: build and test (address + undefined)"
cmake --preset native-asan >/dev/null
cmake --build --preset native-asan -j "$jobs"
ctest --preset native-asan

for preset in win64 win32; do
  step "$preset: cross build"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
done

if [[ -x scripts/wine-tests.sh ]]; then
  step "Windows tests under Wine"
  bash scripts/wine-tests.sh
fi
