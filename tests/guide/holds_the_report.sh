#!/usr/bin/env bash
# holds_the_report.sh PLAYER SCRIPT: the guide shows the report of a part of the tour as it is. Each block
# ```report NAME of its pages is a run of lines of the report on screen, and together they leave out no line that
# holds a character, unless blocks ```part NAME, runs of such lines as well, show a part of it on purpose; each block
# ```printed NAME is a run of lines of the report as text, and each block ```meaning NAME of the sentences beside it.
# Blanks at the end of a line do not count. A script without a report is shown by the name of its problem.
set -euo pipefail
player=$1 script=$2
here=$(cd "$(dirname "$0")" && pwd)
root=$here/../..
name=$(basename "$script" .play)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp -r "$root/Problems" "$scratch/"

{ cat "$script"; echo meaning; } >"$scratch/script"
"$player" --folder "$scratch" "$scratch/script" >"$scratch/transcript" || { cat "$scratch/transcript"; exit 1; }
if ! grep -qx '> report' "$scratch/transcript"; then
    problem=$(sed -n 's/^> file "\(.*\)"/\1/p' "$scratch/transcript" | head -n 1)
    grep -qF "\`$problem\`" "$root"/docs/guide/*.md || { echo "the guide does not name $problem"; exit 1; }
    exit 0
fi
sed -n '/^> meaning$/,$s/^|//p' "$scratch/transcript" >"$scratch/meaning"
sed -n '/^> meaning$/q; s/^|//p' "$scratch/transcript" >"$scratch/report"
cp "$scratch/report" "$scratch/part"
mv "$scratch/$name.OUT" "$scratch/printed"

partly=$(grep -qx "\`\`\`part $name" "$root"/docs/guide/*.md && echo 1 || echo 0)
for kind in report part printed meaning; do
    awk -v heading="$kind $name" -f "$here/blocks.awk" "$root"/docs/guide/*.md >"$scratch/blocks"
    awk -v kind="$kind" -v partly="$partly" '
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
            if (kind == "report" && !partly)
                for (i = 1; i <= lines; ++i)
                    if (line[i] != "" && !shown[i]) { print "not in the guide: " line[i]; failed = 1 }
            exit failed
        }' "$scratch/$kind" "$scratch/blocks"
done
