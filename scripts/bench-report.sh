#!/usr/bin/env bash
# Runs the benchmarks of the native build and prints where the library stands against its speed and
# memory goals, each ratio measured within one run of one program. Usage: bench-report.sh [BUILD_DIR]
# (default build/native, configured with the native preset: RelWithDebInfo, benchmarks on).
set -euo pipefail
bin=${1:-build/native}/bin
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
# The media queries' ratios are the medians of three repetitions: their times are short enough for a
# neighbour's load to move one run.
for bench in bench_tree_build bench_media_queries bench_scaling bench_media_export; do
    [ -x "$bin/$bench" ] || { echo "bench-report: $bin/$bench is missing (cmake --build --preset native)" >&2; exit 2; }
    repeat=()
    [ "$bench" = bench_media_queries ] && repeat=(--benchmark_repetitions=3 --benchmark_report_aggregates_only=true)
    "$bin/$bench" "${repeat[@]}" --benchmark_format=json --benchmark_out="$out/$bench.json" --benchmark_out_format=json >/dev/null
done
python3 - "$out" <<'PY'
import json, sys, os
runs = {}
for name in os.listdir(sys.argv[1]):
    for b in json.load(open(os.path.join(sys.argv[1], name)))["benchmarks"]:
        if b.get("aggregate_name", "median") == "median":
            runs[b.get("run_name", b["name"])] = b
def get(name, field): return runs[name][field]
rows = []
def row(goal, figure, limit):
    rows.append((goal, figure, limit, "yes" if figure <= limit else "NO"))
sample = "SampleMediaMemory/iterations:1"
row("cached sample media: bytes per record byte", get(sample, "tree_per_record_byte"), 2.0)
row("cached sample media: bytes per document byte", get(sample, "tree_per_document_byte"), 1.0)
for arg in ("1", "4"):
    row(f"synthetic tree x{arg}: bytes per record byte", get(f"BuildTree/{arg}", "tree_per_record_byte"), 2.0)
    row(f"synthetic tree x{arg}: bytes per document byte", get(f"BuildTree/{arg}", "tree_per_document_byte"), 1.0)
for medium in ("PhotoGlossyPro", "PlainPaper"):
    row(f"first query of {medium} / bare libxml2 parse", get(f"BM_FirstFilterMediaOverBareParse/{medium}", "ratio"), 2.0)
row("cached eleven-call chain / memcpy of its records", get("BM_CachedChain", "real_time") / get("BM_CopyChainRecords", "real_time"), 2.0)
def steps(prefix, args, field, label):
    for a, b in zip(args, args[1:]):
        row(f"{label} {a} -> {b}: cost per unit, step", get(f"{prefix}/{b}", field) / get(f"{prefix}/{a}", field), 1.3)
sizes = ["10240", "102400", "1048576", "5242880"]
steps("FirstQueryPerDocumentByte", sizes, "ns_per_byte", "document bytes")
for name in sizes:  # the floor's own growth, for comparison (not a goal of the library)
    b = runs[f"BareParsePerDocumentByte/{name}"]
    b["ns_per_byte"] = b["real_time"] * 1e6 / b["document_bytes"]
for a, b in zip(sizes, sizes[1:]):
    f = lambda n: runs[f"BareParsePerDocumentByte/{n}"]["ns_per_byte"]
    rows.append((f"  (bare libxml2 parse, same step {a} -> {b})", f(b) / f(a), 0, "-"))
steps("OpenPerMedium", ["10", "100", "1000", "10000"], "ns_per_medium", "database media")
alloc = "AllocationAfterFreeingATree/{}/iterations:300/manual_time"
row("64 KB allocation after freeing a 1 MB medium / before", get(alloc.format(1), "real_time") / get(alloc.format(0), "real_time"), 1.1)
rows.append(("  (64 KB allocation after freeing a 1 MB medium, microseconds)", get(alloc.format(1), "real_time"), 0, "-"))
row("libcups open and check of the sample's PPD / library answering the sample", get("BM_LibcupsOpensSamplePpd", "real_time") / get("BM_LibraryAnswersSample", "real_time"), 2.0)
row("export of 1,000 media as PPD and IPP / every question asked once", get("BM_ExportPpdAndIpp/1000/iterations:3", "real_time") / get("BM_AskEveryQuestion/1000/iterations:3", "real_time"), 1.5)
width = max(len(r[0]) for r in rows)
print(f"{'goal':<{width}}  {'figure':>8}  {'limit':>6}  met")
for goal, figure, limit, met in rows:
    print(f"{goal:<{width}}  {figure:8.2f}  {limit:6.2f}  {met}" if limit else f"{goal:<{width}}  {figure:8.2f}")
PY
