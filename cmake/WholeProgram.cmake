# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# Link-time optimisation of the released program. quarrow_whole_program(<program> <library>...)
#
# The libraries hold each function twice, as intermediate code for the linker to optimise and as machine code: tests and
# benchmarks link the machine code of the same objects, in a fraction of the time.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-ffat-lto-objects QUARROW_HAS_FAT_LTO)

function(quarrow_whole_program program)
    if(NOT QUARROW_LTO OR NOT QUARROW_HAS_FAT_LTO OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        return()
    endif()
    foreach(target IN LISTS ARGN ITEMS ${program})
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-flto=auto -ffat-lto-objects>)
    endforeach()
    foreach(library IN LISTS ARGN)
        target_link_options(${library} INTERFACE
            $<$<AND:$<CONFIG:Release>,$<NOT:$<STREQUAL:$<TARGET_PROPERTY:NAME>,${program}>>>:-fno-lto>)
    endforeach()
    # In one partition: the program is small, and several would need make, which may not be installed.
    target_link_options(${program} PRIVATE $<$<CONFIG:Release>:-flto=1 -flto-partition=one -O3>)
endfunction()

# The generated names of symbols in these sources depend on nothing but the name of the source.
function(quarrow_seed_symbols)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        return()
    endif()
    foreach(source IN LISTS ARGN)
        file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR} ${source})
        set_property(SOURCE ${source} APPEND PROPERTY COMPILE_OPTIONS -frandom-seed=${name})
    endforeach()
endfunction()
