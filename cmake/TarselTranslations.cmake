# SPDX-License-Identifier: GPL-3.0-or-later
# Each translations/tarsel-jpeg_<language>.ts is compiled and installed; a new language is one more file. Without Qt's
# lrelease the programs are in English alone. The target update_translations brings the files up to date with the texts
# in the sources.
set(TARSEL_TRANSLATIONS_RELATIVE share/tarsel-jpeg/i18n)
find_program(TARSEL_LRELEASE lrelease PATHS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS} NO_DEFAULT_PATH)
find_program(TARSEL_LUPDATE lupdate PATHS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS} NO_DEFAULT_PATH)
file(GLOB translations CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/translations/tarsel-jpeg_*.ts)

if(TARSEL_LRELEASE)
    foreach(source ${translations})
        get_filename_component(name ${source} NAME_WE)
        set(compiled ${CMAKE_BINARY_DIR}/${TARSEL_TRANSLATIONS_RELATIVE}/${name}.qm)
        add_custom_command(OUTPUT ${compiled}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/${TARSEL_TRANSLATIONS_RELATIVE}
            COMMAND ${TARSEL_LRELEASE} -silent ${source} -qm ${compiled}
            DEPENDS ${source} COMMENT "Compiling ${name}.ts" VERBATIM)
        list(APPEND compiled_translations ${compiled})
    endforeach()
    add_custom_target(translations ALL DEPENDS ${compiled_translations})
    install(FILES ${compiled_translations} DESTINATION ${TARSEL_TRANSLATIONS_RELATIVE})
else()
    message(STATUS "Qt's lrelease is missing (qt6-l10n-tools): the programs will speak English only")
endif()

if(TARSEL_LUPDATE)
    add_custom_target(update_translations
        COMMAND ${TARSEL_LUPDATE} -silent -no-obsolete -locations none ${CMAKE_SOURCE_DIR}/src -ts ${translations}
        COMMENT "Reading texts for translation" VERBATIM)
endif()
