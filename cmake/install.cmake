# SPDX-License-Identifier: GPL-2.0-or-later
# Where things stand, counted from a prefix, and what is known of the product in one place.
#
# The build folder has the shape of an installation: what a program looks for stands at the same
# place from it in both, so that no file holds the path of either, and both can be moved.
set(CMAKE_INSTALL_DOCDIR share/doc/brelmon-tools CACHE PATH "Documents")
include(GNUInstallDirs)
set(BRELMON_QGIS_PLUGIN_DIR lib/qgis/plugins CACHE STRING "QGIS's folder of plug-ins")
set(BRELMON_ZSH_DIR share/zsh/vendor-completions CACHE STRING "Completions of zsh")

set(BRELMON_LIB_DIR ${CMAKE_INSTALL_LIBDIR}/brelmon-tools)
set(BRELMON_DATA_DIR ${CMAKE_INSTALL_DATADIR}/brelmon-tools)
set(BRELMON_HTML_DIR ${CMAKE_INSTALL_DOCDIR}/html)
foreach(folder ${CMAKE_INSTALL_BINDIR} ${BRELMON_LIB_DIR} ${BRELMON_DATA_DIR} ${BRELMON_HTML_DIR}
        ${CMAKE_INSTALL_MANDIR} ${BRELMON_QGIS_PLUGIN_DIR})
  if(IS_ABSOLUTE ${folder})
    message(FATAL_ERROR "${folder}: folders count from the prefix, so that it can be moved")
  endif()
endforeach()

# brelmon_way(VARIABLE FROM TO): the way from one folder of a prefix to what stands in another.
function(brelmon_way variable from to)
  file(RELATIVE_PATH way /prefix/${from} /prefix/${to})
  set(${variable} ${way} PARENT_SCOPE)
endfunction()
set(component libBrelmonOpenTable.so)
brelmon_way(BRELMON_PROGRAM_TO_COMPONENT ${CMAKE_INSTALL_BINDIR} ${BRELMON_LIB_DIR}/${component})
brelmon_way(BRELMON_PLUGIN_TO_COMPONENT ${BRELMON_QGIS_PLUGIN_DIR} ${BRELMON_LIB_DIR}/${component})
brelmon_way(BRELMON_PROGRAM_TO_PAGE ${CMAKE_INSTALL_BINDIR} ${BRELMON_DATA_DIR}/web)
brelmon_way(BRELMON_COMPONENT_TO_DOCUMENTS ${BRELMON_LIB_DIR} ${BRELMON_HTML_DIR})

# What the About box opens: addresses, or documents among the installed ones. A page in a browser
# has none installed; whoever publishes it may name addresses.
if(EMSCRIPTEN)
  set(pages "" "")
else()
  set(pages README.html docs/students.html)
endif()
list(GET pages 0 maker)
list(GET pages 1 sponsor)
set(BRELMON_MAKER_PAGE "${maker}" CACHE STRING "The maker's page: an address or a document")
set(BRELMON_SPONSOR_PAGE "${sponsor}" CACHE STRING "The sponsor's page: an address or a document")

# brelmon_configuration(TARGET) writes frame/configuration.h for whoever uses TARGET.
function(brelmon_configuration target)
  # As a file version: two digits for the minor, four for the revision.
  string(REGEX REPLACE "^.*(..)$" "\\1" minor 0${PROJECT_VERSION_MINOR})
  string(REGEX REPLACE "^.*(....)$" "\\1" revision 000${PROJECT_VERSION_PATCH})
  set(file_version ${PROJECT_VERSION_MAJOR}.${minor}.${revision})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/configuration.h.in
    ${PROJECT_BINARY_DIR}/generated/frame/configuration.h @ONLY)
  target_include_directories(${target} PUBLIC ${PROJECT_BINARY_DIR}/generated)
endfunction()
