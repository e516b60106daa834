// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Basket.h"
#include "collections/BasketFile.h"
#include "collections/FolderView.h"
#include "collections/PictureFiles.h"
#include "collections/Thumbnail.h"
#include "collections/Workspace.h"
#include "tests/support/MadePictures.h"
#include "tests/support/RecordedProgress.h"
#include "tests/support/TestDesktop.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <gtest/gtest.h>
#include <semaphore>

namespace tarsel::test {

/// Reads pictures, one of them not before it is released. It must outlive its basket.
class HeldReader {
public:
    explicit HeldReader(Basket& basket, const char* heldName) {
        basket.readThumbnail = [this, name = QString::fromLatin1(heldName)](const QString& path,
                                                                            auto... how) {
            EXPECT_NE(QThread::currentThread(), QCoreApplication::instance()->thread());
            if (path.contains(name)) {
                m_begun = true;
                m_released.acquire();
            }
            return loadThumbnail(path, how...);
        };
    }
    bool hasBegun() const { return m_begun; }
    void release() { m_released.release(); }

private:
    std::atomic<bool> m_begun = false;
    std::counting_semaphore<> m_released{0};
};

/// What folder view and basket work on in the main window, with a program folder and a picture folder of its
/// own. A test fails when an error was reported that it didn't expect.
class CollectionWindow : public testing::Test {
protected:
    CollectionWindow() {
        QDir().mkpath(pictures);
        settings.programFolder = folder.filePath(QStringLiteral("program"));
        settings.folderThumb = settings.basketThumb = {40, 30};
    }

    void TearDown() override {
        for (const ErrorReport& report : desktop.reports)
            ADD_FAILURE() << report.ErrRoutine.toStdString() << ": " << report.ErrSystem.toStdString();
        EXPECT_FALSE(progress.visible);
    }

    QString picture(const char* name) const { return pictures + QLatin1Char('/') + QString::fromUtf8(name); }

    Basket basket() { return Basket(lists, settings); }

    /// Lists a folder to the end.
    void list(const QString& path) {
        view.settings = settings;
        view.subShowFilesInFolder(path);
        waitForList();
    }

    void waitForList() {
        while (view.isRunning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// Lists the picture folder and selects all its rows.
    void listAndSelectAll() {
        list(pictures);
        lvFolder.selectAll();
    }

    /// Acts once, when the window gets time to work and the condition holds.
    void when(const std::function<bool()>& condition, const std::function<void()>& action) {
        desktop.onYield = [condition, action, done = false]() mutable {
            if (!done && condition()) {
                done = true;
                action();
            }
        };
    }

    /// Rows of the basket with their pictures.
    int completeRows() const {
        int complete = 0;
        for (int row = 0; row < lvPages.count(); ++row)
            complete += lvPages.row(row).icon >= 0 ? 1 : 0;
        return complete;
    }

    /// Size of the picture at an index, 0 x 0 without one.
    static QSize sizeAt(const ImageList& images, int index) {
        const Picture made = pictureAt(images, index);
        return {made.width(), made.height()};
    }

    /// The texts of all rows, with blanks between them.
    static std::string texts(const ListView& list) { return column(list, 0); }

    static std::string column(const ListView& list, int number, char separator = ' ') {
        QStringList shown;
        for (int i = 0; i < list.count(); ++i)
            shown << (number == 0 ? list.row(i).text : list.subItem(i, number));
        return shown.join(QLatin1Char(separator)).toStdString();
    }

    std::string panel(const char* key) const { return status.panel(QLatin1String(key)).toStdString(); }

    /// Small pictures in the picture folder.
    void makePictures(std::initializer_list<const char*> names) const {
        for (const char* name : names)
            makePicture(picture(name), {4, 4});
    }

    QStringList pageFiles() const {
        return QDir(temporaryFolder(settings.programFolder)).entryList(QDir::Files | QDir::Hidden);
    }

    /// Takes the one error that a test expects.
    ErrorReport takeReport() {
        EXPECT_EQ(desktop.reports.size(), 1u);
        const ErrorReport report = desktop.reports.empty() ? ErrorReport() : desktop.reports.front();
        desktop.reports.clear();
        return report;
    }

    TestDesktop desktop;
    QTemporaryDir folder;
    QString pictures = folder.filePath(QStringLiteral("pictures"));
    Workspace workspace;
    ListView& lvFolder = workspace.lvFolder;
    ListView& lvPages = workspace.lvPages;
    ImageList& ilFolder = workspace.ilFolder;
    ImageList& ilPages = workspace.ilPages;
    StatusLine& status = workspace.sbMain;
    RecordedProgress progress;
    CollectionSettings settings;
    CollectionLists lists = workspace.lists(progress);
    FolderView view{lists};
};

} // namespace tarsel::test

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& list, std::ostream* out) {
    *out << '[' << list.join(QStringLiteral(", ")).toStdString() << ']';
}
