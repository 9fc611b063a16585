#!/usr/bin/env bash
# Builds every preset and runs every test: native, ASan+UBSan, ThreadSanitizer, and the Windows build under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
jobs=$(nproc)
status=0
for preset in native asan tsan mingw; do
  echo "=== $preset"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j"$jobs"
  ctest --preset "$preset" -j"$jobs" || status=1
done
exit $status
