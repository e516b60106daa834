# SPDX-License-Identifier: GPL-3.0-or-later
# What an installed program consists of. All programs are in one folder: they find each other, and the
# sample pictures, relative to it.
include(GNUInstallDirs)

foreach(program tarsel-jpeg tarsel tarsel-decoder)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    endif()
endforeach()
if(TARSEL_MAKE_SAMPLES)
    install(DIRECTORY ${TARSEL_SAMPLES}/ DESTINATION ${TARSEL_SAMPLES_RELATIVE})
endif()
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The pages of the manual, and the pictures on them.
install(DIRECTORY docs/manual/ DESTINATION ${TARSEL_MANUAL_RELATIVE} FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.jpg")
install(DIRECTORY docs/screenshots docs/artwork DESTINATION share/tarsel-jpeg FILES_MATCHING PATTERN "*.png" PATTERN "*.jpg")
