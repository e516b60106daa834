# SPDX-License-Identifier: GPL-3.0-or-later
# Where the sample pictures are. TARSEL_SAMPLES is their folder in the build tree; a program finds them in
# TARSEL_SAMPLES_RELATIVE, relative to its own folder, in the build tree and when installed. It calls
#
#     tarsel_uses_samples(<target>)
#
# to get that path as the definition TARSEL_SAMPLES ("../share/tarsel-jpeg/samples", relative to
# QCoreApplication::applicationDirPath()) and to be built after the pictures.

set(TARSEL_SAMPLES_RELATIVE share/tarsel-jpeg/samples)
set(TARSEL_SAMPLES ${CMAKE_BINARY_DIR}/${TARSEL_SAMPLES_RELATIVE})

function(tarsel_uses_samples target)
    target_compile_definitions(${target} PRIVATE TARSEL_SAMPLES="../${TARSEL_SAMPLES_RELATIVE}")
    add_dependencies(${target} samples)
endfunction()
