// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"
#include "tests/support/ErrorNumberOf.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <vector>

using namespace tarsel;
using tarsel::test::errorNumberOf;

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

TEST_F(AcquiredFiles, ADamagedListIsNotTakenForAShortOneAndGetsBackWhatMayHaveBeenInIt) {
    for (const char* name : {"1_5.tif", "2_6.tif", "9_9.tif"})
        add(QLatin1String(name));
    for (const char* name :
         {"3_7.tif", "Cap12.5.tif", "letter.tif1_8.tif", "letter1_8.tif", "2022.tif1_8.tif"})
        writeFileSafely(in(QLatin1String(name)), "x");
    for (const QByteArray& damage : {QByteArray(90, '\0'), QByteArray("noise\n")}) {
        writeFileSafely(listFile(), "+2_6.tif\n-9_9.tif\n" + damage);
        EXPECT_EQ(errorNumberOf([&] { acquiredFiles::listed(folder.path()); }), ErrorNumber::UnreadableFile);
        EXPECT_FALSE(acquiredFiles::strike(folder.path(), {in(QStringLiteral("2_6.tif"))}));
        acquiredFiles::tidy(folder.path());
        EXPECT_EQ(names(), "2_6.tif 1_5.tif 3_7.tif Cap12.5.tif");
    }
    QFile::remove(listFile());
    ASSERT_EQ(::mkfifo(QFile::encodeName(listFile()).constData(), 0600), 0);
    EXPECT_NE(errorNumberOf([&] { add(QStringLiteral("4_8.tif")); }), 0) << "and doesn't wait";
}

TEST_F(AcquiredFiles, AFolderIsTheSameByALink) {
    QDir(folder.path()).mkdir(QStringLiteral("Temp"));
    ASSERT_TRUE(QFile::link(in(QStringLiteral("Temp")), in(QStringLiteral("link"))));
    for (const char* path : {"link/1_5.tif", "Temp/2_6.tif", "3_7.tif", "gone/4_8.tif"})
        acquiredFiles::listIfIn(in(QStringLiteral("Temp/")), in(QLatin1String(path)));
    EXPECT_EQ(acquiredFiles::listed(in(QStringLiteral("Temp"))).join(u' ').toStdString(), "1_5.tif 2_6.tif");
    EXPECT_FALSE(QFile::exists(listFile()));
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
