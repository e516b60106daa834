// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace tarsel::cli {

/// The rows of comma-separated values (RFC 4180) in UTF-8 or Windows-1252: fields between quotes may hold
/// commas, line ends and doubled quotes. A byte order mark at the start is dropped, an empty line is no row.
/// Error 62 for a quote without its end, 5 for a table in another coding, such as UTF-16.
QList<QStringList> readCsv(const QByteArray& bytes);

} // namespace tarsel::cli
