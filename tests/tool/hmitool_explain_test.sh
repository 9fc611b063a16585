#!/usr/bin/env bash
# hmitool explain and graph against the sample printer: the path of one request, the cascade as a
# digraph, and their refusals. Linux only, as hmitool_test.sh.
set -u
tool=$1 samples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. "$(dirname "$0")/../check.sh"

store=$samples/sample-printer.reg
rejected=MetallicFilmNoThreeposition

# Every level's "all" fallback (samples/README.md says which medium reaches which), and a value with
# no branch: the transparency film has no borderless ON node and no borderless "all" node.
check "explain: colour mode served by all" 0 '^  printcolormode monochrome +\[all' \
    "$tool" explain "$store" TransparencyFilm monochrome
check "explain: borderless served by all" 0 '^    borderlessprint ON +\[all' "$tool" explain "$store" PlainPaper color ON
check "explain: print purpose served by all" 0 '^      print_purpose proof +\[all' \
    "$tool" explain "$store" BusinessCardMatte color ON proof
check "explain: quality served by the variant's all" 0 '^        printquality_index 4 +\[all' \
    "$tool" explain "$store" EnvelopePlain color OFF proof index 4
check "explain: quality with its own node" 0 '^          - source: own$' \
    "$tool" explain "$store" EnvelopePlain color OFF proof rgb 4
check "explain: a value without a branch" 0 '^    borderlessprint ON \(no branch\)$' \
    "$tool" explain "$store" TransparencyFilm color ON
check "explain: what the caller gets there" 0 '^      - result: HMIFilterBorderless returns null' \
    "$tool" explain "$store" TransparencyFilm color ON
check "explain: no level below a missing branch" 1 '^0$' \
    bash -c '"$0" explain "$1" TransparencyFilm color ON | grep -c print_purpose' "$tool" "$store"
check "explain: a quality without a record" 0 '^          - result: HMIGetPrintQualityInfo returns FALSE' \
    "$tool" explain "$store" EnvelopePlain color OFF proof rgb 1
check "explain: then the purpose's record" 0 '^        - availablecartridge: auto, bkcolor, bk' \
    "$tool" explain "$store" EnvelopePlain color OFF proof rgb 1
check "explain: levels not given take the default" 0 '^      print_purpose proof \(default\)$' \
    "$tool" explain "$store" TransparencyFilm monochrome
check "explain: a value given is not marked default" 0 '^  printcolormode color  \[all' \
    "$tool" explain "$store" TransparencyFilm color
check "explain: the purpose's record without a quality" 0 '^        - availablecartridge: auto, color' \
    "$tool" explain "$store" TransparencyFilm
check "explain: only the quality's record with one" 0 '^1 0$' bash -c \
    'out=$("$0" explain "$1" TransparencyFilm color OFF proof cmyk_4DLUT 3); echo $(grep -c "output_icc: TQ5900_TransparencyFilm_AL_BD_PR_C4D.icc" <<<"$out") $(grep -c availablecartridge <<<"$out")' \
    "$tool" "$store"
check "explain: numbers ask what keywords ask" 0 '' bash -c \
    'diff <("$0" explain "$1" TransparencyFilm monochrome OFF proof cmyk_4DLUT 3) <("$0" explain "$1" TransparencyFilm 1 0 0x1 1 0x2)' \
    "$tool" "$store"
check "explain: hexadecimal in either case, decimal with leading zeros" 0 '' bash -c \
    'diff <("$0" explain "$1" PlainPaper 1 1 2) <("$0" explain "$1" PlainPaper 0X1 01 0x02)' "$tool" "$store"
for bad in 0x -1 1e3 " 1"; do
    check "explain: '$bad' is no number" 64 "^hmitool: COLORMODE '$bad': neither a keyword" \
        "$tool" explain "$store" PlainPaper "$bad"
done
check "explain: a number outside the enumeration goes to the library" 0 '^  printcolormode #7 \(no branch\)$' \
    "$tool" explain "$store" PhotoGlossyPro 7
check "explain: from files as from the store" 0 '' bash -c \
    'diff <("$0" explain "$1" PlainPaper monochrome ON cad cmyk_1DLUT 5) <("$0" explain --from-files "$2" PlainPaper monochrome ON cad cmyk_1DLUT 5)' \
    "$tool" "$store" "$samples/sample-printer"

check "explain: unknown keyword" 64 "^hmitool: BORDERLESS 'on': neither a keyword \(all, OFF, ON\) nor a number$" \
    "$tool" explain "$store" TransparencyFilm color on
check "explain: number beyond 32 bits" 64 "^hmitool: QUALITY '0x100000000': number out of 32-bit range$" \
    "$tool" explain "$store" TransparencyFilm color OFF proof rgb 0x100000000
check "explain: unknown variant" 64 "^hmitool: VARIANT '4': not a variant" \
    "$tool" explain "$store" TransparencyFilm color OFF proof 4 3
check "explain: variant without quality" 64 "^hmitool: VARIANT 'rgb': needs QUALITY" \
    "$tool" explain "$store" TransparencyFilm color OFF proof rgb
check "explain: rejected medium" 1 "$rejected: rejected: .*missing attribute" "$tool" explain "$store" "$rejected"
check "explain: unknown medium" 2 "Nope: no such medium" "$tool" explain "$store" Nope

"$tool" --json explain "$store" TransparencyFilm monochrome OFF proof cmyk_4DLUT 3 >"$work/explain.json"
check "explain --json parses" 0 '' python3 -m json.tool "$work/explain.json"
check "explain --json: the path" 0 \
    "^\[\('printcolormode', 'monochrome', '1', 'all', 'color'\), \('borderlessprint', 'OFF', '0', 'own', 'OFF'\), \('print_purpose', 'proof', '1', 'own', 'proof'\), \('printquality_cmyk_4DLUT', '3', '2', 'all', '2'\)\]$" \
    python3 -c 'import json, sys
n, path = json.load(open(sys.argv[1])), []
while n.get("children"):
    n = n["children"][0]
    path.append((n["kind"], n["name"], n["value"], n["source"], n["available"]["default"]))
print(path)' "$work/explain.json"
"$tool" --json explain "$store" TransparencyFilm monochrome >"$work/defaults.json"
check "explain --json: marks" 0 '^\[True, None, True, False\]$' python3 -c 'import json, sys
mode = json.load(open(sys.argv[1]))["children"][0]
print([mode["all"], mode.get("default"), mode["children"][0]["default"], mode["children"][0]["all"]])' \
    "$work/defaults.json"

# graph: a node served by several values drawn once, with an edge per value.
check "graph is valid DOT" 0 '' bash -c '"$0" graph "$1" PlainPaper | dot -Tsvg >/dev/null' "$tool" "$store"
check "graph: all edge dashed and labelled" 0 '^  "n0" -> "n1" \[label="monochrome\\nvia all", style="dashed"\];$' \
    "$tool" graph "$store" TransparencyFilm
check "graph: default edge bold" 0 '^  "n1" -> "n2" \[label="OFF \(default\)", style="solid,bold"\];$' \
    "$tool" graph "$store" TransparencyFilm
check "graph: levels as ranks" 0 '^  \{ rank=same; "n4"; "n5"; \}$' "$tool" graph "$store" TransparencyFilm
"$tool" --json graph "$store" PlainPaper >"$work/graph.json"
check "graph --json: shared all nodes" 0 '^\[2, 2, 2, 2\]$' python3 -c 'import json, sys
d = json.load(open(sys.argv[1]))
alls = [n["id"] for n in d["nodes"] if n["kind"] == "print_purpose" and n["name"] == "all"]
print([sum(e["to"] == a for e in d["edges"]) for a in alls])' "$work/graph.json"
check "graph --json: each node reached once" 0 '^True$' python3 -c 'import json, sys
d = json.load(open(sys.argv[1]))
print(sorted(e["to"] for e in d["edges"] if e["value"] == "cad") == sorted(n["id"] for n in d["nodes"] if n["kind"] == "print_purpose" and n["name"] == "all"))' \
    "$work/graph.json"
check "graph --json: below a shared node once" 0 '^True$' python3 -c 'import json, sys
edges = [tuple(e.values()) for e in json.load(open(sys.argv[1]))["edges"]]
print(len(edges) == len(set(edges)))' "$work/graph.json"

check "graph: from files as from the store" 0 '' bash -c \
    'diff <("$0" graph "$1" PlainPaper) <("$0" graph --from-files "$2" PlainPaper)' "$tool" "$store" "$samples/sample-printer"

cp -r "$samples/sample-printer" "$work/copy"
sed -i 's/<printcolormode type="all">/<printcolormode type="color">/' "$work/copy/media/TransparencyFilm.xml"
check "graph: a value without a branch in grey" 0 '^  "n0" -> "n6" \[label="monochrome", style="solid", color=grey' \
    "$tool" graph --from-files "$work/copy" TransparencyFilm
check "graph: the no-branch node" 0 '^  "n6" \[label="printcolormode\\nno branch", color=grey' \
    "$tool" graph --from-files "$work/copy" TransparencyFilm

cp "$work/copy/media/TransparencyFilm.xml" "$work/copy/media/Film \"A\" \\B.xml"
check "graph: quotes and backslashes in a label" 0 '>Film &quot;A&quot; \\B</text>' \
    bash -c '"$0" graph --from-files "$1" "Film \"A\" \\B" | dot -Tsvg' "$tool" "$work/copy"

check "graph --svg writes SVG" 0 '^<svg ' bash -c '"$0" graph --svg "$2" "$1" TransparencyFilm && grep "^<svg" "$2"' \
    "$tool" "$store" "$work/film.svg"
check "graph --svg without dot" 2 "^hmitool: --svg needs Graphviz's dot: install it \(apt-get install graphviz; on Windows https://graphviz.org/download/\)$" \
    env PATH=/nonexistent "$tool" graph --svg "$work/x.svg" "$store" TransparencyFilm
check "graph --svg when dot fails" 2 'dot failed with status 1$' \
    "$tool" graph --svg "$work/missing/x.svg" "$store" TransparencyFilm
check "graph: rejected medium" 1 "$rejected: rejected: " "$tool" graph "$store" "$rejected"
check "graph: unknown medium" 2 "Nope: no such medium" "$tool" graph "$store" Nope

summary
