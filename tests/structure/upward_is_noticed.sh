#!/usr/bin/env bash
# The walk over the #includes finds every wrong one in a small tree of its own.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
if given=$("$here/includes.sh" "$here/upward"); then
    echo "the tree has passed"
    exit 1
fi
diff -u "$here/upward.out" <(echo "$given")
