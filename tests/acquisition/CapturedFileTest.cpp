// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"
#include "base/RandomNumbers.h"
#include "base/SafeFileWriter.h"
#include "base/Service.h"

#include <QFile>
#include <QTemporaryDir>
#include <deque>
#include <gtest/gtest.h>

using namespace tarsel;

namespace {

class GivenNumbers final : public RandomNumbers {
public:
    double randomNumber() override {
        const double number = numbers.front();
        numbers.pop_front();
        return number;
    }
    std::deque<double> numbers;
};

class CapturedFile : public testing::Test {
protected:
    std::string nameFor(double drawn, const QString& prefix = QStringLiteral("Captured")) {
        numbers.numbers = {drawn};
        return capturedFile(QStringLiteral("/a"), prefix, drawCaptureNumber()).mid(3).toStdString();
    }

    QTemporaryDir folder;
    GivenNumbers numbers;
    ServiceScope<RandomNumbers> scope{numbers};
};

} // namespace

TEST_F(CapturedFile, IsNamedByASinglePrecisionNumberInItsShortestForm) {
    EXPECT_EQ(nameFor(0.705618), "Captured7055.4746.tif");
    EXPECT_EQ(nameFor(0.5), "Captured4999.5.tif");
    EXPECT_EQ(nameFor(0, QStringLiteral("Schirm ä")), "Schirm ä0.tif");
    EXPECT_EQ(nameFor(1e-9), "Captured0.000009998999.tif") << "never with an exponent";
}

TEST_F(CapturedFile, TheFolderMayEndInASeparatorThatOnlyBlanksFollow) {
    EXPECT_EQ(capturedFile(QStringLiteral("/a/b/"), {}, 4999.5F).toStdString(), "/a/b/4999.5.tif");
    EXPECT_EQ(capturedFile(QStringLiteral("/a/b/ "), {}, 4999.5F).toStdString(), "/a/b/ 4999.5.tif");
}

TEST_F(CapturedFile, NothingThatIsThereOrComesMeanwhileIsWrittenOver) {
    const auto there = [&](const char* name) { return folder.filePath(QLatin1String(name)); };
    writeFileSafely(there("Captured4999.5.tif"), "first");
    ASSERT_TRUE(QFile::link(there("gone"), there("Captured5000.5.tif")));
    QStringList tried;
    const auto takeFirst = [&](const QString& path) {
        if (tried.isEmpty()) // another program, at that very moment
            writeFileSafely(path, "another");
        tried << path;
    };
    const QString made =
        writeCapturedFile(folder.path(), QStringLiteral("Captured"), 4999.5F, "picture", takeFirst);
    EXPECT_EQ(made, there("Captured5002.5.tif"));
    EXPECT_EQ(tried, (QStringList{there("Captured5001.5.tif"), made}));
    EXPECT_EQ(readWholeFile(made), "picture");
    EXPECT_EQ(readWholeFile(tried[0]), "another");
    EXPECT_EQ(readWholeFile(there("Captured4999.5.tif")), "first");
    EXPECT_FALSE(QFile::exists(there("gone")));
}
