// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace tarsel {

/// The bold caption at the top of a pane.
QLabel* makePaneCaption(const QString& text, QWidget* parent);

} // namespace tarsel
