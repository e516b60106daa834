// SPDX-License-Identifier: GPL-3.0-or-later
#define POINTERHOLDER_TRANSITION 4 // libqpdf without its old smart pointer
#include "codecs/CodecLibraries.h"

#include <QRegularExpression>
#include <cstdio>
// jpeglib.h needs cstdio before it
#include <jpeglib.h>
#include <lcms2.h>
#include <png.h>
#include <qpdf/QPDF.hh>
#include <tiffio.h>

#define TARSEL_TEXT_OF(token) #token
#define TARSEL_VALUE_OF(macro) TARSEL_TEXT_OF(macro)

namespace tarsel {

namespace {

/// "LIBTIFF, Version 4.5.0", followed by lines of copyright.
QString tiffVersion() {
    static const QRegularExpression number(QStringLiteral("\\d[\\d.]*"));
    return number.match(QString::fromLatin1(TIFFGetVersion())).captured();
}

/// 2140 is 2.14, 2131 is 2.13.1.
QString lcmsVersion() {
    const int code = cmsGetEncodedCMMversion();
    const QString version = QStringLiteral("%1.%2").arg(code / 1000).arg(code / 10 % 100);
    return code % 10 == 0 ? version : version + QStringLiteral(".%1").arg(code % 10);
}

} // namespace

CodecLibraries codecLibraries() {
    return {QStringLiteral(TARSEL_VALUE_OF(LIBJPEG_TURBO_VERSION)),
            QString::fromLatin1(png_get_libpng_ver(nullptr)), tiffVersion(), lcmsVersion(),
            QString::fromStdString(QPDF::QPDFVersion())};
}

} // namespace tarsel
