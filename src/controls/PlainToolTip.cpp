// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PlainToolTip.h"

#include <QTextDocument>

namespace tarsel {

QString plainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<span style=\"white-space:pre\">%1</span>").arg(text.toHtmlEscaped());
}

} // namespace tarsel
