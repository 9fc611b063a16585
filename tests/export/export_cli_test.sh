#!/usr/bin/env bash
# hmitool export: what reaches the output, the warnings, and a one-line failure for each kind of bad
# input or output. Linux: the PPDs are checked with cupstestppd.
set -u
tool=$1 samples=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. "$(dirname "$0")/../check.sh"
store=$samples/sample-printer.reg files=$samples/sample-printer

check "PPD on standard output" 0 '^\*MediaType PhotoGlossyPro/Photo Paper Glossy Pro: ' "$tool" export ppd "$store"
check "media left out are named" 0 'PrintableDisc" left out: it supports none of the paper sizes' "$tool" export ppd "$store" -o "$work/a.ppd"
check "rejected medium is named with the reason" 0 'MetallicFilmNoThreeposition" left out: rejected: .*threeposition' "$tool" export ppd "$store" -o "$work/a.ppd"
check "missing translation falls back and is reported" 0 'HagakiPlain" has no name in "fr"; the "en" name is used' "$tool" export ppd "$store" -o "$work/a.ppd"
check "printer and sources give the same PPD" 0 '^same$' sh -c '"$0" export ppd "$1" 2>/dev/null >"$3/p.ppd"; "$0" export ppd --from-files "$2" 2>/dev/null | cmp -s - "$3/p.ppd" && echo same' "$tool" "$store" "$files" "$work"
check "a medium not valid is left out silently" 0 '^0$' sh -c '"$0" export ppd --from-files "$1" 2>&1 | grep -c PhotoSemiGloss; true' "$tool" "$files"
check "cupstestppd passes with no warning" 0 '^PASS 0$' sh -c 'echo "$(cupstestppd -q "$0" >/dev/null && echo PASS) $(cupstestppd -v "$0" | grep -c "WARN\|FAIL")"' "$work/a.ppd"
check "--strict fails on a rejected medium, after writing" 1 'left out: rejected' "$tool" export ppd --strict "$store" -o "$work/strict.ppd"
check "--strict still wrote the PPD" 0 '^\*PPD-Adobe' head -1 "$work/strict.ppd"
check "German base: German main strings where 7-bit" 0 '^\*OpenUI \*PageSize/Papierformat: PickOne$' "$tool" export ppd --lang de "$store"
check "German base: English where not" 0 '^\*OpenUI \*PrintQualityLevel/Print Quality: PickOne$' "$tool" export ppd --lang de "$store"
check "German base lists it first" 0 '^\*cupsLanguages: "de en fr ja"$' "$tool" export ppd --lang de "$store"
check "Japanese base: keywords as main media texts, PPD still passes" 0 '^\*MediaType PlainPaper/PlainPaper: .*PASS $' sh -c '("$0" export ppd --lang ja "$1" -o "$2" 2>/dev/null; grep -a "^\*MediaType PlainPaper/" "$2"; cupstestppd -q "$2" && echo PASS) | tr "\n" " "' "$tool" "$store" "$work/ja.ppd"
check "quality variant chooses the list" 0 'left out: no combination' "$tool" export ppd --quality-variant index "$store" -o "$work/i.ppd"
check "unknown quality variant" 64 "unknown --quality-variant 'cmyk' \(rgb, cmyk4d, cmyk1d or index\)" "$tool" export ppd --quality-variant cmyk "$store"
check "unknown format" 64 "unknown export format 'pdf'" "$tool" export pdf "$store"
check "bad language" 64 "--lang 'eng' is not a two-letter language" "$tool" export ppd --lang eng "$store"
check "printer that cannot be opened" 2 'No such file' "$tool" export ppd "$work/missing.reg"
check "IPP strings, one file per language, in a new directory" 0 '^de.strings en.strings fr.strings ja.strings $' sh -c '"$0" export ipp "$1" -o "$2/a.ipp" --strings "$2/strings" 2>/dev/null && ls "$2/strings" | tr "\n" " "' "$tool" "$store" "$work"

# Outputs: a full device, a directory that does not exist, a pipe written in place, a regular file
# replaced only when the new one is complete.
check "full disk" 74 "cannot write '/dev/full': No space left" "$tool" export ppd "$store" -o /dev/full
check "full standard output" 74 'No space left' bash -c '"$0" export ppd "$1" -o - >/dev/full' "$tool" "$store"
check "missing directory" 74 "cannot write '$work/no/x.ppd'" "$tool" export ppd "$store" -o "$work/no/x.ppd"
mkfifo "$work/fifo"
check "a pipe is written in place" 0 '^\*PPD-Adobe: "4.3" fifo$' sh -c 'head -1 "$1" >"$1.out" & "$0" export ppd "$2" -o "$1" 2>/dev/null; wait; echo "$(cat "$1.out") $(stat -c %F "$1")"' "$tool" "$work/fifo" "$store"
echo old >"$work/kept.ppd"
mkdir "$work/kept.ppd.partial"
check "a failed write keeps the old file" 74 "cannot write '$work/kept.ppd'" "$tool" export ppd "$store" -o "$work/kept.ppd"
check "the old file is intact" 0 '^old$' cat "$work/kept.ppd"
rmdir "$work/kept.ppd.partial"
check "a complete write replaces it" 0 '^\*PPD-Adobe' sh -c '"$0" export ppd "$1" -o "$2" 2>/dev/null; head -1 "$2"; test ! -e "$2.partial"' "$tool" "$store" "$work/kept.ppd"

# A database whose ids and names no PPD keyword or text may hold, a medium without a base-language
# name, and one with no exportable medium at all.
odd=$work/odd
mkdir -p "$odd/media" "$odd/names"
id='Plain Paper: Ä+2'
sed "s|<iv:papertype_info id=\"PlainPaper\">|<iv:papertype_info id=\"$id\">|" "$files/database.xml" >"$odd/database.xml"
cp "$files"/media/*.xml "$odd/media/" && cp "$files"/names/*.xml "$odd/names/"
mv "$odd/media/PlainPaper.xml" "$odd/media/$id.xml"
sed -e "s|id=\"PlainPaper\"|id=\"$id\"|" -e 's|language="en">Plain Paper|language="en">Plain: \&lt;"paper"\&gt;|' \
    "$files/names/PlainPaper.xml" >"$odd/names/$id.xml"
grep -v 'language="en"' "$files/names/PhotoMatte.xml" >"$odd/names/PhotoMatte.xml"
check "odd id gets a derived keyword and an escaped text" 0 '^\*MediaType Plain_Paper_{5}2_[0-9A-F]{8}/Plain<3A> <3C>"paper"<3E>: ' \
    "$tool" export ppd --from-files "$odd" -o -
check "odd PPD passes cupstestppd" 0 'PASS' sh -c '"$0" export ppd --from-files "$1" -o "$2" 2>/dev/null; cupstestppd -q "$2" && echo PASS' "$tool" "$odd" "$work/odd.ppd"

check "no base-language name: the id, reported" 0 'PhotoMatte" has no name in "en"; its id is used' "$tool" export ppd --from-files "$odd" -o "$work/odd.ppd"
check "the id stands for the name" 0 '^\*MediaType PhotoMatte/PhotoMatte: ' grep '^\*MediaType PhotoMatte/' "$work/odd.ppd"
mkdir -p "$work/none"
cp "$files/database.xml" "$work/none/"
check "no exportable medium (no document at all)" 1 'no exportable medium in' "$tool" export ppd --from-files "$work/none"
summary
