// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/forms/OptionPage.h"

namespace tarsel {

class MergedPictureView;

/// A second picture from a file, one colour of which may be left out.
class WatermarkPage final : public OptionPage {
    Q_OBJECT
public:
    WatermarkPage(TaskDefaults& defaults, QWidget* parent);
    TaskRow row() const override;
    void keepLocation(const TaskRow& recorded) override;

private:
    void cmdSelectMerge_Click();
    void showStyle(int style);

    TaskDefaults& m_settings;
    MergedPictureView* picWatermarkImage;
};

} // namespace tarsel
