#!/usr/bin/env bash
# Opens the data browser over the bundled plant sample display: in a window when
# there is a display, otherwise under Xvfb with a screenshot.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
if [[ -x scripts/demo.sh ]]; then
  exec bash scripts/demo.sh "$@"
fi
cmake --preset native >/dev/null
cmake --build --preset native -j "$(nproc)"
echo "The dialog is not built yet; the native libraries and tests are in build/native."
