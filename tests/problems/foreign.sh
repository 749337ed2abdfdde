#!/usr/bin/env bash
# foreign.sh PLAYER TOUR PROBLEMS: the tour over all modules writes nothing but the files that it names, and gives the
# same transcripts and reports under a decimal comma, Turkish, right-to-left and plain C accounts without a home and
# without fonts, at the other end of the clock.
set -euo pipefail
player=$1 tour=$2 problems=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/home" "$scratch/temporary" "$scratch/locales"
mkdir -m 700 "$scratch/runtime"
echo '<fontconfig></fontconfig>' >"$scratch/no-fonts.conf"

# play NAME VARIABLE...: the tour in a folder that always has the same path, kept under the name afterwards.
play() {
    local name=$1 folder=$scratch/folder
    shift
    mkdir "$folder"
    cp -r "$problems" "$folder/Problems"
    (cd "$folder" && env "$@" TMPDIR="$scratch/temporary" XDG_RUNTIME_DIR="$scratch/runtime" \
        "$player" --folder "$folder" "$tour"/*.play >"$scratch/transcript" 2>"$scratch/errors") ||
        { cat "$scratch/errors"; echo "$name: the tour stopped"; exit 1; }
    mv "$scratch/transcript" "$folder/transcript"
    mv "$folder" "$scratch/$name"
}

play here HOME="$scratch/home" XDG_CONFIG_HOME= XDG_CACHE_HOME= XDG_DATA_HOME=
strays=$(find "$scratch/home" "$scratch/temporary" "$scratch/runtime" -mindepth 1)
[ -z "$strays" ] || { echo "written though nobody asked: $strays"; exit 1; }

# The scripts name what they save: nothing else stands in the folder, and the problems are as they were.
diff -r "$problems" "$scratch/here/Problems"
sed -nE 's/^(file|shot|printer) "(.*)"$/.\/\2/p' "$tour"/*.play >"$scratch/named"
(cd "$scratch/here" && find . -type f ! -path './Problems/*' ! -name transcript) >"$scratch/written"
while IFS= read -r file; do # a name may have got its extension from the dialog
    grep -qxF -e "$file" -e "${file%.*}" "$scratch/named" || { echo "$file: written though not named"; exit 1; }
done <"$scratch/written"
[ "$(wc -l <"$scratch/written")" -gt 60 ]

failed=
tried=0
for locale in de_DE tr_TR ar_EG C; do
    name=$locale.UTF-8
    if [ "$locale" != C ] && ! localedef -i "$locale" -f UTF-8 "$scratch/locales/$name" 2>/dev/null; then
        echo "no locale $locale can be made here; the toolkit takes its name all the same"
    fi
    [ "$locale" != C ] || name=C
    play "$locale" -u HOME -u XDG_CONFIG_HOME -u XDG_CACHE_HOME -u XDG_DATA_HOME -u LANG -u LANGUAGE \
        LC_ALL="$name" LOCPATH="$scratch/locales" TZ=Pacific/Kiritimati FONTCONFIG_FILE="$scratch/no-fonts.conf"
    diff -r --exclude='*.png' "$scratch/here" "$scratch/$locale" || { echo "$locale: another session"; failed=yes; }
    tried=$((tried + 1))
done
[ "$tried" -eq 4 ] && [ -z "$failed" ]
