#!/usr/bin/env bash
# Walks the #includes of the sources and fails for one that goes up: a file may include its own folder and the
# folders below it, and only screens know Qt.
#
#   basic < picture < desktop < shell < tableau < the other subsystems < modules.cpp
#                     desktop < qt < the screens < play
#
# frm* files are screens; everything else in the folders of the logic is linked without Qt.
#
#   includes.sh SOURCES
set -euo pipefail
cd "$1"

subsystems="decision forecasting inventory lp markov network project waiting"

# kind_of FILE: the layer that a source belongs to.
kind_of() {
    case "$1" in
        play/*) echo play ;;
        qt/*) echo qt ;;
        */frm*) echo "screen:${1%%/*}" ;;
        */*) echo "logic:${1%%/*}" ;;
        modules.cpp) echo modules ;;
        *) echo program ;;
    esac
}

# below FOLDER: the folders that the logic in this folder may include.
below() {
    case "$1" in
        basic) echo basic ;;
        picture) echo basic picture ;;
        desktop) echo basic picture desktop ;;
        shell) echo basic picture desktop shell ;;
        tableau) echo basic picture desktop shell tableau ;;
        *) echo basic picture desktop shell tableau "$1" ;;
    esac
}

is_qt() { [[ $1 =~ ^\<Q[A-Za-z0-9]+(/.*)?\>$ || $1 =~ ^\<q[a-z]+\.h\>$ ]]; }
is_screen() { [[ $1 =~ /frm[^/]*$ ]]; }
in_list() { [[ " $2 " == *" $1 "* ]]; }

# allowed KIND INCLUDE: whether a file of this kind may include this.
allowed() {
    local kind=$1 include=$2 folder
    if [[ $include == \<* ]]; then
        [[ $kind == logic:* || $kind == modules ]] && is_qt "$include" && return 1
        return 0
    fi
    include=${include//\"/}
    folder=${include%%/*}
    [[ $include == */* ]] || folder=.
    case "$kind" in
        play) return 0 ;;
        program) [ "$folder" != play ] ;;
        qt) in_list "$folder" "basic picture desktop qt" && ! is_screen "$include" ;;
        modules) in_list "$folder" "$(below shell) tableau $subsystems" && ! is_screen "$include" ;;
        screen:*) in_list "$folder" "$(below "${kind#*:}") qt" ;;
        logic:*) in_list "$folder" "$(below "${kind#*:}")" && ! is_screen "$include" ;;
    esac
}

bad=0
walked=0
while IFS= read -r file; do
    kind=$(kind_of "${file#./}")
    while IFS=: read -r line include; do
        walked=$((walked + 1))
        allowed "$kind" "$include" && continue
        echo "${file#./}:$line: must not include $include"
        bad=1
    done < <(sed -nE '/^[[:space:]]*#[[:space:]]*include/{=;p}' "$file" |
             sed -E 'N;s/\n[[:space:]]*#[[:space:]]*include[[:space:]]*([<"][^>"]*[>"]).*/:\1/')
done < <(find . -name '*.cpp' -o -name '*.h' | sort)
[ "$walked" -gt 0 ] || { echo "no #include was found in $1"; bad=1; }
exit $bad
