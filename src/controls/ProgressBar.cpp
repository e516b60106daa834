// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ProgressBar.h"

#include "base/ProgressText.h"
#include "controls/PlainToolTip.h"

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
    setAlignment(Qt::AlignCenter);
    setAccessibleName(tr("Progress"));
}

void ProgressBar::start(int newMaximum, int newValue) {
    // A range of 0 to 0 would show the bar of a task without an end.
    const int usable = std::max(1, newMaximum);
    if (!isVisible() || usable != maximum() || newValue < value())
        m_sinceStart.start();
    setRange(0, usable);
    showValue(newValue);
    show();
}

void ProgressBar::setValue(int newValue) {
    showValue(newValue);
}

void ProgressBar::showValue(int newValue) {
    constexpr qint64 unknownFor = 2000;
    const qint64 elapsed = m_sinceStart.isValid() ? m_sinceStart.elapsed() : 0;
    setValueWithoutRepaint(*this, newValue);
    setFormat(progressText(newValue, maximum(), elapsed < unknownFor ? 0 : double(elapsed) / 1000));
}

void ProgressBar::hide() {
    QProgressBar::hide();
    setSubject({});
}

void ProgressBar::setSubject(const QString& fileName) {
    setToolTip(plainToolTip(fileName));
    Q_EMIT subjectChanged(fileName);
}

} // namespace tarsel
