// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/CancelAddingButton.h"

namespace tarsel {

CancelAddingButton::CancelAddingButton(QWidget* parent) :
    QPushButton(tr("Cancel"), parent), m_escape(Qt::Key_Escape, this) {
    setObjectName(QStringLiteral("cmdCancelAdding"));
    setToolTip(tr("Stop adding files to the basket. (Esc)"));
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QPushButton::clicked, this, &CancelAddingButton::cancelled);
    connect(&m_escape, &QShortcut::activated, this, &CancelAddingButton::cancelled);
    setAdding(false);
}

void CancelAddingButton::setAdding(bool adding) {
    setVisible(adding);
    m_escape.setEnabled(adding);
}

} // namespace tarsel
