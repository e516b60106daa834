// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <variant>

/// Pages in UTF-8, made from the files of templates/, in which "{{name}}" is the place of a value.
namespace tarsel::htmlTemplate {

/// Something that goes into a page as it is.
struct Html {
    QByteArray text;
};

/// By their names. A QString is escaped for text and for quoted attributes.
using Values = QHash<QByteArray, std::variant<QString, Html>>;

/// A file of templates/ as it is.
QByteArray file(const char* name);

/// A file of templates/ with its values. Fails hard where a place has none.
QByteArray filled(const char* name, const Values& values);

QByteArray escaped(const QString& text);

/// A path relative to the page, in an attribute or a list of sources.
QString reference(const QString& path);

} // namespace tarsel::htmlTemplate
