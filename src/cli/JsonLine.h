// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel::cli {

/// One JSON object on one line, its members in the order in which they were added.
class JsonLine {
public:
    JsonLine& add(const char* key, const QString& text);
    JsonLine& add(const char* key, int number);
    JsonLine& add(const char* key, double number);
    JsonLine& add(const char* key, const JsonLine& object);
    JsonLine& add(const char* key, const QList<JsonLine>& objects);
    JsonLine& addNull(const char* key);
    QString text() const { return QLatin1Char('{') + m_members.join(QLatin1Char(',')) + QLatin1Char('}'); }

private:
    JsonLine& addRaw(const char* key, const QString& value);

    QStringList m_members;
};

} // namespace tarsel::cli
