# Shell functions that ./run and ./check share: installing packages that are missing, configuring and building.

# Faces for the platform's families, for the scripts that these lack, and for emoji; 24 MB to fetch.
FONT_PACKAGES="fonts-urw-base35 fonts-dejavu-core fonts-droid-fallback fonts-lohit-deva fonts-tlwg-loma-otf \
fonts-noto-color-emoji"
BUILD_PACKAGES="$FONT_PACKAGES g++ cmake ninja-build pkg-config ccache libicu-dev libffi-dev libfontconfig-dev \
libcli11-dev libpoppler-cpp-dev libgdk-pixbuf-2.0-dev libharfbuzz-dev libdeflate-dev libxml2-dev libzip-dev libplist-dev"
CHECK_PACKAGES="$BUILD_PACKAGES libgtest-dev clang-format binutils git poppler-utils qpdf jq dpkg-dev file"

say() { printf '\033[1m==> %s\033[0m\n' "$*" >&2; }

# Debian packages of the list that are not installed, installed by root or through sudo.
install_packages() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  say "installing ${missing[*]}"
  local as_root=
  [ "$(id -u)" -eq 0 ] || as_root=sudo
  {
    $as_root apt-get update -qq
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
  } >&2
}

# configure PRESET [CMAKE ARGUMENTS]: once; the build itself notices later changes.
configure() {
  local preset=$1 folder
  shift
  folder=$(build_folder "$preset")
  [ -f "$folder/build.ninja" ] && [ $# -eq 0 ] && return 0
  say "configuring ($preset)"
  cmake --preset "$preset" "$@" >&2
}

build_folder() {
  case $1 in
    release) echo build ;;
    macos) echo build-macos ;;
    *) echo "build/$1" ;;
  esac
}

# build PRESET [TARGETS]: says so only when there is something to build.
build() {
  local folder
  folder=$(build_folder "$1")
  shift
  ninja -C "$folder" -n "$@" 2>/dev/null | grep '^\[' | grep -qv 'Re-checking globbed' || return 0
  say "building"
  ninja -C "$folder" --quiet "$@" >&2
}
