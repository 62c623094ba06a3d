#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# fuzz.sh SECONDS [TARGET...]: builds the fuzzers and runs each of them for this time, two at once, with copies of the
# inputs in tests/fuzz/corpus. Inputs that break a rule are kept in build/fuzz/findings; then the exit code is not 0.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/packages.sh

seconds=$1
shift
[[ $seconds =~ ^[1-9][0-9]*$ ]] || { echo "How many seconds is \"$seconds\"?" >&2; exit 2; }
targets=("$@")
[ $# -gt 0 ] || mapfile -t targets < <(find tests/fuzz/corpus -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | sort)

need "${packages_build[@]}" "${packages_fuzz[@]}"
configure fuzz
cmake --build build/fuzz --target fuzzers

findings=$PWD/build/fuzz/findings
scratch=$(mktemp -d)
trap 'rm -rf -- "$scratch"' EXIT
mkdir -p "$findings"
cp -r tests/fuzz/corpus "$scratch"

# Runs one fuzzer, in a process of xargs.
fuzz() {
    local target=$1 options=()
    [ ! -f "tests/fuzz/$target.dict" ] || options+=("-dict=tests/fuzz/$target.dict")
    if ! nice "build/fuzz/tests/fuzz/fuzz_$target" "${options[@]}" -max_total_time="$seconds" -timeout=5 \
        -max_len=8192 -rss_limit_mb=1024 -print_final_stats=1 -artifact_prefix="$findings/$target-" \
        "$scratch/corpus/$target" >"$scratch/$target.log" 2>&1; then
        printf '%s: found something\n' "$target"
        tail -n 60 "$scratch/$target.log"
        return 1
    fi
    printf '%s: %s\n' "$target" "$(grep -E 'number_of_executed_units|average_exec' "$scratch/$target.log" \
        | sed 's/^stat::[^:]*: *//' | paste -sd ' ' | sed 's/ / inputs, /; s/$/ a second/')"
}
export -f fuzz
export seconds scratch findings
# The sanitizer tests look for leaks with the same inputs; to distinguish our leaks from Qt's needs slow stack traces.
export ASAN_OPTIONS=detect_leaks=0:malloc_context_size=8:quarantine_size_mb=16 LC_ALL=C.UTF-8

# shellcheck disable=SC2016
if ! printf '%s\0' "${targets[@]}" | xargs -0 -P2 -I{} bash -c 'fuzz "$1"' fuzz {}; then
    echo "Findings are in $findings." >&2
    exit 1
fi
echo "Nothing found."
