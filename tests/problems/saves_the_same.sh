#!/usr/bin/env bash
# saves_the_same.sh PLAYER PROBLEM: a sample problem opens in each module of its extension and saves as the same
# bytes.
set -euo pipefail
player=$1 problem=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
extension=${problem##*.}
cp "$problem" "$scratch/given.$extension"

save='menu mnuFileSave'
case $extension in
    LPM) modules='1 4' ;;
    TRN) modules=2 ;;
    ASN) modules=3 ;;
    'S&S') modules='5 6' ;;
    CPM) modules=7 ;;
    INV) modules=8 save='click cmdSave' ;;
    WLM) modules=9 save='click cmdSave' ;;
    DSN) modules=10 ;;
    FOR) modules=11 ;;
    MRK) modules=12 ;;
    *) echo "no module has $extension"; exit 1 ;;
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
