// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// Versions of the libraries that read and write picture files, such as "1.6.39": those that are in use,
/// which can be newer than those that the program was built with. libjpeg-turbo doesn't tell, so its version
/// is that of the build.
struct CodecLibraries {
    QString jpeg, png, tiff, lcms, qpdf;
};

CodecLibraries codecLibraries();

} // namespace tarsel
