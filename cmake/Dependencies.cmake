# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# The libraries under src/platform; each missing one is named with the Debian package that brings it.
find_package(PkgConfig REQUIRED)

function(quarrow_find target module package)
    pkg_check_modules(${target} IMPORTED_TARGET ${module})
    if(NOT ${target}_FOUND)
        message(FATAL_ERROR "${module} was not found; on Debian or Ubuntu it is in the package ${package}.")
    endif()
endfunction()

quarrow_find(SDL2 sdl2 libsdl2-dev)
if(UNIX AND NOT APPLE)
    quarrow_find(X11 x11 libx11-dev) # full screen
endif()
quarrow_find(SDL2_IMAGE SDL2_image libsdl2-image-dev)
quarrow_find(PANGOCAIRO pangocairo libpango1.0-dev)
quarrow_find(FONTCONFIG fontconfig libfontconfig-dev)
quarrow_find(OPENAL openal libopenal-dev)
quarrow_find(AVFORMAT libavformat libavformat-dev)
quarrow_find(AVCODEC libavcodec libavcodec-dev)
quarrow_find(AVUTIL libavutil libavutil-dev)
quarrow_find(SWRESAMPLE libswresample libswresample-dev)
quarrow_find(TOMLPLUSPLUS tomlplusplus libtomlplusplus-dev)
set(OpenGL_GL_PREFERENCE LEGACY)
find_package(OpenGL REQUIRED)
if(NOT TARGET OpenGL::GLU)
    message(FATAL_ERROR "GLU was not found; on Debian or Ubuntu it is in the package libglu1-mesa-dev.")
endif()
