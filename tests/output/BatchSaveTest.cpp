// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/output/TestBasket.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class BatchSaving : public testing::Test, public TestBasket {};

/// The kind of a JPEG file's frame header: 0xC0 baseline, 0xC2 progressive; and its number of components.
std::pair<int, int> frameOf(const QString& path) {
    const QByteArray bytes = readWholeFile(path);
    for (qsizetype at = 2; at + 9 < bytes.size();) {
        const int marker = quint8(bytes[at + 1]);
        if (marker >= 0xC0 && marker <= 0xC2)
            return {marker, quint8(bytes[at + 9])};
        at += 2 + (quint8(bytes[at + 2]) << 8 | quint8(bytes[at + 3]));
    }
    return {};
}

/// Does something when a row's side file is applied, which is after its name was found to be free.
class AtSideFile final : public Locale {
public:
    explicit AtSideFile(std::function<void()> step) : m_step(std::move(step)) {}
    DateForms dateForms() override {
        m_step();
        return {};
    }

private:
    std::function<void()> m_step;
    ServiceScope<Locale> m_scope{*this};
};

} // namespace

TEST_F(BatchSaving, SavesEveryRowUnderItsName) {
    EXPECT_TRUE(run());
    EXPECT_TRUE(results.empty() && progress.values.empty()) << "nothing in the basket";
    addPictures({"a.jpg", "b.jpg"});
    std::vector<int> barAtResult;
    slice.onRow = [&](const RowResult&) { barAtResult.push_back(progress.values.back()); };
    EXPECT_TRUE(run());
    EXPECT_EQ(barAtResult, std::vector<int>({0, 1})) << "a result comes as soon as its row is done";
    EXPECT_EQ(states(), "written written");
    EXPECT_EQ(reasons(), QStringList({QString(), QString()}));
    EXPECT_EQ(files("out"), "a.jpg b.jpg");
    EXPECT_EQ(progress.values, std::vector<int>({0, 1, 2}));
}

TEST_F(BatchSaving, ANameOfPartsKnowsTheSizesAndStaysInTheSourceFolder) {
    ASSERT_TRUE(QDir().mkpath(path("pics")));
    nameByParts("[Source resolution]", "[Resulting resolution]");
    settings.DestinationOption = 0;
    halveSizes();
    addPicture("pics/a.jpg", 40, 20);
    EXPECT_TRUE(run());
    EXPECT_EQ(files("pics"), "40x20_a_20x10.jpg a.jpg");
}

TEST_F(BatchSaving, OverwriteOffLeavesWhatIsThereAndWhatTheRunMade) {
    settings.Overwrite = 0;
    addPictures({"a.jpg", "b.jpg", "c.jpg"});
    pages.setText(2, text("b"));
    writeFile("out/a.jpg", "precious");
    EXPECT_TRUE(run());
    EXPECT_EQ(states(), "skipped written skipped");
    EXPECT_EQ(reasons().first(), text("exists already"));
    EXPECT_EQ(readWholeFile(path("out/a.jpg")), QByteArray("precious"));
    EXPECT_EQ(progress.values, std::vector<int>({0, 1, 2, 3})) << "the bar moves on";
}

TEST_F(BatchSaving, OverwriteOffLeavesAFileThatAppearsWhileItsRowIsInWork) {
    settings.Overwrite = 0;
    addPictures({"a.jpg", "b.jpg"});
    importExif("x.xiff", "\"Artist\",\"Jo\"\r\n");
    const AtSideFile appearing([&] { writeFile("out/a.jpg", "precious"); });
    EXPECT_TRUE(run());
    EXPECT_EQ(states(), "skipped written");
    EXPECT_EQ(reasons().first(), text("exists already"));
    EXPECT_EQ(readWholeFile(path("out/a.jpg")), QByteArray("precious"));
}

TEST_F(BatchSaving, TheOptionsRuleTheEncoding) {
    addPicture("a.jpg", 64, 64);
    const QString result = path("out/a.jpg");
    run();
    EXPECT_EQ(frameOf(result), std::make_pair(0xC0, 3));
    const qint64 usual = QFile(result).size();
    settings.JpegProgressive = settings.JpegDepth = 1;
    run();
    EXPECT_EQ(frameOf(result), std::make_pair(0xC2, 1));
    settings.JpegProgressive = settings.JpegDepth = 0;
    settings.JpegQuality = 10;
    run();
    EXPECT_EQ(frameOf(result), std::make_pair(0xC0, 3)) << "settings of the run before are gone";
    EXPECT_LT(QFile(result).size(), usual);
}

TEST_F(BatchSaving, RowsOfAWbmpFileAreReadBesideTheUsualFormats) {
    writeFile("dot.wbmp", QByteArray("\0\0\x08\x02\x0F\xF0", 6));
    addRow("dot.wbmp", "dot");
    EXPECT_TRUE(run());
    EXPECT_EQ(width("out/dot.jpg"), 8);
}
