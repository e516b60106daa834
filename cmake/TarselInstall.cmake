# SPDX-License-Identifier: GPL-3.0-or-later
# What an installed program consists of. Programs find their private files, samples, texts and pages relative to
# themselves, so that the tree can be moved as a whole.

foreach(program tarsel-jpeg tarsel)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
endforeach()
# Started by the programs, never by users. src/players installs the players in the same folder.
foreach(program tarsel-decoder tarsel-scanner)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${TARSEL_PRIVATE_DIR})
    endif()
endforeach()
if(TARSEL_MAKE_SAMPLES)
    install(DIRECTORY ${TARSEL_SAMPLES}/ DESTINATION ${TARSEL_SAMPLES_RELATIVE})
endif()
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(PROGRAMS docs/many-machines/slice DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
if(TARSEL_INSTALL_LICENCE)
    install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()

# The entries in menus and file managers.
if(TARSEL_GUI)
    install(FILES packaging/desktop/tarsel-jpeg.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES packaging/desktop/tarsel-jpeg.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES packaging/desktop/tarsel-jpeg.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME tarsel-jpeg.xml)
    install(DIRECTORY packaging/desktop/icons/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor
        FILES_MATCHING PATTERN "*.svg")
endif()

# Manual pages and completions of the shells, which the build makes from the table of commands.
install(DIRECTORY ${TARSEL_COMMAND_PAGES}/man DESTINATION ${CMAKE_INSTALL_DATADIR})
install(FILES ${TARSEL_COMMAND_PAGES}/completion/tarsel.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tarsel)
install(FILES ${TARSEL_COMMAND_PAGES}/completion/_tarsel DESTINATION ${TARSEL_ZSH_COMPLETIONS})
install(FILES ${TARSEL_COMMAND_PAGES}/completion/tarsel.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

# The pages of the manual, and the pictures on them.
install(DIRECTORY docs/manual/ DESTINATION ${TARSEL_MANUAL_RELATIVE} FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.jpg")
install(DIRECTORY docs/screenshots docs/artwork DESTINATION share/tarsel-jpeg FILES_MATCHING PATTERN "*.png" PATTERN "*.jpg")
