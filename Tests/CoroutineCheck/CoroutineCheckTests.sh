#!/usr/bin/env bash
# The coroutine check finds every offender on its line for its reason, nothing else, and never
# passes a file that it could not read whole. CTest skips this where clang-query-19 is missing.
set -euo pipefail
cd "$(dirname "$0")/../.."
command -v clang-query-19 >/dev/null || exit 77

check() {
    tools/check-coroutines "$@" -- -std=c++20 -ITests
}

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

samples=Tests/CoroutineCheck
expected=$(sed -nE '/^ .*  \/\/ /{=;s/^.*  \/\/ //p}' "$samples/Offenders.cpp" | paste -d ' ' - - | sort)
[[ -n "$expected" ]] || fail "The offenders name no lines."

status=0
output=$(check "$samples/Offenders.cpp") || status=$?
((status == 1)) || fail "The offenders end the check with $status."
actual=$(sed -nE 's/^.*\/Offenders\.cpp:([0-9]+):[0-9]+: error: an? ((capturing|coroutine) lambda|braced temporary).*$/\1 \2/p' \
    <<<"$output" | sort -u)
diff <(printf '%s\n' "$expected") <(printf '%s\n' "$actual") ||
    fail "The lines above are expected (<) or found (>) alone."

output=$(check "$samples/Keepers.cpp") || fail "The keepers are rejected:" "$output"
[[ -z "$output" ]] || fail "The keepers make the check print: $output"

broken=$(mktemp --suffix=.cpp)
trap 'rm -f "$broken"' EXIT
printf 'int value = missing;\n' >"$broken"
status=0
check "$broken" 2>/dev/null || status=$?
((status == 2)) || fail "A file that does not compile ends the check with $status."
