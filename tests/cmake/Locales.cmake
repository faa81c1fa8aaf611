# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# A locale for each language of the game, and one that is not in UTF-8, so that the tests need none of the system's. A
# program sees them with the folder QUARROW_LOCALES as LOCPATH.
find_program(QUARROW_LOCALEDEF localedef)
quarrow_need("${QUARROW_LOCALEDEF}" localedef locales)
set(QUARROW_LOCALES ${CMAKE_BINARY_DIR}/locales)

set(made "")
foreach(locale de_DE.UTF-8 es_ES.UTF-8 fr_FR.UTF-8 it_IT.UTF-8 ja_JP.UTF-8 nl_NL.UTF-8 pl_PL.UTF-8 pt_BR.UTF-8
        ru_RU.KOI8-R ru_RU.UTF-8 tr_TR.UTF-8 uk_UA.UTF-8 zh_CN.UTF-8)
    string(REPLACE "." ";" name_and_codeset ${locale})
    list(GET name_and_codeset 0 name)
    list(GET name_and_codeset 1 codeset)
    add_custom_command(
        OUTPUT ${QUARROW_LOCALES}/${locale}/LC_CTYPE
        COMMAND ${CMAKE_COMMAND} -E make_directory ${QUARROW_LOCALES}
        COMMAND ${QUARROW_LOCALEDEF} --no-hard-links -i ${name} -f ${codeset} ${QUARROW_LOCALES}/${locale}
        COMMENT "Making the locale ${locale}"
        VERBATIM)
    list(APPEND made ${QUARROW_LOCALES}/${locale}/LC_CTYPE)
endforeach()
add_custom_target(quarrow_locales DEPENDS ${made})
