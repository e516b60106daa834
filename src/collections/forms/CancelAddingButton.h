// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <QShortcut>

namespace tarsel {

/// The button that ends the adding of files, or else the listing of a folder, also reached by Esc. It is only
/// there during one of them.
class CancelAddingButton final : public QPushButton {
    Q_OBJECT
public:
    explicit CancelAddingButton(QWidget* parent = nullptr);

    void setAdding(bool adding);
    void setListing(bool listing);

Q_SIGNALS:
    void addingCancelled();
    void listingCancelled();

private:
    void cancel();
    void offer();

    QShortcut m_escape;
    bool m_adding = false;
    bool m_listing = false;
};

} // namespace tarsel
