#!/usr/bin/env bash
# clang-tidy over every source, or over the sources given. Reads compile commands without precompiled headers,
# so that a missing include is found as well.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset tidy >/dev/null
if [ $# -gt 0 ]; then
    sources=("$@")
else
    mapfile -t sources < <(sed -n 's/^ *"file": "\([^"]*\)".*/\1/p' build/tidy/compile_commands.json |
        grep -v "^$PWD/build/" | sort -u)
fi
printf '%s\0' "${sources[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy --quiet -p build/tidy 2> >(grep -v 'warnings generated' >&2)
