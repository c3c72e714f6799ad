# What `make install` puts under the prefix: library, public headers, tool, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

# Tool and library lie in the build folder as under the prefix, so that the tool is linked with one search path for both
# places: where CMake is to rewrite the path at installation, it ends the build folder's with an empty entry, which the
# loader takes for the working directory.
if(PROJECT_IS_TOP_LEVEL OR ORVEX_BUILD_TOOLS) # a project around may have its own folder for libraries
  set_target_properties(Orvex_Alignment PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
endif()

install(TARGETS Orvex_Alignment EXPORT Orvex_AlignmentTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES include/Orvex_Alignment.h include/Orvex_Alignment_Stages.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(ORVEX_BUILD_TOOLS)
  file(RELATIVE_PATH to_library ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(orvex-align PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_BINDIR}
    BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN/${to_library}")
  install(TARGETS orvex-align RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Orvex_Alignment)
install(EXPORT Orvex_AlignmentTargets NAMESPACE Orvex_Alignment:: DESTINATION ${package_folder})
configure_package_config_file(cmake/Orvex_AlignmentConfig.cmake.in
  ${PROJECT_BINARY_DIR}/Orvex_AlignmentConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/Orvex_AlignmentConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/Orvex_AlignmentConfig.cmake
  ${PROJECT_BINARY_DIR}/Orvex_AlignmentConfigVersion.cmake DESTINATION ${package_folder})

# Relative to itself, so that the prefix can be chosen at installation.
file(RELATIVE_PATH to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/Orvex_Alignment.pc.in Orvex_Alignment.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/Orvex_Alignment.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
