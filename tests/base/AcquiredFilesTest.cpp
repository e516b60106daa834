// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

using namespace tarsel;

namespace {

class AcquiredFiles : public testing::Test {
protected:
    QString in(const QString& name) const { return folder.filePath(name); }
    QString listFile() const { return in(QStringLiteral("acquired.txt")); }
    void add(const QString& name) const {
        acquiredFiles::list({in(name)}, true);
        writeFileSafely(in(name), "x");
    }
    std::string names() const {
        return acquiredFiles::listed(folder.path()).join(QLatin1Char(' ')).toStdString();
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(AcquiredFiles, TheLastWordOnANameCountsWhateverItLooksLike) {
    const QString odd = QStringLiteral("-+%41 ä\nß.tif");
    EXPECT_EQ(names(), "");
    for (const QString& name : {QStringLiteral("2_7.tif"), odd, QStringLiteral("1_5.tif")})
        add(name);
    EXPECT_EQ(names(), "2_7.tif " + odd.toStdString() + " 1_5.tif");
    const QStringList removed{in(QStringLiteral("x.tif")), QStringLiteral("/else/1_5.tif"), in(odd),
                              folder.path() + QStringLiteral("//2_7.tif")};
    EXPECT_EQ(acquiredFiles::strike(folder.path() + u'/', removed), removed.mid(2));
    EXPECT_EQ(names(), "1_5.tif");
    acquiredFiles::list({in(odd)}, false);
    ASSERT_TRUE(QFile::remove(in(QStringLiteral("1_5.tif"))));
    EXPECT_EQ(acquiredFiles::present(folder.path()), QStringList{in(odd)});
}

TEST_F(AcquiredFiles, ALineThatACrashCutShortCostsNoOther) {
    add(QStringLiteral("1_5.tif"));
    QFile list(listFile());
    ASSERT_TRUE(list.open(QIODevice::Append));
    list.write("+\n+..\n+..%2F0_0.tif\n+2_");
    list.close();
    add(QStringLiteral("3_1.tif"));
    EXPECT_EQ(names(), "1_5.tif 2_ 3_1.tif");
    acquiredFiles::tidy(folder.path(), {QStringLiteral("2_")});
    EXPECT_EQ(names(), "1_5.tif 2_ 3_1.tif");
    acquiredFiles::tidy(folder.path());
    EXPECT_EQ(names(), "1_5.tif 3_1.tif");
    for (const char* name : {"1_5.tif", "3_1.tif"})
        QFile::remove(in(QLatin1String(name)));
    acquiredFiles::tidy(folder.path());
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST_F(AcquiredFiles, ThreadsListAtTheSameTime) {
    constexpr int threads = 4, each = 50;
    {
        std::vector<std::jthread> listing;
        for (int thread = 0; thread < threads; ++thread)
            listing.emplace_back([=, this] {
                for (int i = 0; i < each; ++i)
                    acquiredFiles::list({in(QStringLiteral("%1_%2.tif").arg(thread).arg(i))}, false);
            });
    }
    EXPECT_EQ(acquiredFiles::listed(folder.path()).size(), threads * each);
}
