// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/CancelAddingButton.h"

namespace tarsel {

CancelAddingButton::CancelAddingButton(QWidget* parent) :
    QPushButton(tr("Cancel"), parent), m_escape(Qt::Key_Escape, this) {
    setObjectName(QStringLiteral("cmdCancelAdding"));
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QPushButton::clicked, this, &CancelAddingButton::cancel);
    connect(&m_escape, &QShortcut::activated, this, &CancelAddingButton::cancel);
    offer();
}

void CancelAddingButton::setAdding(bool adding) {
    m_adding = adding;
    offer();
}

void CancelAddingButton::setListing(bool listing) {
    m_listing = listing;
    offer();
}

void CancelAddingButton::offer() {
    setToolTip(m_adding ? tr("Stop adding files to the basket. (Esc)")
                        : tr("Stop listing the folder. (Esc)"));
    setVisible(m_adding || m_listing);
    m_escape.setEnabled(m_adding || m_listing);
}

void CancelAddingButton::cancel() {
    if (m_adding)
        Q_EMIT addingCancelled();
    else
        Q_EMIT listingCancelled();
}

} // namespace tarsel
