#!/usr/bin/env bash
# Measures everything in bench/ on this machine and writes docs/performance.md with its picture.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

need_packages "${BENCH_PACKAGES[@]}"
cmake --preset release -DVANTREL_BENCH=ON >/dev/null
build_preset release benchmarks

bench=build/release/bench
out=build/bench
page=docs/performance.md
mkdir -p "$out"
"$bench/engines" --benchmark_out="$out/engines.csv" --benchmark_out_format=csv >&2 2>/dev/null
"$bench/bench_processes" "$bench" build/release/bin/vantrel-play >"$out/processes.md"

# rows WHAT: name, size, microseconds of processor time of each benchmark of a kind, parted by tabs.
rows() {
    awk -F, -v what="$1" '/^"/ { gsub(/"/, "", $1); n = split($1, part, "/")
        if (part[1] == what) { name = part[2]
            for (i = 3; i < n && part[i] !~ /^[0-9]+$/; ++i) name = name "/" part[i]
            size = part[i]; printf "%s\t%s\t%.1f\n", name, size, $4 } }' "$out/engines.csv"
}
