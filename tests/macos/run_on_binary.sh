#!/usr/bin/env bash
# Runs a test's script when macOS's binary has been built, and is skipped when not.
set -eu
binary=$1
shift
[ -f "$binary" ] || { echo "./check --macos builds the binary"; exit 77; }
exec "$@"
