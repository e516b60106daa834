# SPDX-License-Identifier: GPL-3.0-or-later
# Manual pages and completions of the shells, made of the table of commands into ${TARSEL_COMMAND_PAGES}: man/man1,
# man/<language>/man1, completion. Pages carry the day of SOURCE_DATE_EPOCH where it is set.
string(TIMESTAMP page_date "%Y-%m-%d" UTC)
add_custom_command(OUTPUT ${TARSEL_COMMAND_PAGES}/made
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${TARSEL_COMMAND_PAGES}/man
    COMMAND tarsel-pages ${TARSEL_COMMAND_PAGES} ${page_date} ${CMAKE_BINARY_DIR}/share/tarsel-jpeg/i18n
    COMMAND ${CMAKE_COMMAND} -E touch ${TARSEL_COMMAND_PAGES}/made
    DEPENDS tarsel-pages ${compiled_translations}
    COMMENT "Making manual pages and completions" VERBATIM)
add_custom_target(command_pages ALL DEPENDS ${TARSEL_COMMAND_PAGES}/made)
if(TARGET translations)
    add_dependencies(command_pages translations)
endif()
