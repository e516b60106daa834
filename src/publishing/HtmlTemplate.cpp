// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/HtmlTemplate.h"

#include "base/TrappedError.h"

#include <QFile>
#include <QUrl>
#include <algorithm>

static void initializeTemplates() {
    Q_INIT_RESOURCE(templates); // must be called outside of a namespace
}

namespace tarsel::htmlTemplate {

namespace {

QByteArray textOf(const std::variant<QString, Html>& value) {
    const auto* html = std::get_if<Html>(&value);
    return html ? html->text : escaped(std::get<QString>(value));
}

/// Control characters that HTML doesn't allow.
bool isAllowed(QChar character) {
    return character == u'\t' || character == u'\n' || character == u'\r' ||
           character.category() != QChar::Other_Control;
}

} // namespace

QByteArray file(const char* name) {
    static const bool initialized = (initializeTemplates(), true);
    Q_UNUSED(initialized)
    QFile file(QStringLiteral(":/publishing/templates/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        fail(ErrorNumber::FileNotFound, file.fileName());
    return file.readAll();
}

QByteArray filled(const char* name, const Values& values) {
    const QByteArray page = file(name);
    QByteArray result;
    for (qsizetype at = 0; at < page.size();) {
        const qsizetype open = page.indexOf("{{", at);
        result += page.mid(at, open < 0 ? -1 : open - at);
        if (open < 0)
            break;
        const qsizetype close = page.indexOf("}}", open);
        const QByteArray place = page.mid(open + 2, close - open - 2);
        const auto value = values.find(place);
        if (value == values.end())
            qFatal("No value for {{%s}} of %s", place.constData(), name);
        result += textOf(*value);
        at = close + 2;
    }
    return result;
}

QByteArray escaped(const QString& text) {
    QString plain;
    std::ranges::copy_if(text, std::back_inserter(plain), isAllowed);
    return plain.toHtmlEscaped().replace(QLatin1Char('\''), QStringLiteral("&#39;")).toUtf8();
}

QString reference(const QString& path) {
    return QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
}

} // namespace tarsel::htmlTemplate
