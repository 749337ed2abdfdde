#!/usr/bin/env bash
# Runs every fuzzer for a number of seconds (default 60), beginning with the committed corpus. What breaks one
# stays in build/fuzz/found/. A fuzzer that comes to few inputs sees little, and fails too. The last line counts
# the inputs tried.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh
seconds=${1:-60}
floor=200 # inputs a second

need_packages "${CHECK_PACKAGES[@]}"
build_preset fuzz fuzzers

# fuzz_one NAME: on a copy of its corpus, so that what it learns is not taken for what is committed.
fuzz_one() {
    local name=$1 learned=build/fuzz/learned/$1 log=build/fuzz/$1.log
    mkdir -p "$learned" build/fuzz/found
    build/fuzz/fuzz/"fuzz_$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=1024 -max_len=8192 \
        -print_final_stats=1 -verbosity=0 -artifact_prefix="build/fuzz/found/$name-" \
        "$learned" fuzz/corpus/"$name" >"$log" 2>&1 || { tail -n 40 "$log"; echo "$name: broken"; return 1; }
    local inputs speed
    inputs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    speed=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    echo "$name: $inputs inputs"
    [ "$speed" -ge "$floor" ] || { echo "$name: $speed inputs a second, fewer than $floor" >&2; return 1; }
}
export -f fuzz_one
export seconds floor

ls build/fuzz/fuzz | sed -n 's/^fuzz_//p' | xargs -P "$(nproc)" -I {} bash -c 'fuzz_one {}' | tee build/fuzz/inputs.log
awk '{ all += $2 } END { print all " inputs tried" }' build/fuzz/inputs.log
