#!/usr/bin/env bash
# hmitool against the sample printer and broken stores: output, exit codes and messages.
# Linux only: on Windows a PRINTER is a spooler printer, which this script cannot set up.
set -u
tool=$1 samples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. "$(dirname "$0")/../check.sh"

store=$samples/sample-printer.reg files=$samples/sample-printer
check "media lists every medium" 0 '^26 +OtherPhotoPaper +0000001A' "$tool" media "$store"
check "media as json" 0 '"product_id": "TQ5900"' "$tool" --json media "$store"
check "names in all languages, sorted" 0 '^de .*en .*fr .*ja ' sh -c '"$0" names "$1" PhotoGlossyPro | tr "\n" " "' "$tool" "$store"
check "name in one language" 0 '^de +Fotopapier' "$tool" names "$store" PhotoGlossyPro de
check "unknown language" 1 "no name in language 'xx'" "$tool" names "$store" PhotoGlossyPro xx
check "unknown medium" 2 "no medium 'Nope'" "$tool" names "$store" Nope
check "coverage marks a missing name" 1 '^HagakiPlain +x +x +- +x$' "$tool" coverage "$store"
check "coverage gives each language's share" 1 '^named % +100 +100 +89 +96$' "$tool" coverage "$store"
check "coverage as json" 0 "^\['fr'\] 88.9$" sh -c "\"\$1\" --json coverage \"\$2\" | python3 -c 'import json,sys; d=json.load(sys.stdin); print(d[\"missing\"][\"HagakiPhoto\"], d[\"languages\"][\"fr\"])'" _ "$tool" "$store"
check "document reassembled" 0 '^<medium>' "$tool" doc "$store" TransparencyFilm
check "missing store" 2 'No such file' "$tool" media "$work/missing.reg"

printf 'Windows Registry Editor Version 5.00\n\n[PrinterDriverData\\Media]\n"x"=dword:12\n"y"=garbage\n' >"$work/bad.reg"
check "malformed store names the line" 2 'bad.reg:5:' "$tool" media "$work/bad.reg"
printf 'REGEDIT4\n[PrinterDriverData\\Media]\n"product_id"="X"\n' >"$work/nodb.reg"
check "database that cannot be loaded" 2 'cannot be loaded' "$tool" media "$work/nodb.reg"
printf '\xff\xfeW\x00i\x00' >"$work/utf16.reg"
check "truncated UTF-16 store" 2 'utf16.reg:1' "$tool" media "$work/utf16.reg"
check "output lost to a full disk" 74 'writing the output failed: No space left' \
    bash -c '"$0" --json media --all "$1" >/dev/full' "$tool" "$store"
check "usage" 64 'usage' "$tool" media
check "exit codes in the help" 0 '73  the store cannot be written' "$tool" --help

# Every command: its own --help with an example, and --json output that parses.
doc=$samples/sample-printer/media/PlainPaper.xml
while read -r command args; do
    check "$command --help" 0 "usage: hmitool $command .*example: +hmitool $command " \
        sh -c '"$0" "$1" --help | tr "\n" " "' "$tool" "$command"
    # shellcheck disable=SC2086
    check "$command --json parses" 0 '' sh -c '"$0" "$@" 2>/dev/null | python3 -m json.tool >/dev/null' \
        "$tool" $command --json $args
done <<EOF2
check $store
coverage $store
diff $store $files
doc $store PlainPaper
explain $store PlainPaper
graph $store PlainPaper
media $store
names $store PlainPaper
pack --keep-rejected $files $work/json.reg
show $store PlainPaper
tree $doc
EOF2

# show and media --all: the cascade through the exports, with every level's "all" fallback reached
# by some sample medium, and the sample rejected on purpose reported with its reason.
rejected=MetallicFilmNoThreeposition
reason='printquality_rgb\[1\]: missing attribute "threeposition"'
check "show marks a colour mode reached through all" 0 '^  printcolormode monochrome +\[all' \
    "$tool" show "$store" TransparencyFilm
check "show marks the default" 0 '^    borderlessprint ON \(default\)$' "$tool" show "$store" PhotoGlossyPro
check "show leaves the others unmarked" 0 '^    borderlessprint OFF$' "$tool" show "$store" PhotoGlossyPro
check "show of a rejected medium" 1 "$rejected: rejected: .*$reason" "$tool" show "$store" "$rejected"
check "show of an unknown medium" 2 "Nope: no such medium" "$tool" show "$store" Nope
check "media --all names the rejected medium" 1 "^  medium $rejected\$" "$tool" media --all "$store"
check "media --all gives the reason" 1 "error: rejected: .*$reason" "$tool" media --all "$store"
check "media --all shows the others" 1 '^  medium OtherPhotoPaper$' "$tool" media --all "$store"

# Evaluates a Python expression over a JSON outline: d the document, nodes every node depth first.
json_eval() {  # file, expression
    python3 -c 'import json, sys
d = json.load(open(sys.argv[1]))
nodes = []
def walk(n):
    nodes.append(n)
    for c in n.get("children", []):
        walk(c)
walk(d)
print(eval(sys.argv[2]))' "$@"
}

"$tool" --json media --all "$store" >"$work/all.json" 2>/dev/null
check "media --all --json parses" 0 '' python3 -m json.tool "$work/all.json"
check "media --all --json has every medium" 0 '^27$' json_eval "$work/all.json" 'len(d["children"])'
check "every level falls back to all" 0 \
    '^borderlessprint,print_purpose,printcolormode,printquality_cmyk_1DLUT,printquality_cmyk_4DLUT,printquality_index,printquality_rgb$' \
    json_eval "$work/all.json" '",".join(sorted({n["kind"] for n in nodes if n["all"] and n["name"] != "all"}))'
check "the rejected medium in json" 0 'missing attribute' \
    json_eval "$work/all.json" "[n['error'] for n in d['children'] if n['name'] == '$rejected']"
"$tool" --json show "$store" TransparencyFilm >"$work/show.json"
check "show --json marks all" 0 '^\[True\]$' json_eval "$work/show.json" \
    '[n["all"] for n in nodes if n["kind"] == "printcolormode" and n["name"] == "monochrome"]'

# A copy of the sample whose transparency film keeps its colour node only: monochrome has no branch.
cp -r "$samples/sample-printer" "$work/copy"
sed -i 's/<printcolormode type="all">/<printcolormode type="color">/' "$work/copy/media/TransparencyFilm.xml"
"$tool" pack --keep-rejected "$work/copy" "$work/copy.reg" >/dev/null 2>&1
check "a value without a node has no branch" 0 '^  printcolormode monochrome \(no branch\)$' \
    "$tool" show "$work/copy.reg" TransparencyFilm

# pack: the committed sample store is what pack makes of the sources, byte for byte.
check "pack makes the sample store" 0 '27 media, 194 document chunks' "$tool" pack --keep-rejected "$files" "$work/fresh.reg"
check "the sample store is up to date (else: hmitool pack --keep-rejected samples/sample-printer samples/sample-printer.reg)" \
    0 '' cmp "$store" "$work/fresh.reg"
check "the store is UTF-16LE with a byte-order mark and CRLF" 0 '^fffe5700.*0d000a00' sh -c 'head -c 80 "$1" | od -An -tx1 | tr -d " \n"' _ "$store"
check "a medium the library rejects is refused" 1 "$rejected.xml: rejected by the library: .*$reason" \
    "$tool" pack "$files" "$work/refused.reg"
check "nothing is written when refused" 1 '' test -e "$work/refused.reg"
check "chunk size" 0 '27 media, 2957 document chunks' "$tool" pack --keep-rejected --chunk-bytes 255 "$files" "$work/small.reg"
check "chunk size zero" 64 'chunk-bytes' "$tool" pack --chunk-bytes 0 "$files" "$work/small.reg"
same_doc() { diff <("$tool" doc "$store" "$1") <("$tool" doc "$2" "$1"); }
check "odd chunks join to the same document" 0 '' same_doc PlainPaper "$work/small.reg"
check "absolute key paths for regedit" 0 '^\[HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Büro 2\\PrinterDriverData\\Media\]' \
    sh -c '"$1" pack --keep-rejected --printer-key "Büro 2" "$2" "$3" >/dev/null && iconv -f UTF-16 -t UTF-8 "$3"' _ "$tool" "$files" "$work/abs.reg"
check "absolute key paths read as the printer" 0 '^de +Fotopapier Hochglanz Pro$' "$tool" names "$work/abs.reg" PhotoGlossyPro de
mkdir "$work/printers"
check "a store name is a printer of the store directory" 1 'named %' \
    sh -c 'HMI_PRINTER_STORE="$1" "$2" pack --keep-rejected "$3" "Büro Drucker" && HMI_PRINTER_STORE="$1" "$2" coverage "Büro Drucker"' \
    _ "$work/printers" "$tool" "$files"
check "pack into a missing directory" 73 "cannot write '$work/none/x.reg': No such file" \
    "$tool" pack --keep-rejected "$files" "$work/none/x.reg"
cp "$store" "$work/old.reg"
check "a full disk leaves the old store as it was" 73 "cannot write '$work/old.reg': File too large" \
    bash -c 'trap "" XFSZ; ulimit -f 1000; "$0" pack --keep-rejected "$1" "$2"' "$tool" "$files" "$work/old.reg"
check "the old store is intact, no partial file left" 0 '' sh -c 'cmp "$1" "$2" && ! ls "$3" | grep partial' _ "$store" "$work/old.reg" "$work"

# pack refuses sources that the library would not read, naming the file and the reason, and writes nothing.
refused() {  # name, pattern, then a command run in a fresh copy of the sources ($1 in it)
    local name=$1 pattern=$2
    shift 2
    rm -rf "$work/src"
    cp -r "$files" "$work/src"
    (cd "$work/src" && "$@")
    check "pack refuses $name" 1 "$pattern" "$tool" pack --keep-rejected "$work/src" "$work/refused.reg"
}
refused "names whose two forms disagree" "names/TransparencyFilm.xml: the name in 'de' differs" \
    sed -i 's|<medianame_item language="de">Transparentfolie<|<medianame_item language="de">Folie<|' names/TransparencyFilm.xml
refused "a medium without a document" 'media/PlainPaper.xml cannot be read' rm media/PlainPaper.xml
refused "a medium without names" 'names/PlainPaper.xml cannot be loaded' rm names/PlainPaper.xml
refused "names in an unknown encoding" 'names/PlainPaper.xml cannot be loaded' \
    sed -i '1s/UTF-8/x-unknown-8/' names/PlainPaper.xml
refused "a document in another encoding" 'media/PlainPaper.xml: encoding .ISO-8859-1.: pack takes UTF-8 or UTF-16' \
    sed -i '1s/UTF-8/ISO-8859-1/' media/PlainPaper.xml
refused "a document that is not XML" 'media/PlainPaper.xml:[0-9]+:[0-9]+: not well-formed' sed -i 's|</medium>||' media/PlainPaper.xml
refused "a media number that is not 8 hex digits" "medium 'PlainPaper': media_number '1A' is not 8 hex digits" \
    python3 -c 'import re; p="database.xml"; s=open(p).read(); s=re.sub(r"(id=\"PlainPaper\">\s*<iv:media_number>)\w+", r"\g<1>1A", s); open(p,"w").write(s)'
refused "a media number used twice" 'media_number 00000002 is used twice' \
    python3 -c 'import re; p="database.xml"; s=open(p).read(); s=re.sub(r"(id=\"PlainPaper\">\s*<iv:media_number>)\w+", r"\g<1>00000002", s); open(p,"w").write(s)'
refused "an id the library does not read" "medium 'x{65}': the library does not read its entry" \
    sed -i "s/id=\"PlainPaper\"/id=\"$(printf 'x%.0s' $(seq 65))\"/" database.xml
refused "a database without common information" 'database.xml: the library cannot read its common information' \
    sed -i 's|<iv:product_id>TQ5900</iv:product_id>||' database.xml
check "pack of a missing directory" 1 "$work/nowhere: no sources directory|no directory" "$tool" pack "$work/nowhere" "$work/x.reg"
check "pack as json" 0 '"chunks": 194' "$tool" pack --json --keep-rejected "$files" "$work/fresh.reg"

# diff: the round trip of pack is exact; each kind of change is named with its path.
check "a packed store equals its sources" 0 '^$' "$tool" diff "$work/fresh.reg" "$files"
check "equal as json" 0 '"equal": true' "$tool" diff --json "$files" "$store"
rm -rf "$work/d" && cp -r "$files" "$work/d"
python3 - "$work/d" <<'PY'
import re, sys, os
os.chdir(sys.argv[1])
s = open("database.xml").read().replace(">TQ5900<", ">TQ6000<")
entries = re.findall(r'    <iv:papertype_info id=.*?</iv:papertype_info>\n', s, re.S)
s = s.replace(entries[0] + entries[1], entries[1] + entries[0]).replace([e for e in entries if "HagakiPlain" in e][0], "")
s = re.sub(r'(id="PhotoLuster">\s*<iv:media_number>\w+</iv:media_number>\s*<iv:valid>)ON', r'\1OFF', s)
open("database.xml", "w").write(s)
n = open("names/PlainPaper.xml").read().replace(">Papier ordinaire<", ">Papier normal<")
open("names/PlainPaper.xml", "w").write(n)
m = open("media/PlainPaper.xml").read().replace("<bit>8</bit>", "<bit>16</bit>", 1)
open("media/PlainPaper.xml", "w").write(m)
PY
for difference in '^database / product_id: "TQ5900" -> "TQ6000"$' '^PhotoLuster / header valid: "1" -> "0"$' \
    '^PlainPaper / name fr: "Papier ordinaire" -> "Papier normal"$' \
    '^PlainPaper / color / borderless OFF / proof / rgb quality 1: bit: "8" -> "16"$' '^HagakiPlain: only in A \(removed\)$' \
    '^PhotoGlossyPro: reordered: position among the common media 1 -> 2$' '^PhotoGlossyPlus: reordered: .* 2 -> 1$'; do
    check "diff names $difference" 1 "$difference" "$tool" diff "$store" "$work/d"
done
check "diff finds exactly those" 0 '^7$' sh -c '"$0" diff "$1" "$2" | wc -l' "$tool" "$store" "$work/d"
check "diff as json" 0 "^7 \['HagakiPlain', 'present', None\]$" sh -c "\"\$1\" diff --json \"\$2\" \"\$3\" | python3 -c 'import json,sys; d=json.load(sys.stdin)[\"differences\"]; print(len(d), [[x[\"medium\"], x[\"a\"], x[\"b\"]] for x in d if x[\"what\"] == \"medium\"][0])'" _ "$tool" "$store" "$work/d"
printf 'REGEDIT4\n[PrinterDriverData\\Media]\n"db_format_ver"="1.0"\n"product_id"="X"\n"pop-db-time"="t"\n"papertype_info_list"=dword:1\n"000"="00000001"\n[PrinterDriverData\\Media\\00000001]\n"id"="Other"\n"valid"=dword:1\n"visible"=dword:1\n"checksum"="c"\n' >"$work/other.reg"
check "two databases with nothing in common" 1 '^Other: only in B \(added\)$' "$tool" diff "$store" "$work/other.reg"
check "diff of an unreadable side" 2 'No such file' "$tool" diff "$store" "$work/none.reg"

# --from-files reads the sources the store was made from, through the File exports: the same answers.
same() {  # name, filter, arguments with @ for the printer: store and files agree in output and exit code
    local name=$1 filter=$2 arg
    shift 2
    local a=() b=()
    for arg in "$@"; do
        if [ "$arg" = @ ]; then a+=("$store") b+=(--from-files "$files"); else a+=("$arg") b+=("$arg"); fi
    done
    if diff <("$tool" "${a[@]}" 2>"$work/a.err" | $filter; echo "exit ${PIPESTATUS[0]}"; cat "$work/a.err") \
        <("$tool" "${b[@]}" 2>"$work/b.err" | $filter; echo "exit ${PIPESTATUS[0]}"; cat "$work/b.err") >"$work/diff"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED %s: store and files differ:\n' "$name"
        cut -c1-160 "$work/diff" | head -10
    fi
}
# Inherent: a header read from a file has media number 0 and valid 4; media --all names its root after the argument.
no_number_valid() { sed -E '/"(media_number|valid)": /d; s/^([0-9]+ +[^ ]+ +)[0-9A-F]{8} [0-9]+ +/\1- /'; }
no_root_name() { sed -E '1s/^printer .*/root/; 3s/^  "name": .*/root/'; }
same "files: media" no_number_valid media @
same "files: media as json" no_number_valid --json media @
same "files: every cascade" no_root_name media --all @
same "files: every cascade as json" no_root_name --json media --all @
same "files: coverage" cat coverage @
same "files: names" cat names @ PhotoGlossyPro
same "files: names as json" cat --json names @ HagakiPhoto
same "files: one name" cat names @ PrintableDiscGlossy fr
same "files: unknown language" cat --json names @ PhotoGlossyPro xx
same "files: show through a colour-mode all" cat show @ TransparencyFilm
same "files: show through an index all" cat --json show @ EnvelopePlain
same "files: show of the rejected medium" cat show @ "$rejected"
check "files: missing directory" 2 "no directory '$work/none'" "$tool" media --from-files "$work/none"
check "files: medium without a names file" 2 "names/Nope.xml cannot be loaded" \
    "$tool" names --from-files "$files" Nope
check "files: medium without a media file" 2 "^hmitool: Nope: .*media/Nope.xml cannot be read" \
    "$tool" show --from-files "$files" Nope
check "files: a command that reads no files" 64 'not expected: --from-files' \
    "$tool" doc --from-files "$files" PlainPaper
check "files: usage" 64 'hmitool names --from-files DIR MEDIA_ID \[LANG\]' "$tool" names --from-files "$files"

for f in "$samples"/sample-printer/media/*.xml; do
    case $(basename "$f" .xml) in
    "$rejected") check "sample $rejected is rejected" 1 '^medium/printcolormode.*printquality_rgb\[1\]: rejected: missing attribute "threeposition"$' "$tool" check "$f" ;;
    *) check "sample $(basename "$f") is accepted" 0 '^ok$' "$tool" check "$f" ;;
    esac
done

# One mistake of each kind in an accepted medium, each reported with its element path.
sed -e 's|<format_version>1.00</format_version>||; s|<operationflag>0000218008001000<|<operationflag>0000218008001000F<|' \
    -e 's|default="color">color,monochrome|default="monochrome">color,sepia|; s|<printcolormode type="all">|<printcolormode type="rainbow">|' \
    -e 's|<app_filter_id>F350C24E<|<app_filter_id>F350C24E0<|' "$samples/sample-printer/media/TransparencyFilm.xml" >"$work/mistakes.xml"
for finding in '^medium/format_version: missing$' '^medium/operationflag: "0000218008001000F" is not up to 16 hex' \
    '^medium/availableprintcolormode: unknown value "sepia"$' \
    '^medium/availableprintcolormode: default "monochrome" is not in the list$' \
    '^medium/printcolormode\[1\]/@type: unknown keyword "rainbow"$' \
    '^medium/printcolormode\[1\]/borderlessprint\[1\]/print_purpose\[1\]/printquality_rgb\[1\]/app_filter_id: too long'; do
    check "check finds $finding" 1 "$finding" "$tool" check "$work/mistakes.xml"
done
check "check lists every finding in json" 0 '^6$' sh -c "\"\$1\" --json check \"\$2\" | python3 -c 'import json,sys; print(len(json.load(sys.stdin)[\"findings\"]))'" _ "$tool" "$work/mistakes.xml"
printf '<medium>\n  <operationflag>\n</medium>\n' >"$work/broken.xml"
check "check gives the line and column of an XML error" 1 "broken.xml:3:[0-9]+: syntax: .*operationflag" "$tool" check "$work/broken.xml"
check "check of a file that cannot be read" 2 "cannot be read" "$tool" check "$work/none.xml"

# check on a whole printer: the database's own faults, each medium's document and names.
check "check of the sample printer" 1 '^27 media checked, 1 finding$' "$tool" check "$store"
check "check of the sample sources" 1 "^$rejected: medium/.*: rejected: missing attribute" "$tool" check --from-files "$files"
check "check of a printer that cannot be opened" 2 'No such file' "$tool" check "$work/none.reg"
{ iconv -f UTF-16 -t UTF-8 "$store" | sed '1s/^\xEF\xBB\xBF//'
  printf '[PrinterDriverData\\Media]\n"005"=-\n"027"="00000099"\n"003"="00000002"\n'
  printf '[PrinterDriverData\\Media\\00000099\\HMI]\n@=dword:00000001\n'
  printf '[PrinterDriverData\\Media\\0000000C]\n"id"="PhotoGlossyPro"\n[-PrinterDriverData\\Media\\00000010\\HMN]\n'
  printf '[PrinterDriverData\\Media\\00000006\\HMI]\n"001"=-\n"003"=-\n'; } >"$work/broken.reg"
for finding in '^database: PrinterDriverData\\Media: list entry 027 is beyond papertype_info_list \(27\): not read$' \
    '^database: PrinterDriverData\\Media: list entry 005 is missing \(papertype_info_list is 27\)$' \
    "^database: PrinterDriverData\\\\Media\\\\0000000C: list entry 002 repeats the id 'PhotoGlossyPro' of list entry 000" \
    '^database: PrinterDriverData\\Media\\00000002: list entry 003 repeats the number of list entry 000$' \
    '^database: PrinterDriverData\\Media\\00000099: no list entry names it' \
    '^database: PrinterDriverData\\Media\\0000000A: no list entry names it' \
    '^PhotoGlossyPlus: PrinterDriverData\\Media\\00000006\\HMI: document: chunks 001, 003 of 6 missing$' \
    '^PhotoSemiGloss: PrinterDriverData\\Media\\00000010\\HMN: names: no names' '^26 media checked, 10 findings$'; do
    check "check of a broken printer finds $finding" 1 "$finding" "$tool" check "$work/broken.reg"
done
check "check of a broken printer as json" 0 '^10 10$' sh -c "\"\$1\" check --json \"\$2\" | python3 -c 'import json,sys; d=json.load(sys.stdin); print(len(d[\"findings\"]), sum(f[\"count\"] for f in d[\"findings\"]))'" _ "$tool" "$work/broken.reg"
rm -rf "$work/src" && cp -r "$files" "$work/src"
for m in PlainPaper PhotoLuster CanvasMatte; do sed -i 's|<format_version>1.00</format_version>||' "$work/src/media/$m.xml"; done
cp "$work/src/media/PlainPaper.xml" "$work/src/media/Extra.xml"
check "identical findings are folded, with a count" 1 '^3 media: medium/format_version: missing \(PhotoLuster, PlainPaper, CanvasMatte\)$' \
    "$tool" check --from-files "$work/src"
check "a file no listed medium uses" 1 '^database: media/Extra.xml: no listed medium uses it$' "$tool" check --from-files "$work/src"

summary
