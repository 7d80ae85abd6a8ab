#!/usr/bin/env bash
# clang-format and clang-tidy over all of our sources; build/release must be configured.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(find tools training utils python examples tests bench fuzz \( -name '*.cpp' -o -name '*.h' \) 2>/dev/null | sort)
clang-format --dry-run --Werror "${sources[@]}"

report=$(mktemp)
trap 'rm -f "$report"' EXIT
if ! run-clang-tidy -quiet -p build/release -j 2 "^$PWD/" >"$report" 2>&1; then
    # without its colours, its progress lines and its counts of warnings in other people's headers
    sed 's/\x1b\[[0-9;]*m//g' "$report" |
        grep -Ev '^[^ ]*clang-tidy(-[0-9]+)? |^[0-9]+ warnings? |^Suppressed |^Use -(header-filter|system-headers)|^$'
    exit 1
fi
echo "lint: ${#sources[@]} files clean"
