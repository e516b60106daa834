// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/RoundTripFacts.h"

#include "base/Conversions.h"

#include <QCoreApplication>
#include <QLocale>
#include <cmath>

namespace tarsel {

namespace {

struct Facts {
    Q_DECLARE_TR_FUNCTIONS(RoundTripFacts)
};

QString beside(qint64 bytes, qint64 originalBytes) {
    const QLocale locale;
    const double percent = originalBytes > 0 ? 100.0 * double(bytes) / double(originalBytes) : 100;
    if (percent >= 200)
        return Facts::tr("%1 times the size of the original").arg(locale.toString(percent / 100, 'f', 1));
    if (percent > 100)
        return Facts::tr("%1 % larger than the original").arg(locale.toString(percent - 100, 'f', 1));
    if (percent < 100)
        return Facts::tr("%1 % smaller than the original").arg(locale.toString(100 - percent, 'f', 1));
    return {};
}

QString likeness(const operations::Similarity& similarity) {
    const QLocale locale;
    return std::isinf(similarity.peakSignalToNoise)
               ? Facts::tr("Equal to the original in every pixel")
               : Facts::tr("PSNR %1 dB, SSIM %2")
                     .arg(locale.toString(similarity.peakSignalToNoise, 'f', 1),
                          locale.toString(similarity.structural, 'f', 3));
}

QString aboutPicture(const RoundTripResult& result, const RoundTripSource& source) {
    const Picture& decoded = result.decoded;
    if (decoded.isNull())
        return Facts::tr("This format isn't read back: the original is shown.");
    if (decoded.width() < source.picture.width())
        return Facts::tr("Reduced to %1 x %2 pixels").arg(decoded.width()).arg(decoded.height());
    if (result.madeTransparent > 0) {
        const double pixels = double(decoded.width()) * decoded.height();
        const QString percent = QLocale().toString(100 * double(result.madeTransparent) / pixels, 'f', 1);
        return Facts::tr("%1 % of the pixels became transparent").arg(percent);
    }
    return result.similarity ? likeness(*result.similarity) : QString();
}

} // namespace

QString sizeInKilobytes(qint64 bytes) {
    return Facts::tr("%1 KB").arg(roundHalfEven(double(bytes) / 1024), 0, 'f', 0);
}

QStringList roundTripFacts(const RoundTripResult& result, const RoundTripSource& source,
                           qint64 originalBytes) {
    const QLocale locale;
    const qint64 bytes = result.bytes.size();
    QStringList lines{Facts::tr("%1 bytes").arg(locale.toString(bytes)), beside(bytes, originalBytes),
                      aboutPicture(result, source),
                      Facts::tr("Encoded in %1 ms").arg(locale.toString(result.milliseconds))};
    lines.removeAll(QString());
    return lines;
}

} // namespace tarsel
