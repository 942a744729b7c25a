# The library as a macOS plug-in: its sources and nothing of the stand-ins, linked against lists of what it uses.

# Keeping frame pointers is the platform's habit: its tools walk the stack by them, and unwind tables stay compact.
add_compile_options(-g0 -fno-omit-frame-pointer -Wall -Wextra -Wpedantic -Wconversion -Werror -fvisibility=hidden
                    -fvisibility-inlines-hidden)
include_directories(${CMAKE_SOURCE_DIR})

# The linker is called by itself; what a stub does not list is an undefined symbol.
string(JOIN " " CMAKE_CXX_CREATE_SHARED_LIBRARY ${MACOS_LINKER} -dylib -arch x86_64 -dead_strip
       -platform_version macos ${MACOS_VERSION} ${MACOS_VERSION} -install_name @rpath/<TARGET_NAME>.dylib
       <LINK_FLAGS> -o <TARGET> <OBJECTS> <LINK_LIBRARIES>)

# A dylib that exports one symbol.
function(macos_plugin name export)
  add_library(${name} SHARED ${ARGN})
  set_target_properties(${name} PROPERTIES PREFIX "" LINKER_LANGUAGE CXX LINK_OPTIONS "-exported_symbol;${export}"
                        LINK_DEPENDS "${macos_stubs}")
  target_link_libraries(${name} PRIVATE ${macos_stubs})
endfunction()

file(GLOB macos_stubs CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/macos/*.tbd)
sources_of(library_sources plugin bridge attributed html classes)
macos_plugin(StyledTextZKT _REALPluginMain ${library_sources} ${CMAKE_SOURCE_DIR}/plugin/macos/guard.mm)

# For the tests of the calling convention.
macos_plugin(Probe _probe ${CMAKE_SOURCE_DIR}/tests/macos/probe/probe.cpp ${CMAKE_SOURCE_DIR}/plugin/macos/guard.mm)
