// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "output/BatchSave.h"

#include <QDialog>
#include <memory>
#include <vector>

namespace tarsel {

namespace Ui {
class frmBatchResults;
}

class ListControl;

/// "38 written, 1 skipped, 1 failed", and how many of the written ones have a warning, such as a damaged
/// source.
QString resultSummary(const std::vector<RowResult>& results);

/// What became of every row of a batch: state, source, target, reason; problems first. The texts can be
/// copied and saved, the files and their folders opened; a folder that has all files is a link. Modeless,
/// deletes itself.
class frmBatchResults final : public QDialog {
    Q_OBJECT
public:
    /// `album`: the folder of the album that the files belong to, which is shown instead of their own ones.
    frmBatchResults(const std::vector<RowResult>& results, QWidget* owner, const QString& album = {});
    ~frmBatchResults() override;
    frmBatchResults(const frmBatchResults&) = delete;
    frmBatchResults& operator=(const frmBatchResults&) = delete;

    const ListView& rows() const { return m_rows; }

private:
    void addRows(std::vector<RowResult> results);
    void showFolders(const QStringList& folders);
    ListControl* makeList();
    void connectList(ListControl& list);
    int usedRow() const;
    void open(const QString& path, const QString& failure);
    void openFile();
    void openFolder();
    void openFolder(const QString& folder);
    void saveText();

    ListView m_rows;
    std::unique_ptr<Ui::frmBatchResults> m_ui;
};

} // namespace tarsel
