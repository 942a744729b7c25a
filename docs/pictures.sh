#!/usr/bin/env bash
# Makes the pictures of the documents from the examples: docs/pictures.sh [STYLEDTEXT]
set -eu
tool=$(realpath "${1-$(dirname "$0")/../build/styledtext}")
docs=$(realpath "$(dirname "$0")")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# About 800 pixels wide, as many as an A4 page has inches at 97 to the inch.
"$tool" run "$docs/../examples/letter.bas"
"$tool" preview out/letter.rtfd -o "$docs/letter.png" --resolution 97
"$tool" run "$docs/../examples/edit.bas"
"$tool" preview out/edited.rtf -o "$docs/edited.png" --resolution 72
ls -l "$docs"/*.png
