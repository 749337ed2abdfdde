#!/usr/bin/env bash
# Runs the tests with their lines counted and the fuzzers for a while (default 60 s each), and writes
# docs/quality.md. The sections with headings stay: other commands give their figures.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh
seconds=${1:-60}

need_packages "${COVERAGE_PACKAGES[@]}"
build_preset coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage --parallel "$(nproc)" >build/coverage/tests.log || { tail build/coverage/tests.log; exit 1; }
tests=$(sed -n 's/.*tests passed.*out of \([0-9]*\).*/\1/p' build/coverage/tests.log)

# coverage FILE-PATTERN EXCLUDED-PATTERN: lines, covered lines and their share.
gcovr --root . --object-directory build/coverage --filter 'src/' \
    --csv build/coverage/lines.csv -j "$(nproc)" build/coverage >/dev/null
coverage() {
    awk -F, -v yes="$1" -v no="$2" 'NR > 1 && $1 ~ yes && $1 !~ no { all += $2; hit += $3 }
        END { printf "%d | %d | %.1f %%", all, hit, 100 * hit / all }' build/coverage/lines.csv
}
screens='/frm[A-Za-z_]*\.|^src/qt/|^src/forms|^src/program|^src/shell/.*form'
programs='^src/play/|^src/main'

tools/fuzz.sh "$seconds" | tee build/fuzz/summary.log

sections=$(sed -n '/^## /,$p' docs/quality.md)
{
    cat <<END
# Quality in figures

Made by \`tools/quality.sh $seconds\`.

$tests tests passed. The share of lines that they run:

| | lines | run | share |
| --- | --- | --- | --- |
| the logic (\`vantrel_core\`) | $(coverage '^src/' "$screens|$programs") |
| the screens (\`vantrel_ui\`) | $(coverage "$screens" "$programs") |

Inputs that each fuzzer tried in $seconds seconds, under the address and undefined-behaviour sanitizers, without a
finding:

| fuzzer | inputs |
| --- | --- |
END
    awk '{ sub(/:/, "", $1); gsub(/_/, " ", $1); printf "| %s | %s |\n", $1, $2 }' build/fuzz/inputs.log | sort
    echo "| all | $(tail -1 build/fuzz/summary.log | awk '{ print $1 }') |"
    printf '\n%s\n' "$sections"
} >docs/quality.md
echo "Wrote docs/quality.md"
