// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/ResizePage.h"

#include "base/Conversions.h"
#include "tasks/forms/FormControls.h"
#include "tasks/forms/ui_ResizeOptions.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <limits>

namespace tarsel {

ResizePage::ResizePage(TaskDefaults& defaults, QWidget* parent) :
    OptionPage(3, defaults, setUpForm<Ui::ResizeOptions>, parent) {
    showWhile(*this, "optResize_0", "frameResize");
    showWhile(*this, "optResize_1", "FrameScale");
    auto& width = controlOf<QLineEdit>(*this, "txtResizeWidth");
    auto& height = controlOf<QLineEdit>(*this, "txtResizeHeight");
    connect(&width, &QLineEdit::textChanged, this,
            [&, this] { follow(width, height, m_base.width(), m_base.height()); });
    connect(&height, &QLineEdit::textChanged, this,
            [&, this] { follow(height, width, m_base.height(), m_base.width()); });
}

void ResizePage::setPicture(QSize present, QSize base) {
    m_present = present;
    m_base = base;
}

void ResizePage::showPicture() {
    controlOf<QLineEdit>(*this, "txtResizeWidth").setText(QString::number(std::max(m_present.width(), 0)));
    controlOf<QLineEdit>(*this, "txtResizeHeight").setText(QString::number(std::max(m_present.height(), 0)));
}

void ResizePage::follow(const QLineEdit& typed, QLineEdit& other, int typedBase, int otherBase) {
    if (isFilling() || m_isFollowing || typedBase <= 0 ||
        !controlOf<QCheckBox>(*this, "chkResizeRatio").isChecked())
        return;
    const QScopedValueRollback following(m_isFollowing, true);
    const double size = roundHalfEven(leadingNumber(typed.text()) * otherBase / typedBase);
    if (size <= std::numeric_limits<qint16>::max()) // the other stays as it is otherwise
        other.setText(QString::number(int(size)));
}

} // namespace tarsel
