#!/usr/bin/env bash
# Makes the Debian package, unpacks it into an empty root and runs an example from there.
. "$(dirname "$0")/support.sh"
build=$1

for tool in dpkg-shlibdeps file; do
  command -v "$tool" >/dev/null || { echo "$tool is not installed"; exit 77; }
done
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch" >"$scratch/cpack.log" 2>&1 || fail "$(cat "$scratch/cpack.log")"
package=$(echo "$scratch"/styledtext_*.deb)
needed=$(dpkg-deb -f "$package" Depends)
for name in libicu libffi libfontconfig libgdk-pixbuf libharfbuzz libpoppler-cpp libxml2 libzip libplist fonts-urw-base35; do
  [[ $needed == *$name* ]] || fail "the package does not depend on $name: $needed"
done
dpkg-deb -x "$package" "$scratch/root"
run_installed "$scratch/root/usr"
