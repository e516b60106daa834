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

QStringList pictures() {
    return folder().entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
}

ImageBox opened(const QString& name) {
    ImageBox box;
    box.LoadFromFile(folder().filePath(name));
    return box;
}

TEST(SamplePictures, AreADozenThatOpenAtACamerasSize) {
    ASSERT_GE(pictures().size(), 8);
    for (const QString& name : pictures()) {
        const ImageBox box = opened(name);
        EXPECT_GE(box.Width() * box.Height(), 1'500'000) << qPrintable(name);
    }
}

TEST(SamplePictures, TellHowAndWhenTheyWereTaken) {
    for (const QString& name : pictures()) {
        const ImageBox box = opened(name);
        for (const char* attribute : {"Make", "Model", "DateTimeOriginal", "ExposureTime", "FNumber",
                                      "ISOSpeedRatings", "FocalLength", "Artist", "Copyright"})
            EXPECT_FALSE(box.ExifValueByName(QString::fromLatin1(attribute)).isEmpty())
                << attribute << " of " << qPrintable(name);
        EXPECT_NO_THROW(ImageBox::ExifTextToDate(box.ExifValueByName(QStringLiteral("DateTimeOriginal"))));
    }
}

TEST(SamplePictures, TellWhatTheyShow) {
    for (const QString& name : pictures()) {
        const ImageBox box = opened(name);
        EXPECT_FALSE(iptcText(box.metadata(), "IptcHeadline").isEmpty()) << qPrintable(name);
        EXPECT_FALSE(iptcText(box.metadata(), "IptcCaption").isEmpty()) << qPrintable(name);
        EXPECT_GE(iptcList(box.metadata(), "IptcKeyword").size(), 3) << qPrintable(name);
        EXPECT_TRUE(iptcDate(box.metadata(), "IptcDateCreated").isValid()) << qPrintable(name);
    }
}

TEST(SamplePictures, KeepLettersBeyondAsciiInTheirNotes) {
    const ImageBox box = opened(QStringLiteral("northern-lights.jpg"));
    EXPECT_EQ(iptcText(box.metadata(), "IptcCity"), QString::fromUtf8("Troms\xc3\xb8"));
}

TEST(SamplePictures, FillTheWholeRangeOfTones) {
    for (const QString& name : pictures()) {
        const ImageBox box = opened(name);
        const ConstPixelView view = box.picture().view();
        int darkest = 255;
        int brightest = 0;
        for (int y = 0; y < view.height; y += 7)
            for (int x = 0; x < view.width; x += 7) {
                darkest = std::min<int>(darkest, view.pixel(x, y)[1]);
                brightest = std::max<int>(brightest, view.pixel(x, y)[1]);
            }
        EXPECT_GE(brightest - darkest, 100) << qPrintable(name);
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
    EXPECT_TRUE(tasks.row(2).column(15).startsWith(QChar(0xA9))) << "the list is read as Windows-1252";
}

} // namespace
} // namespace tarsel
