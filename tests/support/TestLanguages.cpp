// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestLanguages.h"

#include <QCoreApplication>
#include <QMutex>
#include <string_view>

namespace tarsel::test {

namespace {

QMutex lookups; // several threads of the program word their errors

/// Qt's own texts have the names of its classes.
bool isOurs(const char* context) {
    const std::string_view name(context);
    return !(name.size() > 1 && name[0] == 'Q' && std::isupper(static_cast<unsigned char>(name[1]))) ||
           name == "QtDialogs";
}

} // namespace

QString translationsFolder() {
    return QStringLiteral(TARSEL_TRANSLATIONS);
}

NotedLanguage::NotedLanguage(const char* language) :
    m_isBuilt(load(QStringLiteral("tarsel-jpeg_") + QLatin1String(language), translationsFolder())) {
    QCoreApplication::installTranslator(this);
}

NotedLanguage::~NotedLanguage() {
    QCoreApplication::removeTranslator(this);
}

QString NotedLanguage::translate(const char* context, const char* text, const char* disambiguation,
                                 int count) const {
    const QMutexLocker lock(&lookups);
    QString found = QTranslator::translate(context, text, disambiguation, count);
    if (found.isNull() && *text && isOurs(context))
        m_missing.insert(std::string(context) + ": " + text);
    return found;
}

std::string NotedLanguage::missing() const {
    std::string lines;
    for (const std::string& line : m_missing)
        lines += line + '\n';
    return lines;
}

LongLanguage::LongLanguage() {
    QCoreApplication::installTranslator(this);
}

LongLanguage::~LongLanguage() {
    QCoreApplication::removeTranslator(this);
}

QString LongLanguage::translate(const char* context, const char* text, const char*, int) const {
    if (!*text || !isOurs(context))
        return {};
    const QString source = QString::fromUtf8(text);
    return first + source + QString(source.size() * 2 / 5, u'o') + last;
}

} // namespace tarsel::test
