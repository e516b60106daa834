// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ProgressBar.h"

#include <algorithm>

namespace tarsel {

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
    setFormat(tr("%v of %m"));
    setAlignment(Qt::AlignCenter);
    setAccessibleName(tr("Progress"));
}

void ProgressBar::start(int maximum, int value) {
    // A range of 0 to 0 would show the bar of a task without an end.
    setRange(0, std::max(1, maximum));
    QProgressBar::setValue(value);
    show();
}

void ProgressBar::setValue(int value) {
    QProgressBar::setValue(value);
}

void ProgressBar::hide() {
    QProgressBar::hide();
}

} // namespace tarsel
