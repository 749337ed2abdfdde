#!/usr/bin/env bash
# Makes small changes to the engines, entry rules and reports of src/FOLDER (or of all folders), one at a time, and
# lists those that no test notices: a comparison's boundary, + for -, * for /, && for ||, a constant by one, a
# statement left out.
#
#   tools/mutate.sh [--again] FOLDER|all [FILES]
#
#   --again   only the changes that the last run with this FOLDER has listed: after new tests
#   FILES     only in files whose names match this regular expression; else in all but pictures, steps and meanings
#
# A copy of the project in build/mutate holds all changes at once, and a run is told which of them is active, so that
# it is built only once (tools/mutation/). A change is tried against the tests that come by its place: first those of
# tests/FOLDER, then all others. A test that crashes or goes on for ten times its time has noticed.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

[ $# -gt 0 ] || { sed -n '2,/^set/{/^#/s/^# \{0,1\}//p}' "$0" >&2; exit 2; }
need_packages "${TEST_PACKAGES[@]}" git python3 python3-clang-14
mkdir -p build/mutate
exec /usr/bin/python3 -B tools/mutation/mutate.py build/mutate "$@"
