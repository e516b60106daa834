// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/ScanSession.h"
#include "collections/FileQuestion.h"
#include "controls/FormBinding.h"
#include "imaging/ImageBox.h"

#include <QDialog>
#include <QPointer>
#include <memory>

class QMenu;

namespace tarsel {

namespace Ui {
class frmTwain;
}
class frmScanOptions;
class ImageBoxView;
class ScanAreaChoice;
class ScanControls;
struct ScanTarget;

/// Takes pictures from a scanner, for the basket or for the disk. Modeless: the window behind it goes on
/// while pages arrive. Closed in the middle of an acquisition it stops the scanner first, which takes a
/// moment.
///
/// Its layout is frmTwain.ui; ScanSession has the course of it.
class frmTwain final : public QDialog {
    Q_OBJECT
public:
    /// What comes from the main window. Settings and memory outlive the dialog.
    struct Start {
        settings::Twain& settings;
        ScanMemory& memory;
        QString temporaryFolder; ///< for the pages that go to the basket
    };

    frmTwain(Start start, std::unique_ptr<Scanner> scanner, QWidget* owner = nullptr);
    ~frmTwain() override;
    frmTwain(const frmTwain&) = delete;
    frmTwain& operator=(const frmTwain&) = delete;

    bool isAcquiring() const { return m_session.isAcquiring(); }
    void done(int result) override;

Q_SIGNALS:
    void acquired(const QString& path); ///< a page for the basket
    void saved(const QString& path);    ///< a page on the disk, or a document when its last page has come

protected:
    void showEvent(QShowEvent* event) override;

private:
    // the parts
    void fillBoxes();
    void arrangeColumns();
    void takeSize();
    void addViews();
    void buildFitMenu();
    void connectControls();
    void connectSession();

    // the scanner
    void showState();
    void moveFocus();
    void showProgressPage();
    void showEmpty();
    void listDevices();
    void showOptions();
    void showChoices(const ScanOptions& options);
    void openMore();

    // pages
    void cmdAcquire_Click();
    void askForName();
    void checkTarget();
    void acquireInto(const ScanTarget& target);
    void startAcquiring(const std::optional<QStringList>& replaceable = {});
    void takePreview(const Picture& picture);
    void takePage(const ScannedPage& page, const AcquiredFile& file);
    void showProgress(const ScanProgress& progress);
    void showEnd(const ScanFaults& faults);
    void setFit(bool bestFit);

    void browseFolder();
    void storeSettings();

    settings::Twain& m_settings;
    const QString m_temporaryFolder;
    std::unique_ptr<Ui::frmTwain> m_ui;
    std::unique_ptr<Scanner> m_scanner;
    ScanSession m_session;
    std::unique_ptr<FormBinding<settings::Twain>> m_binding;
    ImageBox ImageBox1;
    ImageBoxView* m_view = nullptr;
    ScanControls* m_controls = nullptr;
    ScanAreaChoice* m_area = nullptr;
    QPointer<frmScanOptions> m_more;
    QPointer<QWidget> m_focused;   ///< before the scanner's work
    QString m_savedDocument;       ///< that may still get a page
    std::optional<int> m_result;   ///< of the dialog, which closes when the scanner has stopped
    FileQuestion m_targetQuestion; // last, so that it ends first
};

} // namespace tarsel
