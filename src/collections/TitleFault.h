// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// Why no file name can hold a title of the basket, for the user; empty when one can.
QString titleFault(const QString& title);

} // namespace tarsel
