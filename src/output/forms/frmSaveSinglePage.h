// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "controls/FormBinding.h"

#include <QDialog>
#include <QTimer>
#include <memory>

class QLineEdit;

namespace tarsel {

namespace Ui {
class frmSaveSinglePage;
}

class NamePreview;

/// The dialog of the batch save. It shows the answers of the last time and writes them back on Save; whether
/// the run goes ahead is decided by BatchSave::Confirmed alone, not by the dialog's result.
///
/// Its layout is frmSaveSinglePage.ui; the table `fields` joins the controls with the record.
class frmSaveSinglePage final : public QDialog {
    Q_OBJECT
public:
    /// The lists serve the preview of names; they must not change while the dialog lives.
    frmSaveSinglePage(settings::BatchSave& settings, const ListView& lvPages, const ListView& lvEditBatch,
                      QWidget* owner = nullptr);
    ~frmSaveSinglePage() override;
    frmSaveSinglePage(const frmSaveSinglePage&) = delete;
    frmSaveSinglePage& operator=(const frmSaveSinglePage&) = delete;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void fillBoxes();
    void subSetUp();
    void connectButtons();
    void showTasks();
    void takeSize();
    void browseFolder();
    void browseImport(QLineEdit* path, const QString& title, const QString& filter);
    void cmdStarConversion_Click();
    void cmdExit_Click();
    bool countIsAccepted();

    settings::BatchSave& m_settings;
    const ListView& m_tasks;
    std::unique_ptr<Ui::frmSaveSinglePage> m_ui;
    std::unique_ptr<FormBinding<settings::BatchSave>> m_binding;
    NamePreview* m_preview = nullptr;
    QTimer m_previewDelay;
};

} // namespace tarsel
