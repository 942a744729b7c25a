#!/usr/bin/env bash
# Runs the tests of the coverage build, and prints how many of the lines of the library and of the readers they ran. Lines
# that were not run are listed in build/coverage/uncovered.txt; shares below the bounds are an error.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
folder=${1:-build/coverage}

find "$folder" -name '*.gcda' -delete
# One test bounds the size of files, which the counts of lines that a process writes at its end would exceed.
ctest --test-dir "$folder" -E '^(fuzz|rules|office|install)\.|ADocumentThatEndsItsProcess' -j "$(nproc)" --output-on-failure >"$folder/tests.log" ||
  { tail -n 40 "$folder/tests.log" >&2; exit 1; }

# share NAME BOUND FILTER...: prints the lines run of the files that the filters choose.
share() {
  local name=$1 bound=$2 filters=()
  shift 2
  for filter in "$@"; do filters+=(--filter "$filter"); done
  say "coverage of the $name"
  gcovr -r . --object-directory "$folder" -j "$(nproc)" "${filters[@]}" --exclude-throw-branches \
    --txt "$folder/$name.txt" --print-summary --fail-under-line "$bound" "$folder"
}

readers=$(ls -d standin/formats/*/ | tr '\n' '|')
status=0
share library 95 '(plugin|bridge|attributed|html|classes)/' || status=1
share readers 85 "(${readers%|})(.*/)?(?!.*writer)[^/]*\$" 'standin/formats/[^/]*$' || status=1
cat "$folder/library.txt" "$folder/readers.txt" >"$folder/uncovered.txt"
exit $status
