// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartFolder.h"

#include "base/IgnoringErrors.h"
#include "base/ProgramIdentity.h"
#include "base/SafeFileWriter.h"
#include "collections/LastBasket.h"
#include "collections/UnwaitedWork.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>

namespace tarsel {

namespace {

/// A reason may end with the name of a folder, and another sentence follows.
QString asSentence(const QString& reason) {
    return reason.endsWith(QLatin1Char('.')) ? reason : reason + QLatin1Char('.');
}

/// What was found out about the usual folder.
struct Inspection {
    QString folder;
    QString trouble; ///< why it can't be used
};

/// More than the files of settings need. Nothing is put in place.
void requireRoom(const QString& folder) {
    SafeFileWriter(QDir(folder).filePath(QStringLiteral("settings"))).write(QByteArray(128 << 10, '\0'));
}

Inspection inspect(const std::function<QString()>& makeFolder) {
    Inspection found;
    try {
        found.folder = makeFolder();
        requireRoom(found.folder);
        (void)QDir(QDir(found.folder).filePath(QStringLiteral("Temp"))).isEmpty(); // maybe a link elsewhere
    } catch (const TrappedError& error) {
        found.trouble = error.description;
    }
    return found;
}

/// Of the files that the program itself keeps in its folder, but for baskets.
bool isSettings(const QString& name) {
    for (const QString& base :
         {programIdentity::name, QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName()})
        if (name == base || name == base + QStringLiteral(".ini") ||
            name.startsWith(base + QStringLiteral(".damaged")))
            return true;
    return name == QLatin1String("window-place") || name == QLatin1String(".lock");
}

void copySettings(const QString& from, const QString& to) {
    constexpr qint64 largest = 1 << 20;
    const QFileInfoList files = QDir(from).entryInfoList(QDir::Files);
    for (const QFileInfo& file : files)
        if (file.size() <= largest &&
            (isSettings(file.fileName()) || lastBasket::isOneOfItsFiles(file.fileName())))
            ignoringErrors(
                [&] { writeFileSafely(QDir(to).filePath(file.fileName()), readWholeFile(file.filePath())); });
}

} // namespace

StartFolder::StartFolder(const std::function<QString()>& makeFolder, bool homeAnswers,
                         std::chrono::milliseconds longestWait) {
    const QString unanswered = QCoreApplication::translate(
        "StartFolder", "The folder of the settings does not answer. The program starts with its "
                       "usual settings, and changes to them are lost at its end.");
    auto answer = startUnwaited([makeFolder] { return inspect(makeFolder); });
    if (answer.wait_for(longestWait) != std::future_status::ready) {
        takeTemporaryFolder({});
        m_remark = unanswered + remarkOnPictures();
        return;
    }
    const Inspection found = answer.get();
    m_path = found.folder;
    if (!found.trouble.isEmpty()) {
        takeTemporaryFolder(found.folder);
        m_remark = QCoreApplication::translate(
                       "StartFolder", "Changes to the settings are lost at the end of the program. %1")
                       .arg(asSentence(found.trouble)) +
                   remarkOnPictures();
    } else if (!homeAnswers) {
        m_remark = unanswered;
    }
}

void StartFolder::takeTemporaryFolder(const QString& settings) {
    QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/tarsel-jpeg-XXXXXX"));
    if (!folder.isValid())
        return;
    folder.setAutoRemove(false);
    m_path = folder.path();
    m_isTemporary = true;
    if (!settings.isEmpty())
        copySettings(settings, m_path);
}

QString StartFolder::remarkOnPictures() const {
    return QLatin1Char(' ') +
           QCoreApplication::translate("StartFolder",
                                       "Pictures of the screen and scanned pages without a folder of their "
                                       "own stay in %1.")
               .arg(m_path);
}

StartFolder::~StartFolder() {
    if (!m_isTemporary)
        return;
    const QDir folder(m_path);
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden))
        if (isSettings(name))
            QFile::remove(folder.filePath(name));
    folder.rmdir(QStringLiteral("Temp")); // which refuses while it holds a page
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QStringList left = folder.entryList(all);
    if (std::ranges::all_of(left, lastBasket::isOneOfItsFiles)) // of files that are elsewhere
        for (const QString& name : left)
            QFile::remove(folder.filePath(name));
    QDir().rmdir(m_path);
}

} // namespace tarsel
