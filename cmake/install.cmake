# What is installed where, the package that other projects find it by, and the Debian package.
include(CMakePackageConfigHelpers)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

# The stand-in and the plug-ins are nobody else's to link by default, so they have a folder of their own.
set(plugin_folder ${CMAKE_INSTALL_LIBDIR}/styledtext)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/StyledText)
set_target_properties(platform StyledTextZKT SiblingsZKT PROPERTIES INSTALL_RPATH "$ORIGIN")
file(RELATIVE_PATH plugins_from_tool /${CMAKE_INSTALL_BINDIR} /${plugin_folder})
set_target_properties(styledtext PROPERTIES INSTALL_RPATH "$ORIGIN/${plugins_from_tool}")
target_include_directories(platform INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/styledtext>)

foreach(target platform StyledTextZKT SiblingsZKT)
  add_library(StyledText::${target} ALIAS ${target})
endforeach()
add_executable(StyledText::styledtext ALIAS styledtext)

install(TARGETS platform StyledTextZKT SiblingsZKT styledtext EXPORT StyledText
        LIBRARY DESTINATION ${plugin_folder} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY platform DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/styledtext FILES_MATCHING PATTERN *.h
        PATTERN macos EXCLUDE)

install(EXPORT StyledText FILE StyledTextTargets.cmake NAMESPACE StyledText:: DESTINATION ${package_folder})
configure_package_config_file(cmake/StyledTextConfig.cmake.in StyledTextConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(StyledTextConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/StyledTextConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/StyledTextConfigVersion.cmake
        DESTINATION ${package_folder})
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/styledtext.pc.in styledtext.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/styledtext.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The completion is the command line's own.
add_custom_command(OUTPUT styledtext.bash COMMAND styledtext completion > styledtext.bash DEPENDS styledtext VERBATIM)
add_custom_target(completion ALL DEPENDS styledtext.bash)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/styledtext.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME styledtext)

install(DIRECTORY editors DESTINATION ${CMAKE_INSTALL_DATADIR}/styledtext)
set(document_folder ${CMAKE_INSTALL_DATADIR}/doc/styledtext)
install(DIRECTORY examples DESTINATION ${document_folder})
install(DIRECTORY docs DESTINATION ${document_folder} FILES_MATCHING PATTERN *.md PATTERN *.png)
install(FILES README.md DESTINATION ${document_folder})
install(FILES LICENSE DESTINATION ${document_folder} RENAME copyright)

if(PROJECT_IS_TOP_LEVEL)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGE_NAME styledtext)
  set(CPACK_PACKAGE_CONTACT "The maintainers of ZKT Styled Text")
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "styled text for host programs, and a command line that converts documents")
  set(CPACK_PACKAGE_DESCRIPTION
      "Attributed strings, attachments, file wrappers and shadows for programs of a BASIC dialect, on a platform of its own.
The command line runs such programs, and converts, inspects and shows documents: RTF, RTFD, HTML, Word, OpenDocument, web
archives, plain text and PDF.")
  set(CPACK_STRIP_FILES ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION text)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
  # The faces that the platform's families are, and those for other scripts.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-urw-base35, fonts-dejavu-core")
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-droid-fallback, fonts-lohit-deva, fonts-tlwg-loma-otf, fonts-noto-color-emoji")
  include(CPack)
endif()
