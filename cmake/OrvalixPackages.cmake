# Packages for Debian and its kin: `cpack` in the build folder, or scripts/package. Each component of
# the installation is a package, so that the library brings neither Qt nor headers.

include(GNUInstallDirs)
find_program(ORVALIX_DPKG_DEB dpkg-deb)
find_program(ORVALIX_DPKG_SHLIBDEPS dpkg-shlibdeps)
mark_as_advanced(ORVALIX_DPKG_DEB ORVALIX_DPKG_SHLIBDEPS)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvalix)
# Each package has a description of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_CONTACT "the ORVALIX authors <authors@orvalix.invalid>"
    CACHE STRING "Maintainer of the packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# What a package links is asked of the packages that are installed here, and, of its own libraries,
# told by those packages below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/orvalix)
if(TARGET ORVALIXQt)
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/hosts/qt)
endif()

# orvalix_package(<component> <name> <section> <summary> <what it holds> [<dependency>...])
macro(orvalix_package component name section summary contents)
  string(TOUPPER ${component} _upper)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${_upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${_upper}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${_upper}_DESCRIPTION "3D business and scientific charts (${summary})
ORVALIX draws three-dimensional business and scientific charts in windows,
on paper, on the clipboard and into files, also where there is no display.

${contents}")
  string(REPLACE ";" ", " CPACK_DEBIAN_${_upper}_PACKAGE_DEPENDS "${ARGN}")
  # Only in the package: a folder of that name would be strange elsewhere.
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
          RENAME copyright COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()

set(CPACK_COMPONENTS_ALL "")
set(_same "(= ${PROJECT_VERSION})")
set(_library liborvalix${PROJECT_VERSION_MAJOR})
set(_qt_library liborvalix-qt${PROJECT_VERSION_MAJOR})
orvalix_package(ORVALIX_Runtime ${_library} libs "library"
                "This package holds the library that programs need to run.")
set(CPACK_DEBIAN_ORVALIX_RUNTIME_PACKAGE_RECOMMENDS "libgl1-mesa-dri, fonts-liberation")
orvalix_package(ORVALIX_Development liborvalix-dev libdevel "files for development"
                "This package holds headers and what CMake and pkg-config need."
                "${_library} ${_same}")
if(TARGET ORVALIXQt)
  orvalix_package(ORVALIX_QtRuntime ${_qt_library} libs "library for Qt 6"
                  "This package holds the library that shows charts in windows of Qt 6."
                  "${_library} ${_same}")
  orvalix_package(ORVALIX_QtDevelopment liborvalix-qt-dev libdevel "files for development with Qt 6"
                  "This package holds headers and what CMake and pkg-config need."
                  "${_qt_library} ${_same}" "liborvalix-dev ${_same}" qt6-base-dev)
endif()
if(ORVALIX_BUILD_TOOLS)
  set(_needs "${_library} ${_same}")
  if(TARGET ORVALIXQt)
    list(APPEND _needs "${_qt_library} ${_same}")
  endif()
  orvalix_package(ORVALIX_Tools orvalix-tools graphics "viewer and inspection of chart files"
                  "This package holds programs that show charts, and print what chart files hold."
                  ${_needs})
  if(TARGET ORVALIXQt)
    # What Qt opens windows with.
    set(CPACK_DEBIAN_ORVALIX_TOOLS_PACKAGE_RECOMMENDS qt6-qpa-plugins)
  endif()
endif()

include(CPack)
