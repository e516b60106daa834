// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>
#include <span>

namespace tarsel::samples {

/// What the camera and the photographer noted. Texts are as EXIF and IPTC take them.
struct Notes {
    QString taken;    ///< "2024:09:14 07:12:40"
    QString exposure; ///< seconds, "1/250"
    QString aperture; ///< "8/1"
    QString speed;    ///< "100"
    QString focal;    ///< millimetres, "35/1"
    QString headline;
    QString caption;
    QString keywords; ///< "mountains;snow"
    QString city;
    QString country;
};

struct Sample {
    QString name; ///< of the file, without its extension
    QImage (*take)();
    Notes notes;
};

/// All pictures, in the order in which they are taken.
std::span<const Sample> sampleTable();

} // namespace tarsel::samples
