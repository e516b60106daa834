// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "controls/ActionTable.h"
#include "controls/FormBinding.h"

#include <QDialog>
#include <memory>

class QLineEdit;

namespace tarsel {

namespace Ui {
class frmSettings;
}

/// Edits the fields of the record that have no home in another dialog, and lists the shortcuts. The record
/// changes when the dialog is accepted; its owner then brings the settings to the controls.
///
/// One thumbnail size and one full-row flag serve both lists, although the record holds two.
class frmSettings final : public QDialog {
    Q_OBJECT
public:
    frmSettings(ConfigRecordData& record, const std::vector<ActionTable::Shortcut>& shortcuts,
                QWidget* owner = nullptr);
    ~frmSettings() override;
    frmSettings(const frmSettings&) = delete;
    frmSettings& operator=(const frmSettings&) = delete;

private:
    void subSetup(const std::vector<ActionTable::Shortcut>& shortcuts);
    void listShortcuts(const std::vector<ActionTable::Shortcut>& shortcuts);
    void prepareThumbnailBox(QLineEdit* box);
    bool leaveThumbnailBox(QLineEdit* box); ///< false when its text is not a number
    void browse(QLineEdit* folder);
    void cmdOK_Click();

    ConfigRecordData& m_record;
    std::unique_ptr<Ui::frmSettings> m_ui;
    ListView m_shortcuts;
    std::unique_ptr<FormBinding<ConfigRecordData>> m_binding;
    std::unique_ptr<FormBinding<settings::Twain>> m_twain;
};

} // namespace tarsel
