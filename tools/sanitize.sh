#!/usr/bin/env bash
# Every test under the address and undefined-behaviour sanitizers. Arguments go to ctest.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

need_packages "${TEST_PACKAGES[@]}"
build_preset asan
exec ctest --preset asan --parallel "$(nproc)" "$@"
