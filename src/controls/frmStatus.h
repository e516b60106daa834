// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace tarsel {

class ProgressBar;

/// The modeless progress dialog of batch loops. Its Cancel raises CancelRequested, which the loop tests
/// after each item; the window stays until the loop's owner calls finish.
class frmStatus final : public QDialog {
    Q_OBJECT
public:
    explicit frmStatus(QWidget* owner);

    ProgressBar& pbQueue() { return *m_bar; }
    /// Opens with the waiting text and takes back an earlier run's cancel.
    void begin();
    void finish();

protected:
    void reject() override; ///< Escape and the close box ask for a cancel: the loop decides when it ends

private:
    void cancel();

    QLabel* m_status;
    ProgressBar* m_bar;
    QPushButton* m_cancel;
};

} // namespace tarsel
