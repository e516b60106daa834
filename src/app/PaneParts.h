// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;
class QToolButton;
class QWidget;

namespace tarsel {

/// A button of a pane's bar: line icon with the caption beside it, or the icon alone when the caption is
/// empty. The tool tip is its accessible name too.
QToolButton* makePaneButton(const char* name, const char* icon, const QString& caption,
                            const QString& toolTip, QWidget* parent);

/// The bold caption at the top of a pane.
QLabel* makePaneCaption(const QString& text, QWidget* parent);

} // namespace tarsel
