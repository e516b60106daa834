// SPDX-License-Identifier: GPL-3.0-or-later
// Encoded sizes, and pages that are added to documents.

#include "codecs/PictureFile.h"
#include "imaging/SaveFormats.h"
#include "tests/support/Boxes.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestPictures.h"

#include "base/SafeFileWriter.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class Saving : public testing::Test {
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

using Change = std::function<void(ImageBox&)>;

TEST_F(Saving, EncodedSizeIsThatOfTheFileInEveryFormatAndAfterEveryChange) {
    const Change changes[] = {
        [](ImageBox&) {},
        [](ImageBox& b) { b.ColorFormat = 5; },
        [](ImageBox& b) { b.JpegQuality = 20; },
        [](ImageBox& b) { b.ExifSet(QStringLiteral("Artist"), QStringLiteral("Jo Sandberg")); },
        [](ImageBox& b) {
            b.LoadFromMemory(plainPicture(9, 9, 3, {7, 8, 9}), 7);
        },
        [](ImageBox& b) { b.setPictureHandle(noisePicture(15, 14, 3)); },
        [](ImageBox& b) { b.TakeLoaded(boxWith(noisePicture(13, 12, 3))); },
    };
    ImageBox box = boxWith(photograph(60, 40));
    for (const Change& change : changes)
        for (std::size_t format = 0; format < saveFormats().size(); ++format) {
            SCOPED_TRACE(testing::Message() << &change - changes << ' ' << saveFormats()[format].name);
            box.EncodedSize(int(format)); // of what the change replaces
            change(box);
            const QString file = path(QStringLiteral("x.") + QLatin1String(saveFormats()[format].extension));
            const qint64 size = box.EncodedSize(int(format));
            box.SaveToFile(file);
            EXPECT_EQ(QFileInfo(file).size(), size);
            ImageBox fresh = box; // and its bytes are those of a box that has encoded nothing before
            fresh.LoadFromMemory(box.picture(), 7);
            EXPECT_EQ(fresh.encoded(QFileInfo(file).suffix()), readWholeFile(file));
        }
    EXPECT_EQ(errorNumberOf([&] { box.EncodedSize(9); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(Saving, TheSaveAfterEncodedSizeTakesTheBytesThatAreThere) {
    ImageBox box = boxWith(photograph(60, 40));
    box.EncodedSize(2);
    EXPECT_EQ(box.encoded(QStringLiteral("jpeg")).constData(),
              box.encoded(QStringLiteral("JPG")).constData());
}

TEST_F(Saving, PagesOfAnyKindAreAddedToADocumentOfEitherByteOrder) {
    for (const bool bigEndian : {false, true}) {
        const QString document = path(bigEndian ? QStringLiteral("big.tif") : QStringLiteral("little.tif"));
        std::vector<Picture> pages;
        for (int i = 0; i < 8; ++i) {
            ImageBox box = boxWith(noisePicture(31 + i, 17, 3, unsigned(i)));
            box.ExifSet(QStringLiteral("Artist"), QString::number(i));
            if (bigEndian && i == 0) {
                EmbeddedMetadata blocks;
                blocks.exif = QByteArray("MM\0*\0\0\0\x08\0\0\0\0\0\0", 14);
                box.metadata() = MetadataStore(blocks);
                box.ExifSet(QStringLiteral("Artist"), QStringLiteral("0"));
            }
            box.ExifSet(QStringLiteral("ISOSpeedRatings"), QStringLiteral("100"));
            box.ColorFormat = i % 7;
            box.TiffCompression = i % 3;
            box.SaveToFile(path(QStringLiteral("single.tif")));
            pages.push_back(PictureFile(path(QStringLiteral("single.tif"))).decode().picture);
            box.AddPageTiff(document, QStringLiteral("Page %1").arg(i));
        }
        ASSERT_EQ(ImageBox::PageCount(document), 8);
        EXPECT_EQ(readWholeFile(document).startsWith("MM"), bigEndian);
        for (int i = 0; i < 8; ++i) {
            ImageBox box;
            box.PageNumber = i + 1;
            box.LoadFromFile(document);
            EXPECT_TRUE(box.picture() == pages[std::size_t(i)]) << i;
            EXPECT_EQ(box.ExifValueByName(QStringLiteral("Artist")), QString::number(i));
            EXPECT_EQ(box.ExifValueByName(QStringLiteral("ISOSpeedRatings")), QStringLiteral("100"));
            EXPECT_EQ(box.ExifValueByName(QStringLiteral("DocumentName")), QStringLiteral("Page %1").arg(i));
        }
    }
}

TEST_F(Saving, PdfPagesAreAddedAfterTheOldOnes) {
    if (QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty())
        GTEST_SKIP() << "poppler is not installed";
    const QString document = path(QStringLiteral("x.pdf"));
    for (int i = 0; i < 3; ++i)
        boxWith(photograph(96 * (i + 1), 96)).AddPagePdf(document, QStringLiteral("Straße %1").arg(i));
    QProcess process;
    process.start(QStringLiteral("pdfinfo"), {QStringLiteral("-l"), QStringLiteral("3"), document});
    process.waitForFinished(-1);
    const QString facts = QString::fromUtf8(process.readAllStandardOutput()).simplified();
    for (const char* fact : {"Title: Straße 0", "Pages: 3", "Page 1 size: 72 x 72", "Page 3 size: 216 x 72"})
        EXPECT_TRUE(facts.contains(QString::fromUtf8(fact))) << facts.toStdString();
}

TEST_F(Saving, AFailureToAddAPageLeavesTheOldDocumentAsItWas) {
    using AddPage = std::function<void(ImageBox&, const QString&)>;
    const std::pair<const char*, AddPage> kinds[] = {
        {"x.tif", [](ImageBox& box, const QString& file) { box.AddPageTiff(file, {}); }},
        {"x.pdf", [](ImageBox& box, const QString& file) { box.AddPagePdf(file, {}); }},
    };
    reportFileSizeLimitAsError();
    for (const auto& [name, addPage] : kinds) {
        SCOPED_TRACE(name);
        const QString file = path(QLatin1String(name));
        ImageBox box = boxWith(noisePicture(90, 90, 3));
        addPage(box, file);
        const QByteArray whole = readWholeFile(file);
        {
            const FileSizeLimit fullDisk(rlim_t(whole.size()) + 100);
            EXPECT_EQ(errorNumberOf([&] { addPage(box, file); }), ErrorNumber::DiskFull);
        }
        EXPECT_EQ(readWholeFile(file), whole);
        addPage(box, file);
        const QByteArray two = readWholeFile(file);
        const QByteArray cut = two.startsWith("%PDF") ? two.chopped(20) : two.left(whole.size() + 10);
        for (const QByteArray& damaged :
             {whole.left(whole.size() / 2), cut, QByteArray("no document"), QByteArray()}) {
            writeBytes(file, damaged);
            EXPECT_EQ(errorNumberOf([&] { addPage(box, file); }), ErrorNumber::UnreadableFile);
            EXPECT_EQ(readWholeFile(file), damaged);
        }
    }
}

} // namespace
