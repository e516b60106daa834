// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"

#include <QDialog>
#include <memory>
#include <vector>

class QFormLayout;

namespace tarsel {

namespace Ui {
class frmScanOptions;
}
class ScanOptionEditor;

/// All options of a scanner, under the headings that its driver gives them. Modeless; each change takes
/// effect at once.
class frmScanOptions final : public QDialog {
    Q_OBJECT
public:
    explicit frmScanOptions(QWidget* owner = nullptr);
    ~frmScanOptions() override;
    frmScanOptions(const frmScanOptions&) = delete;
    frmScanOptions& operator=(const frmScanOptions&) = delete;

    /// The rows are made again only where the scanner has come to have other options.
    void show(const ScanOptions& options);
    using QDialog::show;

Q_SIGNALS:
    void changed(const QString& name, const tarsel::ScanValue& value);

private:
    void makeRows(const ScanOptions& options);
    static void showRow(ScanOptionEditor& editor, const ScanOption& option);
    void addRow(QFormLayout& rows, const ScanOption& option);

    struct Row {
        QString name;
        ScanOptionType type;
        bool hasList;
        bool isSettable;

        bool operator==(const Row&) const = default;
    };
    static std::vector<Row> rowsOf(const ScanOptions& options);

    std::unique_ptr<Ui::frmScanOptions> m_ui;
    std::vector<Row> m_rows;
    std::vector<ScanOptionEditor*> m_editors; ///< in the order of the options; null for headings
};

} // namespace tarsel
