// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The text of a tool tip that shows `text` as it is. Tool tips take "<b>.jpg" for rich text.
QString plainToolTip(const QString& text);

} // namespace tarsel
