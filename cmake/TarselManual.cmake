# SPDX-License-Identifier: GPL-3.0-or-later
# Where the manual is. A program finds its pages in TARSEL_MANUAL_RELATIVE, relative to its own folder's parent, and the
# pictures of the pages in folders beside it, as in docs/. In the build tree these are links to docs/.
set(TARSEL_MANUAL_RELATIVE share/tarsel-jpeg/manual)
set(TARSEL_MANUAL_FOLDERS manual screenshots artwork)

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/share/tarsel-jpeg)
foreach(folder ${TARSEL_MANUAL_FOLDERS})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/docs/${folder} ${CMAKE_BINARY_DIR}/share/tarsel-jpeg/${folder} SYMBOLIC)
endforeach()
