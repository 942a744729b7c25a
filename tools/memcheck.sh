#!/usr/bin/env bash
# Runs under valgrind: a call of every member of the library with every argument, and a conversion from and to every format.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
folder=$(realpath "${1:-build}")

check() {
  valgrind --quiet --error-exitcode=1 --num-callers=30 --leak-check=full --errors-for-leak-kinds=definite \
    --show-leak-kinds=definite --suppressions=tests/memcheck.supp "$@"
}

say "memcheck: every member"
check "$folder/library_tests" --gtest_brief=1 --gtest_filter='FaultMatrix.WholeHosts*'

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for format in txt rtf rtfd html doc docx odt wordml webarchive tags pdf; do
  say "memcheck: $format"
  check "$folder/styledtext" convert examples/newsletter.html --to "$format" --into "$work"
  written=$work/$(ls "$work")
  [ "$format" = pdf ] || check "$folder/styledtext" convert "$written" -o "$work/again.txt"
  rm -r "$work"/*
done
