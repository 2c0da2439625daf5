# SPDX-License-Identifier: GPL-2.0-or-later
# The number of the contract between hosts and component.
#
# brelmon_contract(TARGET) writes platform/contract.h for whoever uses TARGET: a number that changes
# with any header of the platform or the toolkit, and with the compiler. A host and a component that
# were built from different ones would call each other's wrong methods; with it they tell.
function(brelmon_contract target)
  file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/platform/*.h
    ${PROJECT_SOURCE_DIR}/src/toolkit/*.h)
  list(SORT headers)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${headers})
  string(REGEX MATCH "^[0-9]+" version ${CMAKE_CXX_COMPILER_VERSION})
  set(all "${CMAKE_CXX_COMPILER_ID} ${version}\n")
  foreach(header ${headers})
    file(SHA256 ${header} hash)
    get_filename_component(name ${header} NAME)
    string(APPEND all "${name} ${hash}\n")
  endforeach()
  string(SHA256 BRELMON_CONTRACT "${all}")
  string(SUBSTRING ${BRELMON_CONTRACT} 0 16 BRELMON_CONTRACT)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/contract.h.in
    ${PROJECT_BINARY_DIR}/generated/platform/contract.h @ONLY)
  target_include_directories(${target} PUBLIC ${PROJECT_BINARY_DIR}/generated)
endfunction()
