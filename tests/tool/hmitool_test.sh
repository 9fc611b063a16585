#!/usr/bin/env bash
# hmitool against the sample printer and broken stores: output, exit codes and messages.
# Linux only: on Windows a PRINTER is a spooler printer, which this script cannot set up.
set -u
tool=$1 samples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0 failed=0

check() {  # name, expected exit code, pattern the output must match, command...
    local name=$1 code=$2 pattern=$3
    shift 3
    local out rc
    out=$("$@" 2>&1)
    rc=$?
    if [ "$rc" -eq "$code" ] && printf '%s\n' "$out" | grep -q -E -- "$pattern"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED %s: exit %s (want %s), output:\n%s\n' "$name" "$rc" "$code" "$out" | head -20
    fi
}

store=$samples/sample-printer.reg
check "media lists every medium" 0 '^26 +OtherPhotoPaper +0000001A' "$tool" media "$store"
check "media as json" 0 '"product_id": "TQ5900"' "$tool" --json media "$store"
check "names in all languages" 0 '^ja +' "$tool" names "$store" PhotoGlossyPro
check "name in one language" 0 '^de +Fotopapier' "$tool" names "$store" PhotoGlossyPro de
check "unknown language" 1 "no name in language 'xx'" "$tool" names "$store" PhotoGlossyPro xx
check "unknown medium" 2 "no medium 'Nope'" "$tool" names "$store" Nope
check "document reassembled" 0 '^<medium>' "$tool" doc "$store" TransparencyFilm
check "missing store" 2 'No such file' "$tool" media "$work/missing.reg"

printf 'Windows Registry Editor Version 5.00\n\n[PrinterDriverData\\Media]\n"x"=dword:12\n"y"=garbage\n' >"$work/bad.reg"
check "malformed store names the line" 2 'bad.reg:5:' "$tool" media "$work/bad.reg"
printf 'REGEDIT4\n[PrinterDriverData\\Media]\n"product_id"="X"\n' >"$work/nodb.reg"
check "database that cannot be loaded" 2 'cannot be loaded' "$tool" media "$work/nodb.reg"
printf '\xff\xfeW\x00i\x00' >"$work/utf16.reg"
check "truncated UTF-16 store" 2 'utf16.reg:1' "$tool" media "$work/utf16.reg"
check "usage" 64 'usage' "$tool" media

for f in "$samples"/sample-printer/media/*.xml; do
    check "sample $(basename "$f") is accepted" 0 'ok' "$tool" check "$f"
done

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
