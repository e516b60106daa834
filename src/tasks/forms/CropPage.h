// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/forms/OptionPage.h"

namespace tarsel {

/// Edges that are typed, or a region selected on the picture.
class CropPage final : public OptionPage {
    Q_OBJECT
public:
    CropPage(TaskDefaults& defaults, QWidget* parent);
    void setPicture(QSize present, QSize base) override;
    void showRegion(QPoint start, QPoint end) override;
    TaskRow row() const override;

protected:
    void showPicture() override;
    void showSpecial(const TaskRow& row) override;

private:
    void showShape();

    QSize m_picture;
};

} // namespace tarsel
