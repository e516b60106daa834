// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <memory>

namespace tarsel {

namespace {

/// Takes "de_AT", and "de" without it.
bool install(const QString& name, const QString& language, const QString& folder, QString* file = nullptr) {
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!translator->load(name + u'_' + language, folder))
        return false;
    if (file)
        *file = translator->filePath();
    return QCoreApplication::installTranslator(translator.release()); // the application owns it
}

} // namespace

QString installTranslation(const QStringList& languages, const QString& folder) {
    for (QString language : languages) {
        language.replace(u'-', u'_');
        const QString plain = language.section(u'_', 0, 0);
        QString file;
        if (plain == QLatin1String("en") || plain == QLatin1String("C"))
            return {};
        if (install(QStringLiteral("tarsel-jpeg"), language, folder, &file)) {
            install(QStringLiteral("qtbase"), language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            return file;
        }
    }
    return {};
}

void installTranslation() {
    installTranslation(QLocale::system().uiLanguages(),
                       QCoreApplication::applicationDirPath() + QStringLiteral("/../share/tarsel-jpeg/i18n"));
}

QString countedText(const char* context, const char* one, const char* many, int count) {
    const QString text = QCoreApplication::translate(context, many, nullptr, count);
    const bool isEnglish =
        text == QString::fromUtf8(many).replace(QLatin1String("%n"), QString::number(count));
    return count == 1 && isEnglish ? QString::fromUtf8(one) : text;
}

} // namespace tarsel
