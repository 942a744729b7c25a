#!/usr/bin/env bash
# Runs fuzzers with libFuzzer: run.sh NAME|all [SECONDS] [FOLDER WITH SEEDS...]
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh

name=${1:?which fuzzer}
seconds=${2:-300}
shift $(($# < 2 ? $# : 2))

# The words of a format's reader, as a dictionary for libFuzzer.
words_of() {
  local folders=$1
  case $1 in
    docx | wordml) folders="$1 word_xml" ;;
    webarchive) folders="$1 html" ;;
    language) folders=../../host/language ;;
  esac
  for folder in $folders; do
    grep -rhoE '"[A-Za-z0-9:*_.;/-]{2,24}"' "standin/formats/$folder" 2>/dev/null || true
  done | sort -u
}

run_one() {
  local name=$1 found=build/fuzz/found/$1 crashes=build/fuzz/crashes/$1
  shift
  mkdir -p "$found" "$crashes"
  words_of "$name" >"$found.words"
  local options=()
  [ -s "$found.words" ] && options=(-dict="$found.words")
  say "$name"
  build/fuzz/"${name}_fuzzer" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=4096 -max_len=262144 \
    "${options[@]}" -artifact_prefix="$crashes/" -print_final_stats=1 "$found" "fuzz/corpus/$name" "$@"
}

install_packages $CHECK_PACKAGES clang libclang-rt-14-dev
configure fuzz
build fuzz
if [ "$name" != all ]; then
  run_one "$name" "$@"
  exit
fi
failed=
for fuzzer in build/fuzz/*_fuzzer; do
  name=$(basename "$fuzzer" _fuzzer)
  run_one "$name" "$@" || failed="$failed $name"
done
[ -z "$failed" ] || { say "inputs that fail:$failed"; exit 1; }
