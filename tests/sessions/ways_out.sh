#!/usr/bin/env bash
# ways_out.sh PLAYER PROBLEMS: Cancel, Escape and the window's close button are the same way out of every dialog
# and form. A box that is half typed stands in none of them. Where the way out asks, No goes back to the box,
# which Solve or OK then checks; Yes leaves.
set -euo pipefail
player=$1 problems=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The road to a dialog, its box, what is typed there, its Cancel and OK; "asks" where Cancel asks.
dialogs() {
    local module
    for module in 2 3 5 6 11 12; do
        echo "choose $module;menu mnuFileNew|txtAnswer(0)|999|cmdCancel|cmdOK|asks"
    done
    echo 'choose 8;menu mnuFileNew;pick lstModelSelection #4;click cmdOK|txtAnswer(0)|999|cmdCancel|cmdOK|asks'
    echo 'choose 8;menu mnuFileNew|||cmdCancel||'
    echo 'choose 9;menu mnuFileNew|||cmdCancel||'
    for module in 1 4; do
        echo "choose $module;menu mnuFileNew|txtVariables|-7|cmdCancel|cmdOK|"
    done
    echo 'choose 7;menu mnuFileNew|txtNumActivities|-7|cmdCancel|cmdOK|'
    echo 'choose 10;menu mnuFileNew|txtNumStates|-7|cmdCancel|cmdOK|'
    local form=(_ 'txtEOQ(0)' 'txtProdLot(1)' 'txtPlannedShortages(2)' '' 'txtStdDev' 'txtLargeValue')
    local model
    for model in 1 2 3 5 6; do
        echo "choose 8;menu mnuFileNew;pick lstModelSelection #$model;click cmdOK|${form[model]}|-7|cmdCancel|cmdSolve|asks"
    done
    echo 'choose 8;menu mnuFileNew;pick lstModelSelection #4;click cmdOK;type txtAnswer(0) "2";click cmdOK|txtMinQty(1)|-7|cmdCancel|cmdSolve|asks'
    for model in 1 2 3 4 5; do
        echo "choose 9;menu mnuFileNew;pick lstModelSelection #$model;click cmdOK|txt_WL(1)|-7|cmdCancel|cmdSolve|asks"
    done
    echo 'choose 2;menu mnuFileOpen;file "Coffee.TRN";menu mnuSolutionSolve|||cmdCancel||'
    echo 'choose 3;menu mnuFileOpen;file "Relay.ASN";menu mnuSolutionSolve|||cmdCancel||'
    echo 'choose 4;menu mnuFileOpen;file "Crews.LPM";menu mnuSolutionSolve|||cmdCancel||'
    echo 'choose 5;menu mnuFileOpen;file "Ambulance.S&S";menu mnuSolutionSolve|txtAnswer(1)|-7|cmdCancel|cmdOK|'
    for module in Buses Vineyard; do
        echo "choose 10;menu mnuFileOpen;file \"$module.DSN\";menu mnuSolutionSolve|||cmdCancel||"
    done
    echo 'choose 11;menu mnuFileOpen;file "Museum.FOR";menu mnuSolutionSolve|txtValue(0)|-7|CmdCancel|CmdSolve|'
    echo 'choose 1;menu mnuFileOpen;file "Feed.LPM";menu mnudispeditsubs(7)|||cmdCancel||'
}

# script WAY: the dialog of the line read, left by the way.
script() {
    tr ';' '\n' <<<"$road"
    [ -z "$box" ] || echo "type $box \"$typed\""
    if [ -n "$asks" ]; then
        printf '%s\n' "$1" 'answer No' show "click $ok" 'answer OK' show "$1" 'answer Yes'
    else
        echo "$1"
    fi
    printf '%s\n' session show
}

questions=0 count=0
while IFS='|' read -r road box typed cancel ok asks; do
    count=$((count + 1))
    [ -z "$asks" ] || questions=$((questions + 1))
    for way in "click $cancel" 'key Escape' close; do
        mkdir -p "$scratch/${way%% *}"
        script "$way" >"$scratch/${way%% *}/$(printf %02d "$count").play"
    done
done < <(dialogs)

for way in click key close; do
    "$player" --folder "$problems" "$scratch/$way"/*.play >"$scratch/$way.raw"
    sed -E 's/^> (click [cC]mdCancel|key Escape|close)$/> LEAVE/' "$scratch/$way.raw" >"$scratch/$way.out"
done

failed=
for way in key close; do
    diff -u --label click --label "$way" "$scratch/click.out" "$scratch/$way.out" || failed=yes
done
stays=$(grep -cE ' text "(999|-7)" focus$' "$scratch/click.out")
[ "$stays" -eq $((2 * questions)) ] || { echo "$stays boxes have the focus behind $questions questions"; failed=yes; }
left=$(grep -c '^> session$' "$scratch/click.out")
[ "$left" -eq "$count" ] || { echo "$left of $count dialogs have been left"; failed=yes; }
[ -z "$failed" ]
