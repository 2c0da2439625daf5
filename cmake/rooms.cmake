# SPDX-License-Identifier: GPL-2.0-or-later
# Compiler settings of our own code, and the two shapes a folder takes: a room and its tests.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(brelmon_options INTERFACE)
target_compile_options(brelmon_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  # Reports are compared to the last digit: no fused multiply-add.
  -ffp-contract=off
  # Module paths in failure labels count from the repository's root.
  -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimised assignments of a literal to a string look overlapping to this compiler.
  target_compile_options(brelmon_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # Embedded pictures are literals.
  target_compile_options(brelmon_options INTERFACE -Wno-overlength-strings)
endif()
target_include_directories(brelmon_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(BRELMON_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(BRELMON_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# brelmon_sources(VARIABLE FOLDER): the sources of a folder, which must have some.
function(brelmon_sources variable folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT sources)
    message(FATAL_ERROR "No sources in ${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
  endif()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# brelmon_room(NAME DEPS...): a static library of all sources in the current folder's NAME.
function(brelmon_room name)
  brelmon_sources(sources ${name})
  add_library(brelmon_${name} STATIC ${sources})
  target_link_libraries(brelmon_${name} PRIVATE brelmon_options)
  target_include_directories(brelmon_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  foreach(dep ${ARGN})
    if(NOT TARGET brelmon_${dep})
      message(FATAL_ERROR "The room ${name} stands on ${dep}, which is no room below it")
    endif()
    target_link_libraries(brelmon_${name} PUBLIC brelmon_${dep})
  endforeach()
endfunction()

# brelmon_test(NAME LIBRARIES...): one test program of all sources in tests/NAME.
function(brelmon_test name)
  brelmon_sources(sources ${name})
  add_executable(test_${name} ${sources})
  target_link_libraries(test_${name} PRIVATE ${ARGN} brelmon_options GTest::gtest GTest::gtest_main)
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/src)
  target_compile_definitions(test_${name} PRIVATE
    BRELMON_SOURCE_DIR="${PROJECT_SOURCE_DIR}" BRELMON_BINARY_DIR="${PROJECT_BINARY_DIR}")
  gtest_discover_tests(test_${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60)
endfunction()
