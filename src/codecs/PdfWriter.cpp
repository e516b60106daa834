// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/CodecChecks.h"
#include "codecs/Encoders.h"
#include "codecs/PdfDocument.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

[[noreturn]] void refuse(const PictureSource& source, const QString& name) {
    failDecoding({"PDF", name, source.size()},
                 QCoreApplication::translate("PdfWriter", "documents are written, but not read"));
}

} // namespace

QByteArray encodePdf(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    return newPdf(picture, settings, metadata, {});
}

Codec pdfCodec() {
    return {
        .name = "PDF",
        .extensions = {QStringLiteral("pdf")},
        .sniff = [](const PictureSource&) { return false; },
        .header = [](const PictureSource& source, const QString& name) -> PictureHeader {
            refuse(source, name);
        },
        .pageCount = [](const PictureSource& source, const QString& name) -> int { refuse(source, name); },
        .decode = [](const PictureSource& source, const QString& name, int) -> DecodedPicture {
            refuse(source, name);
        },
        .encode = encodePdf};
}

} // namespace tarsel
