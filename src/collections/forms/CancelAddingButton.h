// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <QShortcut>

namespace tarsel {

/// The button that ends the adding of files, also reached by Esc. It is only there while files are added.
class CancelAddingButton final : public QPushButton {
    Q_OBJECT
public:
    explicit CancelAddingButton(QWidget* parent = nullptr);

    void setAdding(bool adding);

Q_SIGNALS:
    void cancelled();

private:
    QShortcut m_escape;
};

} // namespace tarsel
