# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# quarrow_options: warnings, floating-point rules and sanitizers, shared by every target of ours.
add_library(quarrow_options INTERFACE)

# No contraction into fused multiply-adds: a seeded race gives the same state in every build type and on every CPU.
target_compile_options(quarrow_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off)

# GCC 12 warns of overlapping copies in plain concatenations of std::string, wrongly (its bug 105329).
target_compile_options(quarrow_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# The same source gives the same bytes in whatever folder it is built: no path of this machine in a released program.
target_compile_options(quarrow_options INTERFACE
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=
    -ffile-prefix-map=${CMAKE_BINARY_DIR}/=>)

if(QUARROW_SANITIZE)
    target_compile_options(quarrow_options INTERFACE
        -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # Reports show names and lines only, which -g1 has.
    target_compile_options(quarrow_options INTERFACE -g1)
    # Tests themselves compile faster: not optimised, and their own pointers checked by the address sanitizer only.
    target_compile_options(quarrow_options INTERFACE
        $<IF:$<BOOL:$<TARGET_PROPERTY:QUARROW_IS_TEST>>,-fno-sanitize=null$<COMMA>alignment$<COMMA>vptr,-O1>)
    target_link_options(quarrow_options INTERFACE -fsanitize=address,undefined,float-cast-overflow)
    target_sources(quarrow_options INTERFACE
        $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${CMAKE_SOURCE_DIR}/tests/support/leaks/KeepLibraries.cpp>)
else()
    target_compile_options(quarrow_options INTERFACE $<$<CONFIG:Release>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>
        -fstack-protector-strong)
    target_link_options(quarrow_options INTERFACE -Wl,-z,relro,-z,now)
endif()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()
