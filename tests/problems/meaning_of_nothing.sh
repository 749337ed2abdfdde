#!/usr/bin/env bash
# meaning_of_nothing.sh PROBLEMS: each page of meaning/ has its sample problem.
set -euo pipefail
failed=0
for page in "$(dirname "$0")"/meaning/*.out; do
    problem=$(basename "$page" .out)
    [ -f "$1/$problem" ] || { echo "meaning/$problem.out has no problem in $1"; failed=1; }
done
exit $failed
