# SPDX-License-Identifier: GPL-2.0-or-later
# What all code of the browser's build is compiled with.
#
# Tools wait for a user inside a synchronous call, and failures are exceptions: JavaScript's own
# exceptions and Asyncify are what every browser of today runs together.
add_compile_options(-fexceptions)
# Unused pieces of a room stay out of the program.
add_compile_options(-ffunction-sections -fdata-sections)
# What this compiler's library lacks of C++20, for every source alike.
add_compile_options(-include ${CMAKE_CURRENT_SOURCE_DIR}/hosts/web/libcxx14.h)
set(CMAKE_POSITION_INDEPENDENT_CODE OFF)
