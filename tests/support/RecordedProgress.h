// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <vector>

namespace tarsel::test {

/// A progress bar that remembers what it showed, and how often it was started.
class RecordedProgress final : public Progress {
public:
    void start(int newMaximum, int value) override {
        maximum = newMaximum;
        values.push_back(value);
        visible = true;
        ++starts;
    }
    void setValue(int value) override { values.push_back(value); }
    void hide() override { visible = false; }

    int maximum = 0;
    int starts = 0;
    std::vector<int> values;
    bool visible = false;
};

} // namespace tarsel::test
