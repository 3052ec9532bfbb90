#!/usr/bin/env bash
# expect_failure.sh GPX FILE: GPX must refuse FILE with status 1 and print to stderr exactly what the
# file's .expected says.
set -uo pipefail
cd "$(dirname "$2")"
errors=$("$1" "$(basename "$2")" 2>&1 > /dev/null)
status=$?
[ "$status" -eq 1 ] || { printf 'status is %s instead of 1\n%s\n' "$status" "$errors"; exit 1; }
diff <(printf '%s\n' "$errors") "$(basename "$2" .gpx).expected"
