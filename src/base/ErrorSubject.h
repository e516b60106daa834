// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The file in work: for as long as this lives, its path is put in front of a reported error that doesn't
/// name it. For the main thread only, as all reports.
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
/// The same with the file in work.
QString namingSubject(const QString& description);

} // namespace tarsel
