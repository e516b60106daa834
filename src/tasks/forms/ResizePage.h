// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/forms/OptionPage.h"

class QLineEdit;

namespace tarsel {

/// To a size, whose ratio may be kept, or by percent.
class ResizePage final : public OptionPage {
    Q_OBJECT
public:
    ResizePage(TaskDefaults& defaults, QWidget* parent);
    void setPicture(QSize present, QSize base) override;

protected:
    void showPicture() override;

private:
    void follow(const QLineEdit& typed, QLineEdit& other, int typedBase, int otherBase);

    QSize m_present;
    QSize m_base; ///< when editing began: no task changes the ratio that is kept
    bool m_isFollowing = false;
};

} // namespace tarsel
