# Shell functions of the tests of what is installed.
set -eu
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

# run_installed PREFIX: the command line there, with an example from there, needs nothing of the build.
run_installed() {
  local tool=$1/bin/styledtext
  ldd "$tool" | grep -q "libplatform.so => $(realpath "$1")/" || fail "$tool does not find its own platform"
  (
    mkdir -p "$scratch/work" && cd "$scratch/work" && rm -rf ./*
    "$tool" run --check-references "$(find "$1/share" -name letter.bas)"
    "$tool" convert out/letter.rtf -o letter.odt
    "$tool" inspect letter.odt | grep -q NSOpenDocument
  ) || fail "the example does not run"
}

# try_consumer NAME ARGUMENTS...: the project of that folder, configured with the arguments, loads the library.
try_consumer() {
  local name=$1
  shift
  cmake -S "$here/$name" -B "$scratch/$name" -G Ninja "$@" >"$scratch/$name.log" 2>&1 &&
    cmake --build "$scratch/$name" --target try >>"$scratch/$name.log" 2>&1 || fail "$(grep -v "Building CXX" "$scratch/$name.log" | cut -c -300 | tail -30)"
  diff -u "$here/consumer.expected" "$scratch/$name/consumer.out"
}
