// SPDX-License-Identifier: GPL-3.0-or-later
// usage: tarsel-pages FOLDER DATE TRANSLATIONS
// Makes the manual pages of all programs, in English and in each language of the folder TRANSLATIONS, and the
// completions of the shells. The build runs it.

#include "cli/ManualPage.h"
#include "cli/ShellCompletion.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>
#include <QTranslator>
#include <cstdio>

namespace tarsel::cli {

namespace {

bool write(const QString& path, const QString& text) {
    QSaveFile file(path);
    const bool isWritten = QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
                           file.write(text.toUtf8()) >= 0 && file.commit();
    if (!isWritten)
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
    return isWritten;
}

bool writePages(const QString& folder, const QString& date) {
    bool allWritten = true;
    for (const ManualPage& page : manualPages(date))
        allWritten &= write(folder + QStringLiteral("/man1/") + page.fileName, page.text);
    return allWritten;
}

/// man(1) has a folder for each language.
bool writeTranslatedPages(const QString& folder, const QString& date, const QString& translations) {
    bool allWritten = true;
    for (const QString& name : QDir(translations).entryList({QStringLiteral("tarsel-jpeg_*.qm")})) {
        QTranslator translator;
        const QString language = name.section(u'_', 1).section(u'.', 0, 0);
        if (!translator.load(translations + u'/' + name) ||
            !QCoreApplication::installTranslator(&translator)) {
            std::fprintf(stderr, "%s can't be loaded\n", qPrintable(name));
            return false;
        }
        allWritten &= writePages(folder + u'/' + language, date);
        QCoreApplication::removeTranslator(&translator);
    }
    return allWritten;
}

} // namespace

} // namespace tarsel::cli

int main(int argc, char** argv) {
    using namespace tarsel::cli;
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 4)
        return 2;
    const QString &folder = words[1], &date = words[2];
    const bool allWritten = writePages(folder + QStringLiteral("/man"), date) &
                            writeTranslatedPages(folder + QStringLiteral("/man"), date, words[3]) &
                            write(folder + QStringLiteral("/completion/tarsel.bash"), bashCompletion()) &
                            write(folder + QStringLiteral("/completion/_tarsel"), zshCompletion()) &
                            write(folder + QStringLiteral("/completion/tarsel.fish"), fishCompletion());
    return allWritten ? 0 : 1;
}
