#!/usr/bin/env bash
# Every link inside the documents leads to a file that is there and, in a page, to a heading that it has.
set -u
cd "$(dirname "$0")/../.."
failed=0

anchors() {
  sed -n 's/^##* //p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 -]//g; s/ /-/g'
}

for page in ./*.md docs/*.md docs/reference/*.md fuzz/*.md; do
  [ -f "$page" ] || continue
  while read -r target; do
    file=${target%%#*} anchor=
    [[ $target == *#* ]] && anchor=${target#*#}
    [ -z "$file" ] && file=$(basename "$page")
    file=$(dirname "$page")/$file
    if [ ! -e "$file" ]; then
      echo "$page: there is no $target" && failed=1
    elif [ -n "$anchor" ] && ! anchors "$file" | grep -qxF "$anchor"; then
      echo "$page: there is no heading for $target" && failed=1
    fi
  done < <(sed '/^```/,/^```/d' "$page" | grep -oP '\]\(\K[^)\s]+' | grep -v '^https\?:' | sort -u)
done
exit $failed
