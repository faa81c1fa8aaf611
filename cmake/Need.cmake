# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# Configuring stops at a missing library and names the Debian package that brings it.

# quarrow_need(<whether it was found> <what> <package>)
function(quarrow_need found what package)
    if(NOT found)
        message(FATAL_ERROR "${what} was not found; on Debian or Ubuntu it is in the package ${package}.")
    endif()
endfunction()

# quarrow_find(<target> <module of pkg-config> <package>): makes PkgConfig::<target>.
macro(quarrow_find target module package)
    pkg_check_modules(${target} QUIET IMPORTED_TARGET ${module})
    quarrow_need("${${target}_FOUND}" ${module} ${package})
endmacro()

find_package(PkgConfig QUIET)
quarrow_need("${PkgConfig_FOUND}" pkg-config pkg-config)
