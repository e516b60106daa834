// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Translation.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>
#include <memory>

namespace tarsel {

void installTranslation() {
    const QString shared =
        QCoreApplication::applicationDirPath() + QStringLiteral("/../share/tarsel-jpeg/i18n");
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    for (const QString& folder : {QStringLiteral(":/i18n"), shared})
        if (translator->load(QLocale::system(), QStringLiteral("tarsel-jpeg"), QStringLiteral("_"), folder)) {
            QCoreApplication::installTranslator(translator.release()); // the application owns it
            return;
        }
}

QString countedText(const char* context, const char* one, const char* many, int count) {
    const QString text = QCoreApplication::translate(context, many, nullptr, count);
    const bool isEnglish =
        text == QString::fromUtf8(many).replace(QLatin1String("%n"), QString::number(count));
    return count == 1 && isEnglish ? QString::fromUtf8(one) : text;
}

} // namespace tarsel
