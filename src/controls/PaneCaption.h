// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;
class QLayout;
class QVBoxLayout;
class QWidget;

namespace tarsel {

/// The bold caption at the top of a pane. One without a text gets it later, and always has room for it.
QLabel* makePaneCaption(const QString& text, QWidget* parent);

/// The rows of a pane: the bar, and the contents, which take the room left.
QVBoxLayout* layOutPane(QWidget* pane, QLayout* bar, QWidget* contents);

} // namespace tarsel
