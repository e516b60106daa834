// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

/// Sources below a folder that include one of the headers of the main thread.
QStringList mainThreadSources(const QString& folder) {
    const QDir sources(QStringLiteral(TARSEL_SOURCES));
    QStringList found;
    QDirIterator each(sources.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        QFile file(each.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        const QByteArray text = file.readAll();
        if (text.contains("\"base/Desktop.h\"") || text.contains("\"base/ErrorTrap.h\""))
            found << sources.relativeFilePath(file.fileName());
    }
    return found;
}

} // namespace

TEST(Engine, OnlyTheseWrappersForTheMainThreadKnowTheDesktopAndTheTrap) {
    QStringList wrappers{
        QStringLiteral("metadata/ExifNameWording.cpp"), QStringLiteral("metadata/ExifValueWording.cpp"),
        QStringLiteral("metadata/MetadataLists.cpp"),   QStringLiteral("tasks/TaskBasketActions.cpp"),
        QStringLiteral("tasks/TaskFile.cpp"),           QStringLiteral("tasks/modProcessTasks.cpp"),
    };
    QStringList found;
    for (const char* folder : {"pixels", "embedded", "codecs", "imaging", "metadata", "tasks"})
        found += mainThreadSources(QString::fromLatin1(folder));
    found.sort();
    wrappers.sort();
    EXPECT_EQ(found.join(u'\n').toStdString(), wrappers.join(u'\n').toStdString());
}
