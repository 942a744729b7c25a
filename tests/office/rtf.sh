#!/usr/bin/env bash
# Writes styled text as RTF and has LibreOffice say what it reads: the same text, and the styles by its own names.
# Exit status 77 (skipped) where LibreOffice is not installed.
set -eu
tool=$1
. "$(dirname "$0")/styles.sh"
reads rtf
hasStyles
grep -qP '<text:p text:style-name="Standard">(<[^>]*>)*last line' styles.fodt || { echo "the last line is aligned"; exit 1; }
