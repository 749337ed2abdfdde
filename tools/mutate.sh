#!/usr/bin/env bash
# Makes small changes to the engines, entry rules and reports of a folder of src/, one by one, and lists those
# that no test notices: a comparison, a constant by one, a dropped statement, an operator.
#
#   tools/mutate.sh FOLDER [SHARE [FILES]]
#
#   SHARE   try every SHARE-th change only (default 1: all)
#   FILES   only in files whose names match this regular expression
#
# A change that does not compile does not count. The tests of tests/FOLDER run first, then the sessions that
# choose one of its modules.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

folder=${1:?"which folder of src/?"}
share=${2:-1}
files=${3:-}
[ -d "src/$folder" ] || { echo "there is no src/$folder" >&2; exit 2; }

need_packages "${TEST_PACKAGES[@]}" python3-minimal git
copy=build/mutate/$folder
rm -rf "$copy/src" "$copy/tests" "$copy/docs"
mkdir -p "$copy"
git ls-files -z | xargs -0 cp --parents -t "$copy"
cd "$copy"
cmake --preset dev -DVANTREL_WERROR=OFF -DCMAKE_CXX_FLAGS_DEBUG=-O0 >/dev/null
cmake --build --preset dev >build/first.log
exec python3 tools/mutate.py "$folder" "$share" "$files"
