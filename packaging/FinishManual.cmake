# SPDX-FileCopyrightText: 2026 the Quarrow team
# SPDX-License-Identifier: MIT
# cmake -DPAGE=... -DOUTPUT=... -DVERSION=... -DDATE=... -P FinishManual.cmake
# Puts version and date into a manual page. The page comes from the translation, which leaves blanks at line ends.
file(READ ${PAGE} text)
string(REPLACE "@PROJECT_VERSION@" "${VERSION}" text "${text}")
string(REPLACE "@QUARROW_RELEASE_DATE@" "${DATE}" text "${text}")
string(REGEX REPLACE "[ \t]+\n" "\n" text "${text}")
file(WRITE ${OUTPUT} "${text}")
