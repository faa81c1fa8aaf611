# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT

# The framework's headers take longer to compile than most tests: they are compiled once, for all test programs. Not
# under a compiler launcher: a cache of objects never finds a source again that uses a precompiled header.
if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    add_library(quarrow_test_headers OBJECT ${CMAKE_CURRENT_LIST_DIR}/headers.cpp)
    target_link_libraries(quarrow_test_headers PRIVATE quarrow_options GTest::gmock PkgConfig::SDL2)
    target_compile_options(quarrow_test_headers PRIVATE $<$<CONFIG:Release>:-O1>)
    target_precompile_headers(quarrow_test_headers PRIVATE
        <gmock/gmock.h> <gtest/gtest.h> <algorithm> <array> <cmath> <filesystem> <fstream> <functional> <memory>
        <string> <vector>)
    # The same flags as the programs that share them.
    set_target_properties(quarrow_test_headers PROPERTIES POSITION_INDEPENDENT_CODE OFF QUARROW_IS_TEST ON)
    target_compile_options(quarrow_test_headers PRIVATE -fPIE -pthread)
endif()

# quarrow_light_test(<target>)
# Compiles a test program quickly: shared headers, and in a release build little optimisation. What is under test is in
# libraries and keeps the optimisation of the build.
function(quarrow_light_test target)
    set_target_properties(${target} PROPERTIES QUARROW_IS_TEST ON)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
    # At -O1 GCC 12 warns of overruns in concatenations of std::string that do not exist (its bug 105329).
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-stringop-overflow>)
    if(TARGET quarrow_test_headers)
        target_compile_options(${target} PRIVATE -pthread) # Pango adds it where it is linked
        target_precompile_headers(${target} REUSE_FROM quarrow_test_headers)
    endif()
endfunction()

# quarrow_add_test(<name> RECORDING_GL|REAL_GL GLOB <pattern>...)
# Makes a test program of the sources that match and registers it with ctest, once for each test in it.
function(quarrow_add_test name gl)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "GLOB")
    file(GLOB sources CONFIGURE_DEPENDS ${arg_GLOB})
    if(NOT sources)
        message(FATAL_ERROR "${name}: no sources match ${arg_GLOB}")
    endif()
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE quarrow_options quarrow_game quarrow_test_support)
    if(gl STREQUAL RECORDING_GL)
        target_link_libraries(${name} PRIVATE quarrow_recording_gl)
    else()
        target_link_libraries(${name} PRIVATE OpenGL::GLU OpenGL::GL)
    endif()
    # SDL2 for every program: the shared headers fit only where its flags are the same.
    target_link_libraries(${name} PRIVATE GTest::gmock_main PkgConfig::SDL2)
    quarrow_light_test(${name})
    target_compile_definitions(${name} PRIVATE
        QUARROW_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
        QUARROW_RESOURCE_DIR="${CMAKE_SOURCE_DIR}/resources")
    # One process for each program: starting a display for each of some hundred tests would take minutes.
    add_test(NAME ${name} COMMAND ${QUARROW_WITH_DISPLAY} $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
