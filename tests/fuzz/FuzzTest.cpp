// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/PackedRecords.h"
#include "acquisition/scanner/ScannerProtocol.h"
#include "base/SafeFileWriter.h"
#include "configuration/RecordImage.h"
#include "publishing/joined/JoinedOptions.h"
#include "publishing/joined/JoinedWriter.h"
#include "tests/fuzz/Fuzzers.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/Metafiles.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TiffStructure.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace tarsel;

namespace {

using Seeds = QByteArrayList;

Seeds filesOf(const char* folder) {
    Seeds seeds;
    const QDir files(QStringLiteral(TARSEL_TESTS "/") + QString::fromLatin1(folder));
    for (const QString& name : files.entryList(QDir::Files))
        seeds << readWholeFile(files.filePath(name));
    EXPECT_GE(seeds.size(), 3) << folder;
    return seeds;
}

Seeds records() {
    return filesOf("fixtures/records") << recordImage(defaultRecord(QStringLiteral("/p"))) << QByteArray();
}

Seeds listFiles() {
    return filesOf("fixtures/records")
           << filesOf("tasks/fixtures") << filesOf("collections/fixtures") << QByteArray();
}

Seeds metadataBlocks() {
    const EmbeddedMetadata blocks = test::everyKindOfMetadata();
    const QByteArray xmp =
        "<r:RDF xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#' xmlns:a='http://ns.adobe.com/exif/1.0/'"
        " xmlns:dc='http://purl.org/dc/elements/1.1/'><r:Description dc:description='d' a:GPSAltitude='1'>"
        "<dc:description><r:Alt><r:li "
        "xml:lang='x-default'>&lt;</r:li></r:Alt></dc:description><dc:description/>"
        "<a:GPSInfo><r:Seq><r:li/></r:Seq></a:GPSInfo></r:Description></r:RDF>  <?xpacket end='w'?>";
    return {'\1' + blocks.exif, '\1' + test::cameraBlock(), '\0' + blocks.resources, xmp};
}

Seeds pictures() {
    Seeds seeds = filesOf("fixtures/pixels") << QByteArray("\0\0\x08\x01\xAA", 5); // WBMP
    for (const char* format : {"jpg", "png", "tif", "bmp"}) {
        const Codec* codec = codecForExtension(QString::fromLatin1(format));
        seeds << codec->encode(test::photograph(13, 9), {}, test::everyKindOfMetadata());
    }
    return seeds;
}

Seeds joinedFiles() {
    QByteArray file;
    joined::JoinedWriter writer(
        [&](std::string_view bytes) { file.append(bytes.data(), qsizetype(bytes.size())); });
    writer.player("player");
    writer.picture("one", "JPEG");
    EXPECT_TRUE(writer.finish(*joined::bytesOf(joined::EffectOptions{"Hi"})));
    return {file};
}

Seeds metafiles() {
    return {test::wmf(test::redLeftHalf()), test::wmf(test::wmfRecord(0x0A32, {0, 0, 4, 4, 2, 2}), false),
            test::emf(test::emfRecord(43, {0, 0, 20, 20}))};
}

QByteArray bytesOf(const void* data, std::size_t size) {
    return QByteArray(static_cast<const char*>(data), qsizetype(size));
}

Seeds scannerAnswers() {
    PackedWriter options;
    for (const char* text : {"resolution", "Scan resolution", ""})
        options.text(text);
    // A fixed number in dpi that can be set: a range from 1 to 1200, now 300.
    for (const int number : {2, 4, 5, 1, 1, 1 << 16, 1200 << 16, 0, 1, 300 << 16})
        options.number(number);
    for (const char* text : {"mode", "Scan mode", ""})
        options.text(text);
    for (const int number : {3, 0, 5, 1, 3, 1})
        options.number(number);
    for (const char* text : {"Gray", "Gray"})
        options.text(text);
    options.number(0);
    PackedWriter devices;
    for (const char* text : {"test:0", "Noname", "frontend-tester", "virtual device"})
        devices.text(text);
    const ScannerFrame frame{1, 1, 10, 3, 4, 8};
    return {'\0' + bytesOf(options.bytes().data(), options.bytes().size()),
            '\1' + bytesOf(&frame, sizeof frame) + QByteArray(45, 'x'),
            '\2' + bytesOf(devices.bytes().data(), devices.bytes().size())};
}

/// Cut short, one bit turned, a run of bytes overwritten.
QByteArray damaged(QByteArray bytes, std::mt19937& random) {
    const auto below = [&](qsizetype limit) {
        return qsizetype(random() % std::mt19937::result_type(std::max<qsizetype>(limit, 1)));
    };
    const qsizetype place = below(bytes.size());
    switch (random() % 3) {
    case 0:
        bytes.truncate(place);
        break;
    case 1:
        if (!bytes.isEmpty())
            bytes[place] = char(bytes[place] ^ (1 << random() % 8));
        break;
    default:
        bytes.replace(place, below(9), QByteArray(below(9), char(random())));
    }
    return bytes;
}

const struct {
    const char* name;
    void (*fuzzer)(const QByteArray&);
    Seeds (*seeds)();
    int damagedCopies; ///< of each seed
} readers[] = {{"configuration", fuzz::readConfiguration, records, 150},
               {"list files", fuzz::readListFiles, listFiles, 40},
               {"metadata", fuzz::readMetadata, metadataBlocks, 5000},
               {"pictures", fuzz::readPicture, pictures, 300},
               {"header", fuzz::readHeader, pictures, 40},
               {"joined files", fuzz::readJoinedFile, joinedFiles, 5000},
               {"metafiles", fuzz::drawMetafile, metafiles, 300},
               {"answers of scanners", fuzz::readScannerAnswer, scannerAnswers, 5000}};

} // namespace

/// Whatever the bytes are, each reader keeps its promises; the fuzzers search on for more such bytes.
/// Fixtures are named by their fault.
TEST(Readers, KeepTheirPromisesOnGoodAndDamagedFiles) {
    const test::TestDesktop desktop;
    for (const auto& [name, fuzzer, seeds, damagedCopies] : readers) {
        std::mt19937 random(7);
        for (const QByteArray& seed : seeds())
            for (int copy = 0; copy <= damagedCopies; ++copy) {
                const QByteArray bytes = copy == 0 ? seed : damaged(damaged(seed, random), random);
                try {
                    fuzzer(bytes);
                } catch (const std::exception& error) {
                    FAIL() << name << ": not kept: " << error.what() << "; bytes "
                           << bytes.toHex().left(4000).constData();
                }
            }
    }
}
