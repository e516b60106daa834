// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorSubject.h"

#include <utility>

namespace tarsel {

namespace {
QString subject;
}

ErrorSubject::ErrorSubject(const QString& path) : m_before(std::exchange(subject, path)) {}

ErrorSubject::~ErrorSubject() {
    subject = m_before;
}

QString namingPath(const QString& path, const QString& description) {
    return path.isEmpty() || description.contains(path) ? description
                                                        : path + QStringLiteral(": ") + description;
}

QString namingSubject(const QString& description) {
    return namingPath(subject, description);
}

} // namespace tarsel
