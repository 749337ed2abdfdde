#!/usr/bin/env bash
# holds_the_report.sh PLAYER SCRIPT: the guide shows the report of a part of the tour as it is. Each block
# ```report NAME of its pages is a run of lines of the report on screen, and together they leave out no line that
# holds a character; each block ```printed NAME is a run of lines of the report as text. Blanks at the end of a
# line do not count.
set -euo pipefail
player=$1 script=$2
here=$(cd "$(dirname "$0")" && pwd)
root=$here/../..
name=$(basename "$script" .play)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp -r "$root/Problems" "$scratch/"

"$player" --folder "$scratch" "$script" >"$scratch/transcript" || { cat "$scratch/transcript"; exit 1; }
sed -n 's/^|//p' "$scratch/transcript" >"$scratch/report"
mv "$scratch/$name.OUT" "$scratch/printed"

for kind in report printed; do
    awk -v heading="$kind $name" -f "$here/blocks.awk" "$root"/docs/guide/*.md >"$scratch/blocks"
    awk -v kind="$kind" '
        { sub(/[ \r]+$/, "") }
        NR == FNR { line[++lines] = $0; next }
        $0 != "---" { block[++size] = $0; next }
        {
            found = 0
            for (first = 1; first + size - 1 <= lines && !found; ++first) {
                for (i = 1; i <= size && line[first + i - 1] == block[i]; ++i);
                if (i <= size) continue
                found = 1
                for (i = 1; i <= size; ++i) shown[first + i - 1] = 1
            }
            if (!found) { print "not in the " kind ":"; for (i = 1; i <= size; ++i) print block[i]; failed = 1 }
            size = 0
        }
        END {
            if (kind == "report")
                for (i = 1; i <= lines; ++i)
                    if (line[i] != "" && !shown[i]) { print "not in the guide: " line[i]; failed = 1 }
            exit failed
        }' "$scratch/$kind" "$scratch/blocks"
done
