# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# The libraries under src/platform.
include(${CMAKE_CURRENT_LIST_DIR}/Need.cmake)

quarrow_find(SDL2 sdl2 libsdl2-dev)
quarrow_find(SDL2_IMAGE SDL2_image libsdl2-image-dev)
if(UNIX AND NOT APPLE)
    quarrow_find(X11 x11 libx11-dev) # full screen, density
endif()
quarrow_find(GLIB glib-2.0 libglib2.0-dev)
quarrow_find(PANGOCAIRO pangocairo libpango1.0-dev)
quarrow_find(OPENAL openal libopenal-dev)
quarrow_find(SNDFILE "sndfile>=1.1" libsndfile1-dev)
set(OpenGL_GL_PREFERENCE LEGACY)
find_package(OpenGL QUIET)
quarrow_need("${OPENGL_FOUND}" OpenGL libgl-dev)
quarrow_need("${OPENGL_GLU_FOUND}" GLU libglu1-mesa-dev)
