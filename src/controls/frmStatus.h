// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

namespace tarsel {

namespace Ui {
class frmStatus;
}

class ProgressBar;

/// The modeless progress dialog of batch loops, with the name of the file in work above the bar. Its Cancel
/// raises CancelRequested, which the loop tests after each item; the window stays until the loop's owner
/// calls finish.
class frmStatus final : public QDialog {
    Q_OBJECT
public:
    explicit frmStatus(QWidget* owner);
    ~frmStatus() override;
    frmStatus(const frmStatus&) = delete;
    frmStatus& operator=(const frmStatus&) = delete;

    ProgressBar& pbQueue();
    /// Opens with a text, usually that of the form, and takes back an earlier run's cancel.
    void begin(const QString& text = {});
    void showStage(const QString& text);
    void finish();

protected:
    void reject() override; ///< Escape and the close box ask for a cancel: the loop decides when it ends

private:
    void cancel();

    std::unique_ptr<Ui::frmStatus> m_ui;
    QString m_waiting; ///< the text of the form
};

} // namespace tarsel
