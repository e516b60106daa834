// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/FileQuestion.h"
#include "collections/NewestWork.h"
#include "output/PrintPages.h"

#include <QDialog>
#include <QPageLayout>
#include <functional>
#include <map>
#include <memory>
#include <vector>

class QPrinter;

namespace tarsel {

namespace Ui {
class frmPrint;
}
struct FoundPrinters;
struct OpenPrinter;

/// The pictures that a print dialog is about.
struct PrintSubject {
    int count = 1;
    std::function<PrintPicture(int index)> load; ///< called on a thread
    std::function<QString(const PrintLayout& layout, int index)> caption;
};

/// The layout of the pages, with a preview of them. The layout takes what is shown when the dialog closes,
/// also by Cancel. A single picture is repeated in all places of its page.
class frmPrint final : public QDialog {
    Q_OBJECT
public:
    frmPrint(PrintLayout& layout, PrintSubject subject, QWidget* owner = nullptr);
    ~frmPrint() override;
    frmPrint(const frmPrint&) = delete;
    frmPrint& operator=(const frmPrint&) = delete;

    /// The printer as it was set up; null when a PDF document is wanted, and before the printer answers.
    QPrinter* printer() const;
    QPageLayout sheet() const;
    /// How large the dialog needs a picture that is only drawn.
    static PixelSize drawnSize(PixelSize pixels);
    /// The layout by which the pages are to be drawn.
    PrintLayout pageLayout() const;

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fillBoxes();
    void listPapers();
    void listPrinters(const FoundPrinters& found);
    void showLayout();
    PrintLayout shown() const;
    void connectControls();
    void choosePrinter();
    void showPrinter();
    QString chosenPrinter() const;
    OpenPrinter* openedPrinter() const; ///< null like printer()
    QString printerState() const;
    void cmdPrinter_Click();
    void takeSetUp(const std::shared_ptr<OpenPrinter>& opened);
    void takePaperOf(const OpenPrinter& opened);
    void selectPaper(int paper);
    void showPage();
    std::vector<int> indexesOnPage() const;
    void loadMissing(const std::vector<int>& indexes);
    void takeLoaded(int index, const PrintPicture& picture);

    PrintLayout& m_layout;
    const PrintSubject m_subject;
    std::unique_ptr<Ui::frmPrint> m_ui;
    std::map<QString, std::shared_ptr<OpenPrinter>> m_printers; ///< those that were asked, by name
    std::map<int, PrintPicture> m_pictures; ///< reduced, by index; null ones can't be read
    std::vector<int> m_wanted;              ///< indexes that are being loaded
    FileQuestion m_printerQuestion;
    NewestWork<std::vector<int>> m_loading; // last, so that it ends first
};

} // namespace tarsel
