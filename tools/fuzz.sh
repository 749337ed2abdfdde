#!/usr/bin/env bash
# Runs every fuzzer for a number of seconds (default 60), beginning with the committed corpus. What breaks one
# stays in build/fuzz/found/. The last line counts the inputs tried.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh
seconds=${1:-60}

need_packages "${CHECK_PACKAGES[@]}"
build_preset fuzz fuzzers

# fuzz_one NAME: on a copy of its corpus, so that what it learns is not taken for what is committed.
fuzz_one() {
    local name=$1 learned=build/fuzz/learned/$1 log=build/fuzz/$1.log
    mkdir -p "$learned" build/fuzz/found
    build/fuzz/fuzz/"fuzz_$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=1024 -max_len=8192 \
        -print_final_stats=1 -verbosity=0 -artifact_prefix="build/fuzz/found/$name-" \
        "$learned" fuzz/corpus/"$name" >"$log" 2>&1 || { tail -n 40 "$log"; echo "$name: broken"; return 1; }
    echo "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs"
}
export -f fuzz_one
export seconds

ls build/fuzz/fuzz | sed -n 's/^fuzz_//p' | xargs -P "$(nproc)" -I {} bash -c 'fuzz_one {}' | tee build/fuzz/inputs.log
awk '{ all += $2 } END { print all " inputs tried" }' build/fuzz/inputs.log
