#!/usr/bin/env bash
# What comes out on paper: 56 lines of a linear programming report on one sheet, no blank sheet at the end of a
# decision report, margins of half an inch beside a report of at most 72 columns.
#
#   paper.sh PLAYER
set -euo pipefail
command -v pdfinfo >/dev/null && command -v pdftotext >/dev/null || { echo "no tools for PDF here"; exit 0; }

player=$(realpath "$1")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
failed=

# expect WHAT IS SHOULD
expect() {
    [ "$2" = "$3" ] || { echo "$1: $2 instead of $3"; failed=yes; }
}

pages() { pdfinfo "$1" | sed -n 's/^Pages: *//p'; }

# The share of a point is cut off: left edge of the first character, and what is left beside the last one.
margins() {
    pdftotext -bbox "$1" - | awk -F'"' '
        /<page / { wide = $2 }
        /<word / { if (!least || $2 < least) least = $2; if ($6 > most) most = $6 }
        END { printf "%d %d", least, wide - most }'
}

# Maximise the sum of 53 variables, one constraint: the sheet with the table of variables is full to its last line.
{
    echo 'choose 1'
    echo 'menu mnuFileNew'
    echo 'type txtConstraints "1"'
    echo 'type txtVariables "53"'
    echo 'click optMaximize'
    echo 'click cmdOK'
    for j in $(seq 53); do
        echo "cell Grid(0) 1 $j \"1\""
        echo "cell Grid(1) 1 $j \"1\""
    done
    echo 'cell Grid(1) 1 54 "<"'
    echo 'cell Grid(1) 1 55 "9"'
    echo 'key Left'
    echo 'menu mnuSolutionSolve'
    echo 'menu mnuSolutionPrinttoPrinter'
    echo 'printer "linear.pdf"'
} >linear.play
"$player" linear.play >/dev/null
# The problem; the optimal solution on two sheets, its constraint behind it; the coefficient ranges on two, the
# first of 4 + 52 lines; the right-hand side.
expect 'sheets of the linear program' "$(pages linear.pdf)" 7
fullest=$(pdftotext -layout linear.pdf - | awk 'BEGIN { RS = "\f" } { n = split($0, l, "\n") - 1; if (n > most) most = n } END { print most }')
expect 'lines of the fullest sheet' "$fullest" 56

cat >decision.play <<'END'
choose 10
menu mnuFileOpen
file "decision.DSN"
menu mnuSolutionSolve
click optMaximize
click Optcriterion(0)
click cmdOK
menu mnuSolutionPrinttoPrinter
printer "decision.pdf"
END
printf '0,2,2,0,0,"NO","NO"\r\n1\r\n2\r\n3\r\n4\r\n' >decision.DSN
"$player" decision.play >/dev/null
expect 'sheets of the decision report' "$(pages decision.pdf)" 2

read -r left right <<<"$(margins decision.pdf)"
[ "$left" -ge 36 ] && [ "$right" -ge 36 ] || { echo "margins of $left and $right points"; failed=yes; }
[ -z "$failed" ]
