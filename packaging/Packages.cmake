# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# Packages by CPack: `cpack -G DEB` in the build folder makes a Debian package of what `cmake --install` installs.
set(CPACK_PACKAGE_NAME quarrow)
set(CPACK_PACKAGE_VENDOR "the Quarrow team")
set(CPACK_PACKAGE_CONTACT "the Quarrow team <packages@quarrow.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://quarrow.example/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "race through an endless asteroid field")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Older than a package of the distribution's own, which may replace it.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0quarrow1)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
# Most of it is music: a second instead of twelve, for two hundredths more.
set(CPACK_DEBIAN_COMPRESSION_TYPE gzip)
# The libraries and their versions come from the program itself; a font has no library that asks for it.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation | fonts-freefont-ttf | fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-droid-fallback | fonts-noto-cjk")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"You sit in the cockpit of a small ship. Eight waypoints lie ahead of you,
the deepest far inside the asteroid field, where the rocks are thick and the
view is short. Touch them in order, as fast as you can.
.
Every race has a new field and a new course; your five best times are kept.
The menus speak thirteen languages.")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/debian/FinishPackage.cmake)
set(CPACK_QUARROW_SOURCE ${CMAKE_CURRENT_SOURCE_DIR})
set(CPACK_QUARROW_RELEASE_DATE ${QUARROW_RELEASE_DATE})

set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_IGNORE_FILES "^${CMAKE_SOURCE_DIR}/build/" "/\\\\.git/")
include(CPack)
