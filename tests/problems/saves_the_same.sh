#!/usr/bin/env bash
# saves_the_same.sh PLAYER PROBLEM: a sample problem opens in each module of its extension and saves as the same
# bytes.
set -euo pipefail
player=$1 problem=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
extension=${problem##*.}
cp "$problem" "$scratch/given.$extension"

# The numbers of the modules, in whose table the extensions stand in order.
modules=$(grep -o '\.Extension = "[^"]*"' "$(dirname "$0")/../../src/modules.cpp" |
    grep -nF "\"$extension\"" | cut -d: -f1) || { echo "no module has $extension"; exit 1; }
case $extension in
    INV | WLM) save='click cmdSave' ;;  # from the form, which keeps the menus off
    *) save='menu mnuFileSave' ;;
esac

for module in $modules; do
    cat >"$scratch/session.play" <<END
choose $module
menu mnuFileOpen
file "given.$extension"
$save
file "saved$module.$extension"
END
    "$player" --folder "$scratch" "$scratch/session.play" >"$scratch/transcript" ||
        { cat "$scratch/transcript"; exit 1; }
    cmp "$problem" "$scratch/saved$module.$extension" || { diff -a "$problem" "$scratch/saved$module.$extension"; exit 1; }
done
