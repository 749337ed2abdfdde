#!/usr/bin/env bash
# Whether every source is laid out as .clang-format says; --fix lays them out.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format "${mode[@]}"
