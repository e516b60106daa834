// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "bytes/Numbers.h"
#include "imaging/clsImageHeaderInfo.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TiffStructure.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarsel;

namespace {

QByteArray bytes(std::initializer_list<int> values) {
    QByteArray made;
    for (const int value : values)
        made += char(value);
    return made;
}

QByteArray chunk(const char* type, const QByteArray& data) {
    QByteArray made;
    appendNumber(made, quint32(data.size()), ByteOrder::Big);
    return made + type + data + QByteArray("crc!");
}

QByteArray png(int width, int depth, int colorType, const QByteArray& chunks) {
    return "\x89PNG\r\n\x1a\n" +
           chunk("IHDR", bytes({0, 0, width >> 8, width & 255, 0, 0, 0, 30, depth, colorType, 0, 0, 0})) +
           chunks;
}

QByteArray density(int x) {
    return chunk("pHYs", bytes({0, 0, x >> 8, x & 255, 0, 0, 0, 1, 1}));
}

QByteArray segment(int marker, const QByteArray& body) {
    const int length = int(body.size()) + 2;
    return bytes({0xFF, marker, length >> 8, length & 255}) + body;
}

QByteArray jpeg(const QByteArray& segments) {
    return "\xFF\xD8" + segments + segment(0xDA, QByteArray(10, 'x')) + "data";
}

QByteArray app0(int unit, int x) {
    return segment(0xE0, bytes({'J', 'F', 'I', 'F', 0, 1, 1, unit, x >> 8, x & 255, 0, 1, 0, 0}));
}

QByteArray frame(int marker, int width, int components) {
    return segment(marker, bytes({8, 0, 30, width >> 8, width & 255, components}));
}

QByteArray tiff(const std::vector<quint32>& unit, quint32 denominator) {
    std::vector<test::RawEntry> entries = {{256, 3, 1, 40}, {257, 3, 1, 30}, {258, 3, 1, 8}, {282, 5, 1, 0}};
    for (const quint32 number : unit)
        entries.push_back({296, 3, 1, number});
    entries[3].value = test::tiffRest(entries.size());
    QByteArray resolution;
    appendNumber(resolution, quint32(72), ByteOrder::Little);
    appendNumber(resolution, denominator, ByteOrder::Little);
    return test::tiffBlock(entries, 0, resolution);
}

const QByteArray data = chunk("IDAT", "x");

class HeaderInfo : public testing::Test {
protected:
    QString file(const QByteArray& content) {
        const QString path = m_folder.filePath(QStringLiteral("file"));
        writeFileSafely(path, content);
        return path;
    }
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(HeaderInfo, ReadsJpegTiffAndPngWithAllTheirGaps) {
    const struct {
        const char* what;
        QByteArray content;
        const char* read; ///< width, height, depth, dpi; "gray"; "failed"
    } cases[] = {
        {"nothing in it", {}, "0 0 0 0 failed"},
        {"another format", "BM and more", "0 0 0 0 failed"},
        {"PNG", png(40, 8, 3, data), "40 30 8 0"},
        {"PNG of 16 bits", png(40, 16, 6, data), "40 30 24 0"},
        {"gray PNG", png(40, 4, 0, data), "40 30 4 0 gray"},
        {"PNG with density", png(40, 8, 2, density(2835) + data), "40 30 24 72"},
        {"PNG with density after its data", png(40, 8, 2, data + density(2835)), "40 30 24 0"},
        {"PNG with an empty chunk", png(40, 8, 2, chunk("tEXt", {}) + density(2835) + data),
         "40 30 24 0 failed"},
        {"PNG with a long chunk", png(40, 8, 2, chunk("zTXt", QByteArray(9000, 'x')) + density(2835) + data),
         "40 30 24 72"},
        {"PNG without data", png(40, 8, 2, {}), "40 30 24 0 failed"},
        {"wide PNG", png(40000, 8, 2, data), "0 0 0 0 failed"},
        {"PNG with other line ends", png(40, 8, 2, data).replace("\r\n", "\n\n"), "0 0 0 0 failed"},
        {"JPEG", jpeg(frame(0xC0, 40, 3)), "40 30 24 1"},
        {"gray JPEG", jpeg(frame(0xC0, 40, 1)), "40 30 24 1 gray"},
        {"progressive JPEG", jpeg(app0(1, 72) + frame(0xC2, 40, 3)), "0 0 24 72"},
        {"JPEG without unit", jpeg(app0(0, 72) + frame(0xC0, 40, 3)), "40 30 24 1"},
        {"JPEG by centimetre", jpeg(app0(2, 100) + frame(0xC0, 40, 3)), "40 30 24 254"},
        {"wide JPEG", jpeg(frame(0xC0, 40000, 3) + app0(1, 72)), "0 30 24 72"},
        {"JPEG with a short segment", jpeg(bytes({0xFF, 0xFE, 0, 2, 1, 2, 3, 4}) + frame(0xC0, 40, 3)),
         "40 30 24 1"},
        {"JPEG with a short frame", jpeg(segment(0xC0, bytes({8, 0, 30}))), "0 30 24 1"},
        {"JPEG of two bytes", "\xFF\xD8", "0 0 24 1"},
        {"TIFF by inch", tiff({2}, 1), "40 30 24 72"},
        {"TIFF by centimetre", tiff({3}, 1), "40 30 24 182"},
        {"TIFF without unit", tiff({}, 1), "40 30 24 182"},
        {"TIFF with density 72/0", tiff({2}, 0), "40 30 0 0 failed"},
        {"TIFF with a long unit", tiff({256}, 1), "40 30 0 0 failed"},
        {"big-endian TIFF", QByteArray("MM\0*\0\0\0\x08", 8), "0 0 0 0 failed"},
        {"TIFF of another version", tiff({2}, 1).replace(2, 1, "+"), "0 0 0 0 failed"},
        {"TIFF without entries", test::tiffBlock({}), "0 0 0 0 failed"},
    };
    for (const auto& c : cases) {
        clsImageHeaderInfo info;
        const bool walked = info.ReadJPEG_TIFF_PNG_Header(file(c.content));
        QString read = QStringLiteral("%1 %2 %3 %4")
                           .arg(info.Width())
                           .arg(info.Height())
                           .arg(info.BitsPerPixel())
                           .arg(info.dpi());
        read += QLatin1String(info.IsGray() ? " gray" : "") + QLatin1String(walked ? "" : " failed");
        EXPECT_EQ(read.toStdString(), c.read) << c.what;
    }
    clsImageHeaderInfo info;
    info.ReadJPEG_TIFF_PNG_Header(file(jpeg(frame(0xC0, 40, 1))));
    EXPECT_FALSE(info.ReadJPEG_TIFF_PNG_Header(m_folder.filePath(QStringLiteral("missing"))));
    EXPECT_EQ(info.Width(), 40) << "a missing file changes nothing";
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(test::errorNumberOf([&] { info.ReadJPEG_TIFF_PNG_Header(file("BM"), stop.get_token()); }),
              ErrorNumber::Interrupted);
}

TEST_F(HeaderInfo, ReadsGifAndBmpByTheirFirstBytes) {
    const auto bmp = [](int height) {
        QByteArray made = "BM" + QByteArray(30, '\0');
        made[18] = 40;
        made[22] = char(height & 255);
        made[23] = char(height >> 8);
        made[28] = 8;
        return made;
    };
    const struct {
        QByteArray content;
        int width, height, depth;
        qint32 error;
    } cases[] = {
        {"G", 0, 0, 0, 0},
        {"GIF" + bytes({0, 0, 0, 40, 1, 30, 0, 0xF7}), 296, 30, 8, 0},
        {bmp(30), 40, 30, 8, 0},
        {bmp(0xFFE2), 40, 0, 0, ErrorNumber::Overflow}, // rows from the top
    };
    clsImageHeaderInfo info;
    for (const auto& c : cases) {
        EXPECT_EQ(test::errorNumberOf([&] { info.ReadGIF_BMP_Header(file(c.content)); }), c.error);
        EXPECT_EQ(info.Width(), c.width);
        EXPECT_EQ(info.Height(), c.height);
        EXPECT_EQ(info.BitsPerPixel(), c.depth);
    }
}
