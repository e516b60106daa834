// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ScratchFolder.h"
#include "tests/support/ForkedChild.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tarsel;

namespace {

/// With a folder for temporary files of its own.
class Scratch : public testing::Test {
protected:
    Scratch() { qputenv("TMPDIR", QFile::encodeName(place.path())); }
    ~Scratch() override { before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before); }

    QStringList folders() const {
        return QDir(place.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    static void write(const QString& path) { ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly)); }

    const QByteArray before = qgetenv("TMPDIR");
    QTemporaryDir place;
};

} // namespace

TEST_F(Scratch, AFolderOfADeadProcessGoesAndWhateverElseIsThereStays) {
    const QString mine = place.filePath(QStringLiteral("tarsel-run-photos"));
    ASSERT_TRUE(QDir().mkdir(mine));
    QFile::setPermissions(mine, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    write(mine + QStringLiteral("/a.jpg"));
    const QString open = place.filePath(QStringLiteral("tarsel-run-open"));
    ASSERT_TRUE(QDir().mkdir(open));
    write(open + QStringLiteral("/.tarsel-run.lock"));
    ASSERT_EQ(::chmod(QFile::encodeName(open).constData(), 0755), 0);
    const ScratchFolder living;
    EXPECT_EQ(test::inChild([&]() -> int {
                  const ScratchFolder dead;
                  QDir(dead.path()).mkpath(QStringLiteral("Temp"));
                  write(dead.path() + QStringLiteral("/Temp/page.tif"));
                  QFile::link(mine, dead.path() + QStringLiteral("/way"));
                  QFile::link(dead.path(), place.filePath(QStringLiteral("tarsel-run-link")));
                  ::_exit(0); // without destructors, as if it was killed
              }),
              0);
    ASSERT_EQ(folders().size(), 5);
    ScratchFolder::removeAbandoned();
    EXPECT_FALSE(QFile::exists(place.filePath(QStringLiteral("tarsel-run-link")))) << "dangles";
    EXPECT_EQ(folders().size(), 3) << folders().join(QLatin1Char(' ')).toStdString();
    EXPECT_TRUE(QFile::exists(mine + QStringLiteral("/a.jpg")));
    EXPECT_TRUE(QDir(living.path()).exists());
    {
        const ScratchFolder ended;
        EXPECT_EQ(folders().size(), 4);
    }
    EXPECT_EQ(folders().size(), 3);
}
