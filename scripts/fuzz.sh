#!/usr/bin/env bash
# Runs every fuzz target for SECONDS (default 60) each, JOBS (default 1) at a time, ASan+UBSan.
# The working corpus and the findings stay under the build directory (build/fuzz/runs/<target>/);
# a finding worth keeping goes into fuzz/regressions/<target>/, which the tests replay.
# Usage: scripts/fuzz.sh [SECONDS] [TARGET...]   (HMI_FUZZ_BUILD: another build directory, JOBS)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(xml_text store_file printer_data media_document file_readers)
build=${HMI_FUZZ_BUILD:-build/fuzz}
jobs=${JOBS:-1}

if [ "$build" = build/fuzz ]; then
  cmake --preset fuzz >/dev/null
  cmake --build --preset fuzz -j"$(nproc)" >/dev/null
fi

run() {
  local target=$1 dir=$build/runs/$1
  mkdir -p "$dir/corpus" "$dir/findings"
  cp -n fuzz/corpus/"$target"/* "$dir/corpus/"
  [ -d fuzz/regressions/"$target" ] && cp -n fuzz/regressions/"$target"/* "$dir/corpus/" 2>/dev/null
  "$build/bin/fuzz_$target" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=20 -print_final_stats=1 \
    -dict=fuzz/dict/"$target".dict -artifact_prefix="$dir/findings/" "$dir/corpus" >"$dir/log" 2>&1 || true
}

for target in "${targets[@]}"; do
  run "$target" &
  while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n; done
done
wait

printf '%-16s %12s %10s %8s %9s\n' target executions exec/s edges findings
for target in "${targets[@]}"; do
  log=$build/runs/$target/log
  execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log" | tail -1)
  edges=$(grep -o 'cov: [0-9]*' "$log" | tail -1 | cut -d' ' -f2)
  findings=$(find "$build/runs/$target/findings" -type f | wc -l)
  printf '%-16s %12s %10s %8s %9s\n' "$target" "${execs:-?}" "${rate:-?}" "${edges:-?}" "$findings"
done
