// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr const char* mainThreadHeaders[] = {
    "\"base/Clock.h\"",         "\"base/Dialogs.h\"",        "\"base/ErrorTrap.h\"",
    "\"base/EventLoop.h\"",     "\"base/Locale.h\"",         "\"base/Service.h\"",
    "\"base/RandomNumbers.h\"", "\"base/SaveFileDialog.h\"", "\"base/SystemServices.h\"",
};

/// Sources below a folder that include one of the headers of the main thread.
QStringList mainThreadSources(const QString& folder) {
    const QDir sources(QStringLiteral(TARSEL_SOURCES));
    QStringList found;
    QDirIterator each(sources.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        QFile file(each.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        const QByteArray text = file.readAll();
        if (std::ranges::any_of(mainThreadHeaders, [&](const char* header) { return text.contains(header); }))
            found << sources.relativeFilePath(file.fileName());
    }
    return found;
}

} // namespace

TEST(Engine, OnlyTheseWrappersForTheMainThreadKnowTheServicesAndTheTrap) {
    QStringList wrappers{
        QStringLiteral("metadata/ExifNameWording.cpp"),
        QStringLiteral("metadata/ExifValueWording.cpp"),
        QStringLiteral("metadata/MetadataLists.cpp"),
        QStringLiteral("metadata/forms/AttributeValueField.cpp"),
        QStringLiteral("metadata/forms/MetadataEditor.cpp"),
        QStringLiteral("metadata/forms/MetadataRefusal.cpp"),
        QStringLiteral("metadata/forms/frmExifNewAttribute.cpp"),
        QStringLiteral("tasks/TaskBasketActions.cpp"),
        QStringLiteral("tasks/TaskFile.cpp"),
        QStringLiteral("tasks/modProcessTasks.cpp"),
        QStringLiteral("tasks/TaskWorkflow.cpp"),
        QStringLiteral("tasks/forms/WatermarkPage.cpp"),
    };
    QStringList found;
    for (const char* folder : {"pixels", "embedded", "codecs", "imaging", "metadata", "tasks"})
        found += mainThreadSources(QString::fromLatin1(folder));
    found.sort();
    wrappers.sort();
    EXPECT_EQ(found.join(u'\n').toStdString(), wrappers.join(u'\n').toStdString());
}
