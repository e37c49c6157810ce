# The library that users link: target ORVALIX, made of the objects of every layer.
#
# Include it after the layers have been declared.

include(GNUInstallDirs)

get_property(_layers GLOBAL PROPERTY ORVALIX_LAYERS)
get_property(_libraries GLOBAL PROPERTY ORVALIX_LIBRARIES)
list(REMOVE_DUPLICATES _libraries)
list(TRANSFORM _layers REPLACE "^(.+)$" "$<TARGET_OBJECTS:orvalix_\\1_objects>")

add_library(ORVALIX ${_layers})
add_library(ORVALIX::ORVALIX ALIAS ORVALIX)
set_target_properties(ORVALIX PROPERTIES VERSION ${PROJECT_VERSION}
                      SOVERSION ${PROJECT_VERSION_MAJOR} LINKER_LANGUAGE CXX)
target_compile_features(ORVALIX PUBLIC cxx_std_20)
target_include_directories(ORVALIX PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                           $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_link_libraries(ORVALIX PRIVATE ${_libraries} $<BUILD_INTERFACE:orvalix_options>)

if(BUILD_SHARED_LIBS)
  # Hidden visibility doesn't reach instantiations of std:: templates; the script does.
  set(_exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
  target_link_options(ORVALIX PRIVATE -Wl,--version-script=${_exports})
  set_property(TARGET ORVALIX APPEND PROPERTY LINK_DEPENDS ${_exports})
  if(NOT ORVALIX_SANITIZE)
    # The sanitizers' own functions are only found in the program that loads the library.
    target_link_options(ORVALIX PRIVATE -Wl,--no-undefined)
  endif()
else()
  target_compile_definitions(ORVALIX PUBLIC ORVALIX_STATIC)
endif()

# orvalix_public_headers(<variable>)
#
# The headers that users may include, relative to the include root. Internal ones are not installed.
function(orvalix_public_headers result)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
       ${PROJECT_SOURCE_DIR}/orvalix/*.h)
  list(FILTER headers EXCLUDE REGEX "_internal\\.h$")
  set(${result} ${headers} PARENT_SCOPE)
endfunction()

if(ORVALIX_INSTALL)
  include(OrvalixInstall)
endif()
