#!/usr/bin/env bash
# Runs what a page of the documents shows: run_page.sh STYLEDTEXT PAGE
#
# All of a page runs in one folder with examples and build in it, from its first block to its last. A block of host language (```vb) is a program; one
# that begins with a comment of a file name, as in "' hello.bas", is also kept under that name. A block of commands (```sh)
# runs as it stands, with the programs styledtext and ./run in reach. A block of text (```text) right behind either is what
# it prints.
set -u
tool=$(realpath "$1") page=$2
root=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
work=$scratch/work
mkdir -p "$work" "$scratch/bin"
ln -s "$root/examples" "$work/examples"
ln -s "$(dirname "$tool")" "$work/build"
printf '#!/bin/sh\nexec "%s" "$@"\n' "$tool" | tee "$work/run" >"$scratch/bin/styledtext"
chmod +x "$work/run" "$scratch/bin/styledtext"
export PATH="$scratch/bin:$PATH"

# Blocks become files NUMBER.LANGUAGE, the text behind one NUMBER.text; NUMBER.line says where it begins.
awk -v folder="$scratch" '
  !inside && /^```(vb|sh|text)$/ {
    inside = 1
    language = substr($0, 4)
    if (language != "text") { ++number; printf "%d", NR >(folder "/" number ".line"); touching = 1 }
    file = (language == "text" && !touching) ? "/dev/null" : folder "/" number "." language
    printf "" >file
    next
  }
  inside && /^```$/ { inside = 0; close(file); if (language == "text") touching = 0; next }
  inside { print >file; next }
  /^```/ { other = !other; touching = 0; next }
  !other && NF { touching = 0 }
' "$page"

failed=0 count=0
for place in $(ls "$scratch" | grep '\.line$' | sort -n); do
  number=${place%.line} line=$(cat "$scratch/$place") count=$((count + 1))
  block=$scratch/$number
  if [ -f "$block.vb" ]; then
    name=$(sed -n "1s/^' \([a-z_]*\.bas\)$/\1/p" "$block.vb")
    cp "$block.vb" "$work/${name:-program.bas}"
    command="styledtext run --check-references ${name:-program.bas}"
  else
    command="set -eu; . $block.sh"
  fi
  (cd "$work" && bash -c "$command") >"$block.out" 2>"$block.err"
  status=$?
  if [ $status -ne 0 ]; then
    echo "$page:$line: exit status $status" && cat "$block.out" "$block.err" && failed=1
  elif [ -f "$block.text" ] && ! diff -u "$block.text" "$block.out" >"$block.diff"; then
    echo "$page:$line: prints something else" && cat "$block.diff" && failed=1
  fi
done
if [ $count -eq 0 ]; then echo "$page: nothing to run" && exit 1; fi
exit $failed
