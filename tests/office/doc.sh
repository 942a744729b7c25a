#!/usr/bin/env bash
# Writes styled text as a Word document and has LibreOffice say what it reads: the same text, and the styles by its own names.
# Exit status 77 (skipped) where LibreOffice is not installed.
set -eu
tool=$1
. "$(dirname "$0")/styles.sh"
"$tool" convert styles.rtf -o styles.doc
reads doc
hasStyles
