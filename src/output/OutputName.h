// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QString>
#include <functional>

namespace tarsel {

/// The extension of every file that the batch makes, whatever its source was.
inline QString outputExtension() {
    return QStringLiteral("jpg");
}

/// Where a row's file goes. The folder ends in a separator; the name has no separator of its own.
struct OutputName {
    QString folder;
    QString name;
    QString path() const { return folder + name; }
};

/// What a name is made of besides the settings.
struct RowToName {
    int position = 1; ///< in the basket, from 1
    QString text;     ///< the row's text
    QString folder;   ///< of the source, with a separator at its end
};

/// Returns the text of a naming token.
using TokenText = std::function<QString(const QString& token)>;

/// The name by the settings' NameOption. The source's folder counts in the hybrid option alone; the others
/// use DestinationFolder whatever DestinationOption says. Error 6 for a count beyond 16 bits, 13 for one that
/// is not a number.
OutputName outputName(const settings::BatchSave& settings, const RowToName& row, const TokenText& tokenText);

/// Why no file of that name can be in its folder; empty when one can. A text from a picture's metadata may
/// hold a separator, by which the file would be written into another folder.
QString nameFault(const OutputName& target);

} // namespace tarsel
