// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// The single-byte code page of our text files, Windows-1252. Its five unassigned bytes stand for the control
/// characters of the same number, so that every byte has a character and no file loses a byte.
namespace tarsel::codePage {

/// Bytes of a text for a file. A text that the page can't hold, or whose bytes would read as UTF-8, is
/// written as UTF-8, so that decode returns it unchanged.
QByteArray encode(const QString& text);

/// Text from a file's bytes: strict UTF-8 when there is at least one multi-byte character, else Windows-1252.
QString decode(const QByteArray& bytes);

/// The longest beginning of `bytes` that has at most `size` bytes and, where they are UTF-8, ends between two
/// characters.
QByteArray cut(const QByteArray& bytes, qsizetype size);

} // namespace tarsel::codePage
