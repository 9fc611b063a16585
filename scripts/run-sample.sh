#!/usr/bin/env bash
# Builds the Linux library and hmitool, then lists the media of the sample printer.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh build
cmake --preset native -DHMI_TESTS=OFF -DHMI_BENCH=OFF >/dev/null
cmake --build --preset native -j"$(nproc)" --target hmitool
build/native/bin/hmitool media samples/sample-printer.reg
