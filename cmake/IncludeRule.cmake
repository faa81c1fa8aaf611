# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# The build fails on an include in src/ that breaks the layering: scripts/check-includes runs before the game compiles
# whenever a source file has changed.
if(NOT UNIX)
    return()
endif()
file(GLOB_RECURSE checked_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h ${CMAKE_SOURCE_DIR}/src/*.cpp)
set(stamp ${CMAKE_BINARY_DIR}/includes.checked)
add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_SOURCE_DIR}/scripts/check-includes ${CMAKE_SOURCE_DIR}/src
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${checked_sources} ${CMAKE_SOURCE_DIR}/scripts/check-includes
    COMMENT "Checking the include rule"
    VERBATIM)
add_custom_target(quarrow_include_rule DEPENDS ${stamp})
add_dependencies(quarrow_game quarrow_include_rule)
