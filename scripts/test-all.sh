#!/usr/bin/env bash
# Builds all three presets and runs every test: native, ASan+UBSan, and the Windows build under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
jobs=$(nproc)
status=0
for preset in native asan mingw; do
  echo "=== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j"$jobs"
  ctest --preset "$preset" -j"$jobs" || status=1
done
exit $status
