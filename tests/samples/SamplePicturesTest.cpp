// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "embedded/IptcFields.h"
#include "imaging/ImageBox.h"
#include "tasks/TaskFile.h"
#include "tasks/TaskList.h"
#include "tests/support/TestDesktop.h"

#include <QCoreApplication>
#include <QDir>
#include <gtest/gtest.h>

namespace tarsel {
namespace {

QDir folder() {
    return QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/" TARSEL_SAMPLES));
}

TEST(SamplePictures, OpenAtACamerasSizeAndSayWhatTheyShow) {
    const QStringList pictures = folder().entryList({QStringLiteral("*.jpg")}, QDir::Files);
    ASSERT_GE(pictures.size(), 8);
    for (const QString& name : pictures) {
        SCOPED_TRACE(qPrintable(name));
        ImageBox box;
        box.LoadFromFile(folder().filePath(name));
        EXPECT_GE(box.Width() * box.Height(), 1'500'000);
        EXPECT_NO_THROW(ImageBox::ExifTextToDate(box.ExifValueByName(QStringLiteral("DateTimeOriginal"))));
        EXPECT_FALSE(iptcText(box.metadata(), "IptcCaption").isEmpty());
        EXPECT_GE(iptcList(box.metadata(), "IptcKeyword").size(), 3);
    }
}

TEST(SampleLetter, HasThreePagesDarkOnLight) {
    const QString letter = folder().filePath(QStringLiteral("letter.tif"));
    ASSERT_EQ(ImageBox::PageCount(letter), 3);
    for (int page = 1; page <= 3; ++page) {
        ImageBox box;
        box.PageNumber = page;
        box.LoadFromFile(letter);
        EXPECT_EQ(box.PixelColor(5, 5), Color(0xFFFFFF)) << "page " << page;
    }
}

TEST(SampleTaskList, OpensAsResizeSharpenAndText) {
    const test::TestDesktop desktop;
    TaskList tasks;
    ASSERT_TRUE(modSaveOpenImageList::fncOpenTaskBasket(folder().filePath(QStringLiteral("web.tbf")), tasks));
    EXPECT_TRUE(desktop.messages.empty());
    ASSERT_EQ(tasks.count(), 3);
    EXPECT_EQ(tasks.row(0).key, QStringLiteral("resize"));
    EXPECT_EQ(tasks.row(1).key, QStringLiteral("sharpen"));
    EXPECT_EQ(tasks.row(2).key, QStringLiteral("text"));
    EXPECT_TRUE(tasks.row(2).columns[14].startsWith(QChar(0xA9))) << "the list is read as Windows-1252";
}

} // namespace
} // namespace tarsel
