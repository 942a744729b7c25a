#!/usr/bin/env bash
# Writes styled text as RTF and has LibreOffice say what it reads: the same text, and the styles by its own names.
# Exit status 77 (skipped) where LibreOffice is not installed.
set -eu
tool=$1
here=$(cd "$(dirname "$0")" && pwd)
command -v soffice >/dev/null || { echo "skipped: LibreOffice (soffice) is not installed"; exit 77; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
"$tool" run "$here/styles.bas" >text.expected
soffice "-env:UserInstallation=file://$scratch/profile" --headless --convert-to 'txt:Text (encoded):UTF8' styles.rtf >/dev/null 2>&1
soffice "-env:UserInstallation=file://$scratch/profile" --headless --convert-to fodt styles.rtf >/dev/null 2>&1
diff -u text.expected <(sed '1s/^\xEF\xBB\xBF//; s/\r$//' styles.txt)

# hasProperty TEXT ELEMENT PROPERTY: the first ELEMENT (span or p) that begins with the text has an automatic style with
# the property.
hasProperty() {
  local name
  name=$(grep -oP "<text:$2 text:style-name=\"\K[^\"]+(?=\">(<[^>]*>)*$1)" styles.fodt | head -1)
  [ -n "$name" ] || { echo "no $2 begins with '$1'"; exit 1; }
  grep -oP "<style:style style:name=\"$name\".*?</style:style>" <(tr -d '\n' <styles.fodt) | grep -qF "$3" ||
    { echo "'$1' lacks $3"; exit 1; }
}
style() { hasProperty "$1" span "$2"; }
paragraph() { hasProperty "$1" p "$2"; }
style bold 'fo:font-weight="bold"'
style italic 'fo:font-style="italic"'
style times 'fo:font-size="18pt"'
style times 'style:font-name="Times"'
style typed 'style:font-name="Courier"'
style underlined 'style:text-underline-style="solid"'
style red 'fo:color="#ff0000"'
style 'heavy slanted' 'fo:font-weight="bold"'
style 'heavy slanted' 'fo:font-style="italic"'
style marked 'fo:background-color="#ffff00"'
paragraph 'in the middle' 'fo:text-align="center"'
paragraph 'to the right' 'fo:text-align="end"'
grep -qP '<text:p text:style-name="Standard">(<[^>]*>)*last line' styles.fodt || { echo "the last line is aligned"; exit 1; }
style 'last line' 'fo:font-size="24pt"'
grep -q 'xlink:href="http://example.org/page?a=1&amp;b=2"' styles.fodt || { echo "the link is not there"; exit 1; }
