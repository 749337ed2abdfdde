#!/usr/bin/env bash
# The package holds both programs, their folder of problems and the guide, lintian finds no error in it, and the
# programs are hardened: those of an optimised build wholly, others as far as the linker does it.
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
chmod 755 "$scratch"
umask 022

cpack -G DEB --config "$1/CPackConfig.cmake" -B "$scratch" >"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
package=$(echo "$scratch"/vantrel_*.deb)
dpkg-deb --contents "$package" >"$scratch/contents"
guide=./usr/share/doc/vantrel/guide
book=
[ ! -e "$1/docs/guide/vantrel-guide.pdf" ] || book=$guide/vantrel-guide.pdf
for file in $guide/index.html $guide/search.js $book \
    ./usr/bin/vantrel ./usr/bin/vantrel-play ./usr/lib/vantrel/vantrel ./usr/lib/vantrel/Problems/ \
    ./usr/share/applications/vantrel.desktop ./usr/share/man/man1/vantrel.1.gz; do
    awk -v file="$file" '$6 == file { found = 1 } END { exit !found }' "$scratch/contents" ||
        { echo "the package lacks $file"; exit 1; }
done
lintian --allow-root --fail-on error "$package"

# asks PROGRAM WHAT PATTERN COMMAND...: what the command tells of a program holds the pattern.
asks() {
    local program=$1 what=$2 pattern=$3
    shift 3
    # Read to its end, so that the command does not die of a closed pipe.
    "$@" "$program" 2>/dev/null | grep -c -- "$pattern" >/dev/null || { echo "${program##*/} has no $what"; exit 1; }
}

dpkg-deb --extract "$package" "$scratch/tree"
for name in vantrel vantrel-play; do
    program=$scratch/tree/usr/lib/vantrel/$name
    asks "$program" "place of its own choice in memory" 'Type: *DYN' readelf -h
    asks "$program" "binding at its start" 'BIND_NOW' readelf -d
    asks "$program" "read-only relocations" 'GNU_RELRO' readelf -lW
    asks "$program" "stack without code" 'GNU_STACK.* RW ' readelf -lW
    grep -q '^CMAKE_BUILD_TYPE:STRING=Debug' "$1/CMakeCache.txt" && continue
    asks "$program" "guard of its stack" '__stack_chk_fail' readelf --dyn-syms -W
    asks "$program" "fortified calls" '_chk@' readelf --dyn-syms -W
    [ "$(uname -m)" = x86_64 ] || continue
    objdump -d --no-show-raw-insn "$program" >"$scratch/$name"
    asks "$scratch/$name" "probes of a large piece of the stack" 'orq *\$0x0,' cat
    # Two or three of them come with the start of every program of the system.
    [ "$(grep -c endbr64 "$scratch/$name")" -gt 100 ] || { echo "$name has no marked targets of jumps"; exit 1; }
done
