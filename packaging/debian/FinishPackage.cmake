# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# CPack runs this on the staged installation of a Debian package, before it packs it: adds the documents that Debian
# asks for, compresses them and the manual pages, and gives every file the date of the release.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
set(documents ${share}/doc/quarrow)

function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(output "${output}" PARENT_SCOPE)
endfunction()

run(date --utc --rfc-email --date=${CPACK_QUARROW_RELEASE_DATE})
set(DATE "${output}")
set(VERSION ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
configure_file(${CPACK_QUARROW_SOURCE}/debian/changelog.in ${documents}/changelog.Debian @ONLY)
configure_file(${CPACK_QUARROW_SOURCE}/debian/copyright ${documents}/copyright COPYONLY)
configure_file(${CPACK_QUARROW_SOURCE}/../CHANGELOG.md ${documents}/changelog COPYONLY)
# The copyright file holds the one licence and names the place of the other.
file(REMOVE_RECURSE ${share}/licenses)

file(GLOB_RECURSE pages ${share}/man/*.6)
run(gzip -9 --no-name --force ${documents}/changelog ${documents}/changelog.Debian ${pages})
run(chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
run(find ${CPACK_TEMPORARY_INSTALL_DIRECTORY} -exec touch --no-dereference --date=${CPACK_QUARROW_RELEASE_DATE}T00:00:00Z {} +)

# CPack dates what it writes itself by this.
run(date --utc +%s --date=${CPACK_QUARROW_RELEASE_DATE})
set(ENV{SOURCE_DATE_EPOCH} ${output})
