#!/usr/bin/env bash
# Runs an example in a folder of its own: it ends well and leaves no host value alive.
set -eu
tool=$1 program=$2
shift 2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
"$tool" run --check-references "$program" "$@"
