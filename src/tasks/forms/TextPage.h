// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/forms/OptionPage.h"

namespace tarsel {

/// A text at a named position, across or down, or at a point of the picture and at any angle.
class TextPage final : public OptionPage {
    Q_OBJECT
public:
    TextPage(TaskDefaults& defaults, QWidget* parent);
    TaskRow row() const override;
    void keepLocation(const TaskRow& recorded) override;

protected:
    void showSpecial(const TaskRow& row) override;

private:
    void showFont();
    void showPlace();
};

} // namespace tarsel
