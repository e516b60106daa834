# SPDX-License-Identifier: GPL-3.0-or-later
# The target update_translations brings translations/*.ts up to date with the texts in the sources. Nothing else needs
# LinguistTools: without them there is no such target.
find_package(Qt6LinguistTools 6.4 QUIET)
if(TARGET Qt6::lupdate)
    add_custom_target(update_translations
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_SOURCE_DIR}/translations
        COMMAND Qt6::lupdate -locations none ${CMAKE_SOURCE_DIR}/src
            -ts ${CMAKE_SOURCE_DIR}/translations/tarsel-jpeg_de.ts
        COMMENT "Reading texts for translation" VERBATIM)
endif()
