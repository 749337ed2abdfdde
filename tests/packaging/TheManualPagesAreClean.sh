#!/usr/bin/env bash
# The manual pages format without a warning.
set -euo pipefail
for page in "$1"/man/*.1; do
    warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || { echo "$page: $warnings"; exit 1; }
done
