// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <span>

namespace tarsel::cli {

/// One option of a command. Help, parser and messages read the same table.
struct OptionSpec {
    const char* name;  ///< without the dashes
    const char* value; ///< what follows it, "FOLDER"; null for a switch
    const char* help;
    bool isRepeated = false;
};

/// The command line can't be understood: a fact for the user.
struct UsageError {
    QString fact;
};

/// The words after a command, taken apart: `--name value`, `--name=value`, switches, and operands. After
/// "--" all words are operands; "-" alone is one.
class Arguments {
public:
    /// Throws UsageError for an unknown option, a missing or an unwanted value, an option given twice.
    Arguments(const QStringList& words, std::span<const OptionSpec> options);

    bool has(const char* name) const { return m_values.contains(QLatin1String(name)); }
    QString value(const char* name, const QString& fallback = {}) const;
    QStringList values(const char* name) const; ///< of a repeated option, in their order
    const QStringList& operands() const { return m_operands; }
    bool wantsHelp() const { return m_help; }

private:
    void takeOption(const QString& word, QStringList& rest, std::span<const OptionSpec> options);

    QHash<QString, QStringList> m_values;
    QStringList m_operands;
    bool m_help = false;
};

/// UsageError naming the option when it isn't given.
void requireOption(const Arguments& arguments, const char* option);

/// An integer within bounds; UsageError naming the option otherwise.
int numberIn(const QString& text, int lowest, int highest, const char* option);

/// Index of the option's value among these words, the first where it isn't given; UsageError for another.
int choiceIn(const Arguments& arguments, const char* option, const QStringList& words);

/// A colour of the form RRGGBB, with red in the low byte; UsageError naming the option otherwise.
qint32 colorIn(const QString& text, const char* option);

} // namespace tarsel::cli
