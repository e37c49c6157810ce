# What `cmake --install` copies: library, public headers, CMake package and pkg-config file.

include(CMakePackageConfigHelpers)

set(_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ORVALIX)

install(TARGETS ORVALIX EXPORT ORVALIXTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT ORVALIXTargets NAMESPACE ORVALIX:: DESTINATION ${_package_dir})

orvalix_public_headers(_headers)
foreach(_header IN LISTS _headers)
  get_filename_component(_folder ${_header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/${_header}
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${_folder})
endforeach()

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/package/ORVALIXConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/ORVALIXConfig.cmake
  INSTALL_DESTINATION ${_package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/ORVALIXConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/ORVALIXConfig.cmake
        ${PROJECT_BINARY_DIR}/package/ORVALIXConfigVersion.cmake DESTINATION ${_package_dir})

# The installed tree can be moved: its files find each other relative to where they lie.
file(RELATIVE_PATH ORVALIX_PC_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" ORVALIX_PC_PREFIX "${ORVALIX_PC_PREFIX}")
set(ORVALIX_PC_CFLAGS "-I\${includedir}")
set(ORVALIX_PC_REQUIRES "")
if(NOT BUILD_SHARED_LIBS)
  # A static library leaves it to the program to link what the library needs.
  string(APPEND ORVALIX_PC_CFLAGS " -DORVALIX_STATIC")
  set(ORVALIX_PC_REQUIRES "opengl egl glu freetype2 fontconfig libpng")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/package/orvalix.pc.in
               ${PROJECT_BINARY_DIR}/package/orvalix.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/orvalix.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
