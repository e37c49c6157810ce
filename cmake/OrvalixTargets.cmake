# How every target of the project is compiled, and how the layers of the library are declared.

find_package(OpenGL REQUIRED COMPONENTS OpenGL EGL)
if(NOT TARGET OpenGL::GLU)
  message(FATAL_ERROR "GLU was not found (Debian: libglu1-mesa-dev)")
endif()
find_package(Freetype REQUIRED)
find_package(Fontconfig REQUIRED)
find_package(PNG REQUIRED)

include(OrvalixHardening)

add_library(orvalix_options INTERFACE)
target_link_libraries(orvalix_options INTERFACE orvalix_hardening)
target_compile_features(orvalix_options INTERFACE cxx_std_20)
target_compile_options(orvalix_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                       -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
if(ORVALIX_WARNINGS_AS_ERRORS)
  target_compile_options(orvalix_options INTERFACE -Werror)
endif()
if(ORVALIX_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "ORVALIX_FUZZ needs clang (-DCMAKE_CXX_COMPILER=clang++)")
  endif()
  # The library tells the fuzzer which of its branches an input has reached.
  target_compile_options(orvalix_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(ORVALIX_SANITIZE)
  set(_sanitize -fsanitize=address,undefined -fno-sanitize-recover=undefined
      -fno-omit-frame-pointer)
  target_compile_options(orvalix_options INTERFACE ${_sanitize})
  target_link_options(orvalix_options INTERFACE ${_sanitize})
endif()

# orvalix_add_layer(<name> SOURCES <file>... [DEPENDS <layer>...] [LIBRARIES <target>...])
#
# Compiles one folder of the library. The objects go into the library itself; a static archive
# `orvalix_<name>`, which links the layers below and nothing above, lets tests reach what the shared
# library hides and fails to link when an arrow between layers points the wrong way.
function(orvalix_add_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;DEPENDS;LIBRARIES" ${ARGN})
  set(objects orvalix_${name}_objects)
  add_library(${objects} OBJECT ${LAYER_SOURCES})
  set_target_properties(${objects} PROPERTIES
                        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_include_directories(${objects} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${objects} PRIVATE orvalix_options ${LAYER_LIBRARIES})

  list(TRANSFORM LAYER_DEPENDS PREPEND orvalix_)
  add_library(orvalix_${name} STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:${objects}>)
  target_include_directories(orvalix_${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(orvalix_${name} PUBLIC orvalix_options ${LAYER_DEPENDS}
                        ${LAYER_LIBRARIES})
  set_property(GLOBAL APPEND PROPERTY ORVALIX_LAYERS ${name})
  set_property(GLOBAL APPEND PROPERTY ORVALIX_LIBRARIES ${LAYER_LIBRARIES})
endfunction()

# orvalix_compile_quickly(<target>): without optimisation, which takes a third of the time. For tests:
# what they test is optimised.
function(orvalix_compile_quickly target)
  target_compile_options(${target} PRIVATE -O0)
endfunction()

# orvalix_add_test(<name> [LAYER <layer>] SOURCES <file>... [LIBRARIES <target>...])
#
# One GoogleTest program named test_<name>; each of its cases becomes one CTest test. Under the
# sanitizers, where programs take longer to start than most cases do, they become a few of them
# together. It sees the inside of a layer and of those below, or, without LAYER, what programs see:
# the library.
function(orvalix_add_test name)
  cmake_parse_arguments(TEST "" "LAYER" "SOURCES;LIBRARIES" ${ARGN})
  if(TEST_LAYER)
    set(library orvalix_${TEST_LAYER})
  else()
    set(library ORVALIX::ORVALIX)
  endif()
  add_executable(test_${name} ${TEST_SOURCES})
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE ${library} ${TEST_LIBRARIES} orvalix_options
                        GTest::gmock_main)
  orvalix_compile_quickly(test_${name})
  if(NOT ORVALIX_SANITIZE)
    gtest_discover_tests(test_${name} DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT 300 ENVIRONMENT "${ORVALIX_TEST_ENVIRONMENT}")
    return()
  endif()
  set(shards 4)
  math(EXPR last "${shards} - 1")
  foreach(shard RANGE ${last})
    add_test(NAME test_${name}/${shard} COMMAND test_${name})
    set_tests_properties(
      test_${name}/${shard} PROPERTIES TIMEOUT 900
      ENVIRONMENT
      "${ORVALIX_TEST_ENVIRONMENT};GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${shard}")
  endforeach()
endfunction()
