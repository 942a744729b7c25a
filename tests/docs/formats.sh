#!/usr/bin/env bash
# The tables of docs/formats.md say what formats.bas measures: formats.sh STYLEDTEXT
set -u
tool=$(realpath "$1") here=$(realpath "$(dirname "$0")")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
ln -s "$here/../../examples" examples
"$tool" run --check-references "$here/formats.bas" >measured || exit 1
grep '^| [A-Z]' "$here/../../docs/formats.md" | diff -u - measured && exit 0
echo "docs/formats.md says something else than what comes back" >&2
exit 1
