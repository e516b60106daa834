// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/ScanSession.h"
#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "output/BackgroundSave.h"
#include "output/PrintLayout.h"

#include <QDialog>
#include <QTemporaryDir>
#include <memory>
#include <vector>

namespace tarsel {

/// Every dialog of the program as it looks in use, for pictures of them and for tests that walk all windows.
/// A dialog is named by its object name.
class SampleDialogs {
public:
    /// The dialogs show these rows of a basket and the folders of this record.
    SampleDialogs(ListView& lvPages, ConfigRecordData record);

    std::vector<std::unique_ptr<QDialog>> all(QWidget* owner);

private:
    std::unique_ptr<QDialog> saveDialog(QWidget* owner);
    std::unique_ptr<QDialog> printDialog(QWidget* owner);
    std::unique_ptr<QDialog> interactiveSave(QWidget* owner);
    std::unique_ptr<QDialog> saverDialog(QWidget* owner);
    std::unique_ptr<QDialog> greeting(QWidget* owner);
    std::unique_ptr<QDialog> scanDialog(QWidget* owner);
    static std::unique_ptr<QDialog> scanOptions(QWidget* owner);
    std::unique_ptr<QDialog> results(QWidget* owner) const;
    std::unique_ptr<QDialog> progress(QWidget* owner) const;
    std::unique_ptr<QDialog> errorReport(QWidget* owner) const;

    ListView& m_pages;
    ListView m_tasks;
    ConfigRecordData m_record;
    PrintLayout m_layout;
    BackgroundSave m_background;
    ScanMemory m_scanMemory;
    QTemporaryDir m_folder;
};

} // namespace tarsel
