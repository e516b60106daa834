// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <QProgressBar>

namespace tarsel {

/// A bar of a window, fed by a loop. It counts in words ("3 of 40") and is out of sight between two loops.
class ProgressBar final : public QProgressBar, public Progress {
    Q_OBJECT
public:
    explicit ProgressBar(QWidget* parent = nullptr);

    void start(int maximum, int value = 0) override;
    void setValue(int value) override;
    void hide() override;
};

} // namespace tarsel
