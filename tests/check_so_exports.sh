#!/usr/bin/env bash
# A Linux shared library exports exactly the listed functions: no C++ runtime instantiations leak out.
# Usage: check_so_exports.sh LIBRARY NAME...; with one NAME ending in .def, the names of that .def but DllMain.
set -euo pipefail
library=$1
shift
if [ $# -eq 1 ] && [[ $1 == *.def ]]; then
  want=$(sed -n '/^EXPORTS/,$p' "$1" | tail -n +2 | awk 'NF && $1 != "DllMain" {print $1}' | sort)
else
  want=$(printf '%s\n' "$@" | sort)
fi
have=$(nm -D --defined-only "$library" | awk '{print $NF}' | sort)
if [ "$want" != "$have" ]; then
  echo "exports of $library differ (< wanted, > exported):"; diff <(echo "$want") <(echo "$have") || true; exit 1
fi
echo "$(basename "$library"): $(echo "$have" | wc -l) exports"
echo "1 passed, 0 failed"
