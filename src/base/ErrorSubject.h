// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The file at work: while one lives, a reported error that doesn't name the file gets its path in front. On
/// the main thread alone, as all reports.
class ErrorSubject {
public:
    explicit ErrorSubject(const QString& path);
    ~ErrorSubject();
    ErrorSubject(const ErrorSubject&) = delete;
    ErrorSubject& operator=(const ErrorSubject&) = delete;

private:
    QString m_before;
};

/// "path: description"; the description alone when it names the path already or when there is none.
QString namingPath(const QString& path, const QString& description);
/// The same with the file at work.
QString namingSubject(const QString& description);

} // namespace tarsel
