#!/usr/bin/env bash
# The sample printer's exports served by ippeveprinter and asked with ipptool: the IPP attributes make a
# printer that passes get-printer-attributes.test and serves every value of the file; the PPD makes one
# that offers every exported medium and each whole-sheet size with zero margins.
# Needs root (or a running dbus and avahi) for the DNS-SD responder ippeveprinter will not start without.
set -u
tool=$1 samples=$2
PATH=$PATH:/usr/sbin:/sbin
work=$(mktemp -d)
started=()
# A process that runs (a daemon that exited stays a zombie where nothing reaps it).
alive() { [ -n "$1" ] && ps -o stat= -p "$1" 2>/dev/null | grep -q '^[^Z]'; }
cleanup() {
    local pid
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        pid=${started[i]}
        kill "$pid" 2>/dev/null
        for _ in $(seq 50); do alive "$pid" || break; sleep 0.1; done
    done
    rm -rf "$work"
}
trap cleanup EXIT
. "$(dirname "$0")/../check.sh"

skip() {
    echo "skipped: $1"
    exit 77
}

for program in ippeveprinter ipptool dbus-daemon avahi-daemon ps; do
    command -v "$program" >/dev/null || skip "$program is not installed"
done

# The responder: the system bus, then avahi on it; each started here is stopped at the end.
if ! alive "$(cat /run/dbus/pid 2>/dev/null)"; then
    [ "$(id -u)" -eq 0 ] || skip "the system bus is not running and only root can start it"
    mkdir -p /run/dbus && rm -f /run/dbus/pid
    pid=$(dbus-daemon --system --fork --print-pid) || skip "dbus-daemon --system does not start"
    started+=("$pid")
fi
if ! avahi-daemon --check 2>/dev/null; then
    [ "$(id -u)" -eq 0 ] || skip "avahi-daemon is not running and only root can start it"
    avahi-daemon --no-drop-root --no-rlimits -D 2>"$work/avahi.log" || skip "avahi-daemon does not start: $(cat "$work/avahi.log")"
    started+=("$(cat /run/avahi-daemon/pid)")
    for _ in $(seq 50); do avahi-daemon --check 2>/dev/null && break; sleep 0.1; done
fi

# serve NAME ARGS...: ippeveprinter on a free loopback port; sets uri. Fails when it does not answer.
serve() {
    local name=$1 port pid
    shift
    mkdir -p "$work/$name"
    for _ in 1 2 3 4 5; do
        port=$((20000 + RANDOM % 30000))
        (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null && continue
        ippeveprinter "$@" -p "$port" -n localhost -d "$work/$name" "hmi-$name-$$" >"$work/$name.log" 2>&1 &
        pid=$!
        started+=("$pid")
        for _ in $(seq 100); do
            alive "$pid" || break
            if (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
                uri=ipp://localhost:$port/ipp/print
                return 0
            fi
            sleep 0.1
        done
    done
    echo "ippeveprinter $* does not answer:"
    cat "$work/$name.log"
    return 1
}

# An ipptool test that the served printer holds an attribute with the file's number of values.
expect_count() {
    local name=$1 tag=$2 count=$3
    printf '{ NAME "%s" OPERATION get-printer-attributes GROUP operation
  ATTR charset attributes-charset utf-8 ATTR language attributes-natural-language en ATTR uri printer-uri $uri
  ATTR keyword requested-attributes %s STATUS successful-ok EXPECT %s OF-TYPE %s COUNT %s }\n' \
        "$name" "$name" "$name" "$tag" "$count" >"$work/$name.test"
    ipptool -t "$uri" "$work/$name.test"
}

# Values of an ATTR in the file: one per line for a list of collections, else comma-separated.
values_in_file() {
    awk -v name="$2" '$1 == "ATTR" { on = $3 == name; if (on && NF > 3) { n = split($4, v, ","); print n } next }
                      on && /^  \{/ { count++ } END { if (count) print count }' "$1"
}

sample=$samples/sample-printer
attrs=$work/sample.attrs ppd=$work/sample.ppd
"$tool" export ipp --from-files "$sample" -o "$attrs" 2>"$work/export.log" || {
    cat "$work/export.log"
    exit 1
}
"$tool" export ppd --from-files "$sample" -o "$ppd" 2>"$work/export.log" || {
    cat "$work/export.log"
    exit 1
}

# (a) The IPP attributes as the whole printer.
if serve ipp -a "$attrs" -c /bin/true; then
    check "get-printer-attributes.test passes on the IPP export" 0 '\[PASS\]' \
        ipptool -tv "$uri" get-printer-attributes.test
    for entry in media-col-database:collection job-constraints-supported:collection \
                 job-resolvers-supported:collection media-type-supported:keyword \
                 xrvhmi-print-purpose-supported:keyword xrvhmi-cartridge-supported:keyword; do
        name=${entry%%:*}
        count=$(values_in_file "$attrs" "$name")
        check "$name served with the file's ${count:-0} values" 0 '\[PASS\]' \
            expect_count "$name" "${entry#*:}" "${count:-0}"
    done
else
    failed=$((failed + 1))
fi

# (b) The PPD as ippeveprinter reads it. CUPS turns a MediaType choice into a PWG keyword where it knows
# the name, else into lowercase with '-' before a capital after a lowercase letter or digit and before a
# digit after a letter, '_' as '-' ("A4Plus" a-4-plus, "ABCPaper_7" abcpaper-7).
if serve ppd -P "$ppd" -c /bin/true; then
    ipptool -tv "$uri" get-printer-attributes.test >"$work/ppd.out" 2>&1
    check "get-printer-attributes.test passes on the PPD" 0 '\[PASS\]' cat "$work/ppd.out"
    types=",$(sed -n 's/^ *media-type-supported ([^)]*) = //p' "$work/ppd.out"),"
    choices=$(sed -n 's/^\*MediaType \([^/:]*\).*/\1/p' "$ppd")
    check "the PPD has a MediaType choice for every medium of the IPP export" 0 '' \
        test "$(echo "$choices" | wc -l)" -eq "$(values_in_file "$attrs" media-type-supported)"
    for choice in $choices; do
        case $choice in
        PlainPaper) keyword=stationery ;;
        EnvelopePlain) keyword=envelope ;;
        TransparencyFilm) keyword=transparency ;;
        *) keyword=$(echo "$choice" | sed -E 's/([a-z0-9])([A-Z])/\1-\2/g; s/([A-Za-z])([0-9])/\1-\2/g; s/[-_]+/-/g' |
               tr 'A-Z' 'a-z') ;;
        esac
        check "media-type-supported from the PPD has $choice as $keyword" 0 '' test "${types#*,"$keyword",}" != "$types"
    done
    sed -n 's/^ *media-col-database ([^)]*) = //p' "$work/ppd.out" | sed 's/},{/}\n{/g' >"$work/ppd.database"
    sizes=$(awk -F'"' '/^\*PaperDimension [^ ]*\.Fullbleed:/ { split($2, d, " ");
                        printf "%d %d\n", d[1] * 2540 / 72 + 0.5, d[2] * 2540 / 72 + 0.5 }' "$ppd")
    check "the PPD has whole-sheet sizes" 0 '' test -n "$sizes"
    while read -r x y; do
        check "media-col-database from the PPD has ${x}x$y with zero margins" 0 '' grep -q -E \
            "media-size=\{x-dimension=$x y-dimension=$y\} [^}]*media-bottom-margin=0 media-left-margin=0 media-right-margin=0 media-top-margin=0" \
            "$work/ppd.database"
    done <<<"$sizes"
else
    failed=$((failed + 1))
fi

summary
