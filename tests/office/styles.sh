# Sourced with the command line's path in $tool: styles.bas in a format that LibreOffice reads, and what it makes of it.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
command -v soffice >/dev/null || { echo "skipped: LibreOffice (soffice) is not installed"; exit 77; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
"$tool" run "$here/styles.bas" >text.expected

# reads FORMAT [OPTIONS]: LibreOffice reads styles.FORMAT; the text must be that of the document.
reads() {
  local format=$1 to
  shift
  for to in 'txt:Text (encoded):UTF8' 'fodt:OpenDocument Text Flat XML'; do
    soffice "-env:UserInstallation=file://$scratch/profile" --headless "$@" --convert-to "$to" "styles.$format" >/dev/null 2>&1
  done
  diff -u text.expected <(sed '1s/^\xEF\xBB\xBF//; s/\r$//' styles.txt)
}

# The style of the name, and the styles that it comes from.
definitions() {
  local name=$1 definition
  while [ -n "$name" ]; do
    definition=$(grep -oP "<style:style style:name=\"$name\"([^>]*/>|.*?</style:style>)" <(tr -d '\n' <styles.fodt) | head -1)
    echo "$definition"
    name=$(grep -oP 'style:parent-style-name="\K[^"]+' <<<"$definition" | head -1)
  done
}

# hasProperty TEXT ELEMENTS PROPERTY: an element (of the names, with | between) that begins with the text has a style with
# the property.
hasProperty() {
  local name names
  names=$(grep -oP "<text:($2) text:style-name=\"\K[^\"]+(?=\">(<[^>]*>)*$1)" styles.fodt)
  [ -n "$names" ] || { echo "no $2 begins with '$1'"; exit 1; }
  for name in $names; do
    definitions "$name" | grep -qF "$3" && return 0
  done
  echo "'$1' lacks $3"
  exit 1
}
style() { hasProperty "$1" 'span|p' "$2"; }
paragraph() { hasProperty "$1" p "$2"; }

# What every format carries.
hasStyles() {
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
  style 'last line' 'fo:font-size="24pt"'
  grep -q 'xlink:href="http://example.org/page?a=1&amp;b=2"' styles.fodt || { echo "the link is not there"; exit 1; }
}
