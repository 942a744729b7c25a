#!/usr/bin/env bash
# Makes docs/reference from the classes' records and the texts in docs/reference/prose: docs/reference.sh [STYLEDTEXT]
# With --check first, changes nothing and fails when the pages are stale: docs/reference.sh --check [STYLEDTEXT]
set -eu
check=
if [ "${1-}" = --check ]; then check=1; shift; fi
tool=$(realpath "${1-$(dirname "$0")/../build/styledtext}")
cd "$(dirname "$0")/.."
if [ -z "$check" ]; then exec "$tool" classes --prose docs/reference/prose --into docs/reference; fi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
"$tool" classes --prose docs/reference/prose --into "$scratch"
diff -ru --exclude=prose docs/reference "$scratch" && exit 0
echo "docs/reference is stale: docs/reference.sh makes it anew" >&2
exit 1
