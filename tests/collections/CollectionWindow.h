// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Basket.h"
#include "collections/BasketFile.h"
#include "collections/FolderView.h"
#include "tests/collections/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarsel::test {

/// A progress bar that remembers whether it shows, and how often it was started.
class RecordedProgress final : public Progress {
public:
    void start(int newMaximum, int newValue) override {
        maximum = newMaximum;
        value = newValue;
        visible = true;
        ++starts;
    }
    void setValue(int newValue) override { value = newValue; }
    void hide() override { visible = false; }

    int maximum = 0;
    int value = 0;
    int starts = 0;
    bool visible = false;
};

/// What the main window lends to folder view and basket, with a program folder and a picture folder of its
/// own. The icon of a thumbnail is its size. A test fails when an error was reported that it didn't expect.
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

    FolderView folderView() {
        FolderView view(lists, thumbnails);
        view.settings = settings;
        return view;
    }

    Basket basket() { return Basket(lists, settings, thumbnails); }

    /// Lists the picture folder and selects all its rows.
    void listAndSelectAll() {
        folderView().subShowFilesInFolder(pictures);
        lvFolder.selectAll();
    }

    static QStringList texts(const ListView& list) {
        QStringList shown;
        for (int i = 0; i < list.count(); ++i)
            shown << list.row(i).text;
        return shown;
    }

    static QStringList column(const ListView& list, int number) {
        QStringList shown;
        for (int i = 0; i < list.count(); ++i)
            shown << list.subItem(i, number);
        return shown;
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
    ListView lvFolder{folderHeaders()};
    ListView lvPages{basketHeaders()};
    ImageList ilFolder;
    ImageList ilPages;
    ImageBox ibMain;
    RecordedProgress progress;
    StatusLine status;
    CollectionSettings settings;
    ThumbnailMaker thumbnails = [](const Picture& made) {
        return QVariant(QSize(made.width(), made.height()));
    };
    CollectionLists lists{lvFolder, ilFolder, lvPages, ilPages, ibMain, progress, status};
};

} // namespace tarsel::test

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& list, std::ostream* out) {
    *out << '[' << list.join(QStringLiteral(", ")).toStdString() << ']';
}
