# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
include(GoogleTest)

# quarrow_add_test(<name> RECORDING_GL|REAL_GL GLOB <pattern>...)
# Makes a test program of the sources that match and registers it with ctest, once for each test in it.
function(quarrow_add_test name gl)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "GLOB")
    file(GLOB sources CONFIGURE_DEPENDS ${arg_GLOB})
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE quarrow_options quarrow_game quarrow_test_support)
    if(gl STREQUAL RECORDING_GL)
        target_link_libraries(${name} PRIVATE quarrow_recording_gl)
    else()
        target_link_libraries(${name} PRIVATE OpenGL::GLU OpenGL::GL)
    endif()
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
    target_compile_definitions(${name} PRIVATE
        QUARROW_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
        QUARROW_RESOURCE_DIR="${CMAKE_SOURCE_DIR}/resources")
    # One process for each program: starting a display for each of some hundred tests would take minutes.
    add_test(NAME ${name} COMMAND ${QUARROW_WITH_DISPLAY} $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
