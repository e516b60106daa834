// SPDX-License-Identifier: GPL-3.0-or-later
#define POINTERHOLDER_TRANSITION 4 // libqpdf without its old smart pointer

#include "codecs/PdfDocument.h"

#include "base/TrappedError.h"
#include "codecs/CodecChecks.h"
#include "codecs/ColorProfile.h"
#include "codecs/EncoderColors.h"
#include "codecs/JpegCodec.h"
#include "codecs/Resolution.h"
#include "pixels/Flatten.h"

#include <QCoreApplication>
#include <algorithm>
#include <exception>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace tarsel {

namespace {

constexpr double pointsPerInch = 72;
constexpr double usualResolution = 96; // of a picture that doesn't say
constexpr double largestPage = 14'400; // points
constexpr double smallestPage = 3;

using Object = QPDFObjectHandle;

std::string textOf(const QByteArray& bytes) {
    return bytes.toStdString();
}

/// One page in the making. Streams without a filter are deflated when the document is written.
class PdfPage {
public:
    PdfPage(QPDF& pdf, const Picture& picture, const SaveSettings& settings,
            const EmbeddedMetadata& metadata) :
        m_pdf(pdf),
        m_settings(settings), m_fitted(fittedToFile(picture, settings, metadata)) {}

    Object make() {
        Object resources = Object::newDictionary();
        resources.replaceKey("/XObject", dictionary({{"/Picture", m_pdf.makeIndirectObject(image())}}));
        const auto [width, height] = pageSize();
        Object page = dictionary({{"/Type", Object::newName("/Page")},
                                  {"/MediaBox", Object::newArray(Object::Rectangle(0, 0, width, height))},
                                  {"/Resources", resources},
                                  {"/Contents", contents(width, height)}});
        return m_pdf.makeIndirectObject(page);
    }

    Object xmpStream() {
        Object stream = m_pdf.newStream(textOf(m_metadata.xmp));
        stream.getDict().replaceKey("/Type", Object::newName("/Metadata"));
        stream.getDict().replaceKey("/Subtype", Object::newName("/XML"));
        return stream;
    }

private:
    static Object dictionary(const std::map<std::string, Object>& items) {
        return Object::newDictionary(items);
    }

    /// In points; the proportions are kept at both limits.
    std::pair<double, double> pageSize() const {
        Resolution resolution = resolutionOf(m_metadata);
        if (resolution.horizontal == 0)
            resolution = {usualResolution, usualResolution};
        const double width = m_picture.width() * pointsPerInch / resolution.horizontal;
        const double height = m_picture.height() * pointsPerInch / resolution.vertical;
        const double factor = std::max(width, height) > largestPage ? largestPage / std::max(width, height)
                              : std::max(width, height) < smallestPage
                                  ? smallestPage / std::max(width, height)
                                  : 1;
        return {width * factor, height * factor};
    }

    Object contents(double width, double height) {
        const QString text = QStringLiteral("q %1 0 0 %2 0 0 cm /Picture Do Q\n");
        return m_pdf.newStream(textOf(text.arg(width, 0, 'f', 4).arg(height, 0, 'f', 4).toLatin1()));
    }

    Object image() {
        const ColorFormat format = colorFormatOf(m_settings);
        const bool fitsJpeg = std::max(m_picture.width(), m_picture.height()) <= largestJpegSide;
        if (fitsJpeg && (format == ColorFormat::TrueColor || format == ColorFormat::Gray256))
            return jpegImage(format);
        if (format == ColorFormat::TrueColor)
            return plainImage();
        return indexedImage(encoderIndexes(m_picture, m_settings, TransparencyOf::Nothing));
    }

    Object imageStream(const QByteArray& data, int bits, const Object& colors) {
        Object stream = m_pdf.newStream(textOf(data));
        Object head = stream.getDict();
        head.replaceKey("/Type", Object::newName("/XObject"));
        head.replaceKey("/Subtype", Object::newName("/Image"));
        head.replaceKey("/Width", Object::newInteger(m_picture.width()));
        head.replaceKey("/Height", Object::newInteger(m_picture.height()));
        head.replaceKey("/BitsPerComponent", Object::newInteger(bits));
        head.replaceKey("/ColorSpace", colors);
        return stream;
    }

    /// The very bytes of a JPEG file, with its metadata; the profile is that of the colour space.
    Object jpegImage(ColorFormat format) {
        EmbeddedMetadata metadata = m_metadata;
        metadata.iccProfile.clear();
        metadata.trailer.clear();
        Object stream =
            imageStream(encodeJpeg(m_picture, m_settings, metadata), 8,
                        format == ColorFormat::Gray256 ? Object::newName("/DeviceGray") : rgbSpace());
        stream.getDict().replaceKey("/Filter", Object::newName("/DCTDecode"));
        return stream;
    }

    Object plainImage() {
        const qsizetype rowSize = qsizetype(m_picture.width()) * 3;
        QByteArray rows(rowSize * m_picture.height(), Qt::Uninitialized);
        for (int y = 0; y < m_picture.height(); ++y)
            flattenRow(m_picture.view(), y, white,
                       reinterpret_cast<std::uint8_t*>(rows.data()) + rowSize * y);
        return imageStream(rows, 8, rgbSpace());
    }

    Object indexedImage(const IndexedPicture& picture) {
        const qsizetype rowSize = packedSize(picture.width(), picture.bits);
        QByteArray rows(rowSize * picture.height(), Qt::Uninitialized);
        for (int y = 0; y < picture.height(); ++y)
            packIndexes(picture.row(y), picture.width(), picture.bits,
                        reinterpret_cast<std::uint8_t*>(rows.data()) + rowSize * y);
        return imageStream(rows, picture.bits,
                           picture.isGray ? Object::newName("/DeviceGray") : palette(picture));
    }

    Object palette(const IndexedPicture& picture) {
        std::string colors;
        for (const Rgb color : picture.palette)
            colors.append({char(color.red), char(color.green), char(color.blue)});
        return Object::newArray({Object::newName("/Indexed"), rgbSpace(),
                                 Object::newInteger(int(picture.palette.size()) - 1),
                                 Object::newString(colors)});
    }

    Object rgbSpace() {
        if (!isRgbProfile(m_metadata.iccProfile))
            return Object::newName("/DeviceRGB");
        Object profile = m_pdf.newStream(textOf(m_metadata.iccProfile));
        profile.getDict().replaceKey("/N", Object::newInteger(3));
        profile.getDict().replaceKey("/Alternate", Object::newName("/DeviceRGB"));
        return Object::newArray({Object::newName("/ICCBased"), profile});
    }

    QPDF& m_pdf;
    const SaveSettings& m_settings;
    const FittedPicture m_fitted;
    const Picture& m_picture = m_fitted.picture;
    const EmbeddedMetadata& m_metadata = m_fitted.metadata;
};

QByteArray written(QPDF& pdf) {
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setDeterministicID(!pdf.isEncrypted()); // else it is made from the time
    writer.write();
    const auto bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), qsizetype(bytes->getSize())};
}

} // namespace

QByteArray newPdf(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata,
                  const QString& title) {
    try {
        QPDF pdf;
        pdf.emptyPDF();
        PdfPage page(pdf, picture, settings, metadata);
        QPDFPageDocumentHelper(pdf).addPage(page.make(), false);
        if (!metadata.xmp.isEmpty())
            pdf.getRoot().replaceKey("/Metadata", page.xmpStream());
        if (!title.isEmpty()) {
            Object info = pdf.makeIndirectObject(Object::newDictionary());
            info.replaceKey("/Title", Object::newUnicodeString(title.toStdString()));
            pdf.getTrailer().replaceKey("/Info", info);
        }
        return written(pdf);
    } catch (const std::exception& error) {
        fail(ErrorNumber::InvalidCall, QCoreApplication::translate("PdfDocument", "PDF encoder: %1")
                                           .arg(QString::fromUtf8(error.what())));
    }
}

QByteArray withPdfPage(const QByteArray& document, const QString& name, const Picture& picture,
                       const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    try {
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.setAttemptRecovery(false); // a repaired document may have lost pages
        pdf.processMemoryFile("document", document.constData(), std::size_t(document.size()));
        PdfPage page(pdf, picture, settings, metadata);
        Object object = page.make();
        if (!metadata.xmp.isEmpty()) // the document's own describes the document
            object.replaceKey("/Metadata", page.xmpStream());
        QPDFPageDocumentHelper(pdf).addPage(object, false);
        return written(pdf);
    } catch (const std::exception& error) {
        failDecoding({"PDF", name, document.size()}, QString::fromUtf8(error.what()));
    }
}

} // namespace tarsel
