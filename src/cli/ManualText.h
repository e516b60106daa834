// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel::cli {

/// The source of a page for man(1), line by line.
class ManualText {
public:
    /// `page` is "tarsel-batch"; `date` is "2026-11-22".
    ManualText(const QString& page, const QString& date);

    void section(const QString& title);
    /// A text of complete sentences. Its line ends are blanks, but an empty line begins a paragraph.
    void paragraph(const QString& text);
    /// A term, marked up already, and what it means.
    void item(const QString& markedTerm, const QString& text);
    /// A line that is printed as it stands, such as one for the shell.
    void example(const QString& line);
    /// One line, marked up already.
    void line(const QString& marked) { m_text += marked + u'\n'; }

    const QString& text() const { return m_text; }

    /// The text as roff takes it literally, without its line ends.
    static QString escaped(const QString& text);
    static QString bold(const QString& text) { return QStringLiteral("\\fB%1\\fP").arg(escaped(text)); }
    static QString italic(const QString& text) { return QStringLiteral("\\fI%1\\fP").arg(escaped(text)); }

private:
    void fill(const QString& text);

    QString m_text;
};

} // namespace tarsel::cli
