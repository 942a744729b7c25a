#!/usr/bin/env bash
# Installs a build into an empty root, runs an example from there, and builds what other projects would against it.
. "$(dirname "$0")/support.sh"
build=$1

DESTDIR=$scratch/root cmake --install "$build" --prefix /usr >/dev/null
prefix=$scratch/root/usr
run_installed "$prefix"
bash -n "$prefix/share/bash-completion/completions/styledtext"
try_consumer find_package -DCMAKE_PREFIX_PATH="$prefix"
grep -q '^styledtext [0-9]' "$scratch/find_package/version.out"

export PKG_CONFIG_LIBDIR=$(dirname "$(find "$prefix" -name styledtext.pc)")
c++ -std=c++20 "$here/consumer.cpp" -o "$scratch/consumer" $(pkg-config --cflags --libs styledtext) -ldl
"$scratch/consumer" "$(pkg-config --variable=pluginfolder styledtext)/StyledTextZKT.so" | diff -u "$here/consumer.expected" -
