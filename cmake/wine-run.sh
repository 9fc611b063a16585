#!/usr/bin/env bash
# Runs a Windows program under Wine with a private prefix beside the program (made once).
set -euo pipefail
bin_dir=$(cd "$(dirname "$1")" && pwd)
export WINEPREFIX="${HMI_WINEPREFIX:-$bin_dir/../wineprefix}"
export WINEDEBUG=-all WINEARCH=win64 WINEDLLOVERRIDES="mscoree,mshtml="
if [ ! -f "$WINEPREFIX/.hmi-ready" ]; then
  (
    flock 9
    if [ ! -f "$WINEPREFIX/.hmi-ready" ]; then
      wineboot -i >/dev/null 2>&1 || true
      wineserver -w || true
      touch "$WINEPREFIX/.hmi-ready"
    fi
  ) 9>"$bin_dir/../.wineprefix.lock"
fi
exec wine "$@"
