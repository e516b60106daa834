// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <QElapsedTimer>
#include <QProgressBar>

namespace tarsel {

/// A bar of a window, fed by a loop. It counts in words, with the time left ("3 of 40, 0:05 left") after two
/// seconds, and is out of sight between two loops. Its tool tip is the name of the file in work.
class ProgressBar final : public QProgressBar, public Progress {
    Q_OBJECT
public:
    explicit ProgressBar(QWidget* parent = nullptr);

    void start(int maximum, int value = 0) override;
    void setValue(int value) override;
    void hide() override;
    void setSubject(const QString& fileName) override;

Q_SIGNALS:
    void subjectChanged(const QString& fileName); ///< empty when the bar is hidden

private:
    void showValue(int value);

    QElapsedTimer m_sinceStart; ///< of the loop with this maximum
};

} // namespace tarsel
