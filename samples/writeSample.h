// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "samples/SampleTable.h"

namespace tarsel::samples {

QString samplePath(const QString& folder, const Sample& sample);

/// Takes the picture and writes it as a JPEG file with its notes.
void writeSample(const QString& folder, const Sample& sample);

/// Writes letter.tif, a letter of three pages, the last with prints of pictures in the folder.
void writeLetter(const QString& folder);

/// Writes watermark.png, a mark with a transparent ground.
void writeWatermark(const QString& folder);

} // namespace tarsel::samples
