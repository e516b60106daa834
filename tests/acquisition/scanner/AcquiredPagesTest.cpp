// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/AcquiredPages.h"
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"
#include "codecs/Resolution.h"
#include "tests/support/Boxes.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/TestPictures.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/syscall.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

ScannedPage pageOf(int number, int colorFormat = 0) {
    const Picture picture = pictureOf(40 + number, 30, 3, [](int x, int) {
        return x % 2 ? Rgb{0, 0, 0} : Rgb{255, 255, 255};
    });
    return {.picture = picture, .number = number, .colorFormat = colorFormat, .dpiX = 300, .dpiY = 150};
}

enum Destination { Basket, SinglePages, Document };

class AcquiredPagesTest : public testing::Test {
protected:
    settings::Twain choice(Destination destination, int format) const {
        settings::Twain made;
        made.Acquire = destination == Basket ? 0 : 1;
        made.FileOption = destination == Document ? 1 : 0;
        made.GenericName = QStringLiteral("Twain");
        made.SinglePageFormat = made.MultiPageFormat = qint16(format);
        made.Folder = folder.path() + u'/';
        return made;
    }
    AcquiredPages pages(Destination destination, int format = 0) const {
        return {choice(destination, format), path("temp")};
    }
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    std::string files(const QString& where) const {
        return QDir(where).entryList(QDir::Files | QDir::Hidden).join(u' ').toStdString();
    }

    QTemporaryDir folder;
};

/// Of a PDF document as another program counts them.
int pageCount(const QString& document) {
    if (document.endsWith(QLatin1String(".tif")))
        return ImageBox::PageCount(document);
    QProcess process;
    process.start(QStringLiteral("qpdf"), {QStringLiteral("--show-npages"), document});
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed().toInt();
}

std::string failureOf(const AcquiredFile& file) {
    return file.error ? file.error->description.toStdString() : std::string();
}

} // namespace

TEST_F(AcquiredPagesTest, PutsPagesForTheBasketIntoNewTemporaryFiles) {
    AcquiredPages basket = pages(Basket);
    QStringList seen;
    for (const int number : {1, 2, 2}) {
        const AcquiredFile file = basket.subAcquirePage(pageOf(number));
        EXPECT_EQ(failureOf(file), "");
        EXPECT_FALSE(seen.contains(file.path));
        seen << file.path;
        const QRegularExpression form(QStringLiteral("/temp/%1_(\\d{1,4})\\.tif$").arg(number));
        const QRegularExpressionMatch match = form.match(file.path);
        ASSERT_TRUE(match.hasMatch()) << file.path.toStdString();
        EXPECT_LT(match.captured(1).toInt(), 9999);
        EXPECT_EQ(loaded(file.path).Width(), 40 + number);
    }
}

TEST_F(AcquiredPagesTest, CountsOnWhereAllNamesForTheBasketAreTaken) {
    ASSERT_TRUE(QDir().mkpath(path("temp")));
    for (int number = 0; number < 9999; ++number) {
        QFile taken(folder.filePath(QStringLiteral("temp/1_%1.tif").arg(number)));
        ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    }
    AcquiredPages basket = pages(Basket);
    const AcquiredFile file = basket.subAcquirePage(pageOf(1));
    EXPECT_EQ(failureOf(file), "");
    EXPECT_EQ(file.path, path("temp/1_9999.tif"));
}

TEST_F(AcquiredPagesTest, PagesForTheBasketAreListedBeforeTheyAreThereWhereverAKillComes) {
    int kills = 0, found = 0;
    for (const int call : {SYS_mkdir, SYS_openat, SYS_open, SYS_write, SYS_fsync, SYS_linkat, SYS_close}) {
        const int end = inChild([&] {
            AcquiredPages basket = pages(Basket);
            dieAtSystemCall(call);
            for (const int number : {1, 2, 3})
                basket.subAcquirePage(pageOf(number));
            return 0;
        });
        EXPECT_TRUE(end == 0 || end == -SIGSYS) << end;
        kills += end == -SIGSYS;
        const QStringList files = QDir(path("temp")).entryList({QStringLiteral("*.tif")}, QDir::Files);
        found += int(files.size());
        EXPECT_EQ(acquiredFiles::present(path("temp")).size(), files.size()) << call;
    }
    EXPECT_GE(kills, 4);
    EXPECT_GE(found, 3);
    QFile::remove(path("temp/acquired.txt"));
    ASSERT_TRUE(QDir().mkpath(path("temp/acquired.txt"))) << "can't be listed";
    const std::string before = files(path("temp"));
    AcquiredPages basket = pages(Basket);
    EXPECT_NE(failureOf(basket.subAcquirePage(pageOf(1))), "");
    EXPECT_EQ(files(path("temp")), before);
}

TEST_F(AcquiredPagesTest, NumbersSinglePagesInFrontOfTheExtension) {
    const char* expected[] = {"bmp", "jpg", "tif", "pdf", "psd", "gif"};
    for (int format = 0; format < int(singlePageFormats().size()); ++format) {
        AcquiredPages single = pages(SinglePages, format);
        for (const int number : {1, 12})
            EXPECT_EQ(failureOf(single.subAcquirePage(pageOf(number))), "");
        const QString extension = QString::fromLatin1(expected[format]);
        for (const int number : {1, 12}) {
            const QString file = folder.filePath(QStringLiteral("Twain%1.%2").arg(number).arg(extension));
            if (extension == QLatin1String("pdf"))
                EXPECT_EQ(pageCount(file), 1);
            else
                EXPECT_EQ(loaded(file).Width(), 40 + number);
        }
    }
    EXPECT_EQ(resolutionOf(loaded(path("Twain1.tif")).metadata().blocks()), (Resolution{300, 150}));
}

TEST_F(AcquiredPagesTest, MakesOneDocumentInPlaceOfAnOlderOne) {
    for (const int format : {0, 1}) {
        const QString document = path(format == 0 ? "Twain.tif" : "Twain.pdf");
        for (const int count : {4, 3}) { // the second run is shorter
            AcquiredPages multi = pages(Document, format);
            for (int number = 1; number <= count; ++number) {
                const AcquiredFile file = multi.subAcquirePage(pageOf(number));
                EXPECT_EQ(failureOf(file), "");
                EXPECT_EQ(file.path, document);
            }
            EXPECT_EQ(pageCount(document), count);
        }
    }
    ImageBox box;
    box.PageNumber = 3;
    box.LoadFromFile(path("Twain.tif"));
    EXPECT_EQ(box.Width(), 43);
    EXPECT_EQ(files(folder.path()), "Twain.pdf Twain.tif") << "nothing else is left";
}

TEST_F(AcquiredPagesTest, StoresBlackAndWhitePagesOfADocumentAsAFaxDoes) {
    AcquiredPages multi = pages(Document);
    EXPECT_EQ(failureOf(multi.subAcquirePage(pageOf(1, 6))), "");
    EXPECT_EQ(failureOf(multi.subAcquirePage(pageOf(2, 0))), "");
    const auto compression = [&](int page) {
        ImageBox box;
        box.PageNumber = page;
        box.LoadFromFile(path("Twain.tif"));
        const QByteArray storage = box.metadata().blocks().storage;
        const qsizetype entry = storage.indexOf(QByteArray::fromHex("030103000100000000000000").left(8));
        return entry < 0 ? -1 : int(quint8(storage[entry + 8]));
    };
    EXPECT_EQ(compression(1), 4);
    EXPECT_EQ(compression(2), 1) << "the page after it keeps its colours, uncompressed";
}

TEST_F(AcquiredPagesTest, BeginsTheDocumentWithTheFirstPageThatCanBeSaved) {
    const QString document = path("Twain.tif");
    ASSERT_TRUE(QDir().mkpath(document)) << "a folder is in the way";
    AcquiredPages multi = pages(Document);
    EXPECT_NE(failureOf(multi.subAcquirePage(pageOf(1))), "");
    ASSERT_TRUE(QDir().rmdir(document));
    writeFileSafely(document, "an older document");
    EXPECT_EQ(failureOf(multi.subAcquirePage(pageOf(2))), "");
    EXPECT_EQ(failureOf(multi.subAcquirePage(pageOf(3))), "");
    EXPECT_EQ(pageCount(document), 2);
}

TEST_F(AcquiredPagesTest, KeepsTheDocumentWhenAPageFails) {
    const QString document = path("Twain.pdf");
    AcquiredPages multi = pages(Document, 1);
    EXPECT_EQ(failureOf(multi.subAcquirePage(pageOf(1))), "");
    const QByteArray before = readWholeFile(document);
    EXPECT_NE(failureOf(multi.subAcquirePage({.picture = {}, .number = 2})), "")
        << "a page without a picture";
    EXPECT_EQ(readWholeFile(document), before);
    EXPECT_EQ(failureOf(multi.subAcquirePage(pageOf(3))), "");
    EXPECT_EQ(pageCount(document), 2);
}

TEST_F(AcquiredPagesTest, TellsOfADocumentThatIsGone) {
    for (const int format : {0, 1}) {
        AcquiredPages multi = pages(Document, format);
        const AcquiredFile first = multi.subAcquirePage(pageOf(1));
        ASSERT_EQ(failureOf(first), "");
        ASSERT_TRUE(QFile::remove(first.path));
        const AcquiredFile second = multi.subAcquirePage(pageOf(2));
        ASSERT_TRUE(second.error);
        EXPECT_EQ(second.error->number, ErrorNumber::FileNotFound);
        EXPECT_EQ(files(folder.path()), "");
    }
}

TEST_F(AcquiredPagesTest, ReplacesWhatTheUserAgreedToAndKeepsWhatCameSince) {
    for (const Destination destination : {SinglePages, Document}) {
        const bool isDocument = destination == Document;
        const QString agreed = path(isDocument ? "Twain.tif" : "Twain1.bmp");
        writeFileSafely(agreed, "old");
        AcquiredPages asked(choice(destination, 0), path("temp"), QStringList{QFileInfo(agreed).fileName()});
        EXPECT_EQ(failureOf(asked.subAcquirePage(pageOf(1))), "");
        EXPECT_EQ(loaded(agreed).Width(), 41);

        const QString since = path(isDocument ? "Twain.pdf" : "Twain2.bmp");
        AcquiredPages other(choice(destination, isDocument ? 1 : 0), path("temp"), QStringList());
        writeFileSafely(since, "of another program");
        const AcquiredFile file = other.subAcquirePage(pageOf(isDocument ? 1 : 2));
        ASSERT_TRUE(file.error);
        EXPECT_EQ(file.error->number, ErrorNumber::PermissionDenied);
        EXPECT_EQ(readWholeFile(since), "of another program");
    }
}

TEST_F(AcquiredPagesTest, KeepsOlderFilesWhereThatIsWanted) {
    const QString file = path("page.tif");
    EXPECT_TRUE(saveScannedPage(pageOf(1), file, OldFile::Keep));
    EXPECT_FALSE(saveScannedPage(pageOf(2), file, OldFile::Keep));
    PagedDocument document(file, OldFile::Keep);
    EXPECT_FALSE(document.add(pageOf(1)));
    EXPECT_FALSE(document.add(pageOf(2))) << "never appended to a document of somebody else";
    EXPECT_EQ(loaded(file).Width(), 41);
    EXPECT_EQ(ImageBox::PageCount(file), 1);
}
