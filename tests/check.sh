# Sourced by the shell tests: check NAME CODE PATTERN COMMAND... runs the command and counts it as
# passed when it exits with CODE and its output (stdout and stderr) matches the extended regex PATTERN.
passed=0 failed=0

check() {
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

# The totals; the status of the test.
summary() {
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
}
