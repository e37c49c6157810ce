# What `cmake --install` copies: library, public headers, CMake package and pkg-config file.
#
# Components: ORVALIX_Runtime is what programs need to run, ORVALIX_Development what is needed to
# build them. ORVALIX_QtRuntime and ORVALIX_QtDevelopment are the same of the Qt host, ORVALIX_Tools
# the programs.

include(CMakePackageConfigHelpers)

set(_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ORVALIX)

install(TARGETS ORVALIX EXPORT ORVALIXTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ORVALIX_Runtime
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ORVALIX_Runtime
                NAMELINK_COMPONENT ORVALIX_Development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ORVALIX_Development)
install(EXPORT ORVALIXTargets NAMESPACE ORVALIX:: DESTINATION ${_package_dir}
        COMPONENT ORVALIX_Development)

orvalix_public_headers(_headers)
foreach(_header IN LISTS _headers)
  get_filename_component(_folder ${_header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/${_header}
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${_folder} COMPONENT ORVALIX_Development)
endforeach()

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/package/ORVALIXConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/ORVALIXConfig.cmake
  INSTALL_DESTINATION ${_package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/ORVALIXConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/ORVALIXConfig.cmake
        ${PROJECT_BINARY_DIR}/package/ORVALIXConfigVersion.cmake
        DESTINATION ${_package_dir} COMPONENT ORVALIX_Development)

# orvalix_install_pc_file(<template> <component>): a file for pkg-config.
#
# The installed tree can be moved: its files find each other relative to where they lie.
function(orvalix_install_pc_file template component)
  file(RELATIVE_PATH ORVALIX_PC_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
  string(REGEX REPLACE "/$" "" ORVALIX_PC_PREFIX "${ORVALIX_PC_PREFIX}")
  get_filename_component(name ${template} NAME_WLE)
  configure_file(${template} ${PROJECT_BINARY_DIR}/package/${name} @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/package/${name}
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()

set(ORVALIX_PC_CFLAGS "-I\${includedir}")
set(ORVALIX_PC_REQUIRES "")
if(NOT BUILD_SHARED_LIBS)
  # A static library leaves it to the program to link what the library needs, also when pkg-config
  # isn't told --static: there is no other library.
  string(APPEND ORVALIX_PC_CFLAGS " -DORVALIX_STATIC")
  set(ORVALIX_PC_REQUIRES "opengl egl glu freetype2 fontconfig libpng")
endif()
orvalix_install_pc_file(${PROJECT_SOURCE_DIR}/cmake/package/orvalix.pc.in ORVALIX_Development)
