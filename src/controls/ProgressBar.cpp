// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ProgressBar.h"

#include <algorithm>

namespace tarsel {

namespace {

/// A bar of Qt repaints itself within setValue(), which waits for the display server: a loop that counts
/// would wait each time. This one is painted with all else, when events are handled next.
void setValueWithoutRepaint(QProgressBar& bar, int value) {
    if (value == bar.value())
        return;
    bar.setUpdatesEnabled(false);
    bar.QProgressBar::setValue(value);
    bar.setUpdatesEnabled(true);
}

} // namespace

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
    setFormat(tr("%v of %m"));
    setAlignment(Qt::AlignCenter);
    setAccessibleName(tr("Progress"));
}

void ProgressBar::start(int maximum, int value) {
    // A range of 0 to 0 would show the bar of a task without an end.
    setRange(0, std::max(1, maximum));
    setValueWithoutRepaint(*this, value);
    show();
}

void ProgressBar::setValue(int value) {
    setValueWithoutRepaint(*this, value);
}

void ProgressBar::hide() {
    QProgressBar::hide();
}

} // namespace tarsel
