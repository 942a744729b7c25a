#!/usr/bin/env bash
# Runs a host program and compares what it prints, and how it exits, with the .expected file beside it.
set -u
tool=$1 program=$2
expected=${program%.bas}.expected
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
(cd "$scratch" && "$tool" run --check-references "$program" "$(dirname "$program")") >"$scratch.out" 2>"$scratch.err"
status=$?
trap 'rm -rf "$scratch" "$scratch.out" "$scratch.err"' EXIT
{ cat "$scratch.out"; [ $status -eq 0 ] || printf 'exit status %s\n' "$status"; } | diff -u "$expected" - && exit 0
cat "$scratch.err"
exit 1
