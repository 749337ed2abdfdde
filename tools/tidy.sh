#!/usr/bin/env bash
# clang-tidy over every source, or over the sources given. Reads compile commands without precompiled headers,
# so that a missing include is found as well.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset tidy >/dev/null
if [ $# -gt 0 ]; then
    sources=("$@")
else
    mapfile -t sources < <(git ls-files 'src/*.cpp' 'tests/*.cpp' 'fuzz/*.cpp' 'bench/*.cpp')
fi
printf '%s\0' "${sources[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy --quiet -p build/tidy 2> >(grep -v 'warnings generated' >&2)
