// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/CapturedFile.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

std::string nameFor(double drawn, const char* prefix = "Captured") {
    return capturedFile(QStringLiteral("/a"), QString::fromUtf8(prefix), drawn).toStdString();
}

} // namespace

TEST(CapturedFile, IsNamedByASinglePrecisionNumberInItsShortestForm) {
    EXPECT_EQ(nameFor(0.705618), "/a/Captured7055.4746.tif");
    EXPECT_EQ(nameFor(0.5), "/a/Captured4999.5.tif");
    EXPECT_EQ(nameFor(0, "Schirm ä"), "/a/Schirm ä0.tif");
    EXPECT_EQ(nameFor(1e-9), "/a/Captured0.000009998999.tif") << "never with an exponent";
}

TEST(CapturedFile, TheFolderMayEndInASeparatorThatOnlyBlanksFollow) {
    EXPECT_EQ(capturedFile(QStringLiteral("/a/b/"), {}, 0.5).toStdString(), "/a/b/4999.5.tif");
    EXPECT_EQ(capturedFile(QStringLiteral("/a/b/ "), {}, 0.5).toStdString(), "/a/b/ 4999.5.tif");
}

TEST(CapturedFile, ReplacesNothingThatIsThere) {
    const QTemporaryDir folder;
    const auto save = [&](const QByteArray& bytes) {
        const QString path = saveCapturedFile(folder.path(), QStringLiteral("C"), 0.5, bytes);
        EXPECT_EQ(readWholeFile(path), bytes);
        return path.mid(folder.path().size() + 1).toStdString();
    };
    ASSERT_TRUE(
        QFile::link(folder.filePath(QStringLiteral("gone")), folder.filePath(QStringLiteral("C5000.5.tif"))));
    EXPECT_EQ(save("one"), "C4999.5.tif");
    EXPECT_EQ(save("two"), "C5001.5.tif");
    EXPECT_EQ(readWholeFile(folder.filePath(QStringLiteral("C4999.5.tif"))), "one");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 2);
    const QString missing = folder.filePath(QStringLiteral("missing"));
    EXPECT_EQ(errorNumberOf([&] { saveCapturedFile(missing, {}, 0.5, "x"); }), ErrorNumber::PathNotFound);
}
