#!/usr/bin/env bash
# Builds the library inside another project. What the build beside it has compiled comes from the compiler's cache.
. "$(dirname "$0")/support.sh"
command -v ccache >/dev/null || { echo "ccache is not installed"; exit 77; }
try_consumer add_subdirectory "$@"
