// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ManualPage.h"

#include "base/ProgramHelp.h"
#include "base/ProgramIdentity.h"
#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/Examples.h"
#include "cli/ManualText.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ManualPage)
};

/// A term and what it means, for the lists that several pages have.
struct Meaning {
    const char* term;
    const char* text;
};

constexpr Meaning exitStatuses[] = {
    {"0", QT_TRANSLATE_NOOP("ManualPage", "All done.")},
    {"1",
     QT_TRANSLATE_NOOP("ManualPage",
                       "Something not done, or done with a warning: its source is damaged, a task failed, it "
                       "replaced the file of another row.")},
    {"2", QT_TRANSLATE_NOOP("ManualPage", "Wrong usage.")},
    {"130", QT_TRANSLATE_NOOP("ManualPage", "Interrupted.")},
};

constexpr Meaning environment[] = {
    {"LANGUAGE, LC_ALL, LC_MESSAGES, LANG", QT_TRANSLATE_NOOP("ManualPage", "The language of messages.")},
    {"TARSEL_DECODER",
     QT_TRANSLATE_NOOP("ManualPage", "Another program in place of tarsel-decoder, which draws metafiles.")},
    {"TARSEL_SCANNER",
     QT_TRANSLATE_NOOP("ManualPage",
                       "Another program in place of tarsel-scanner, in which drivers of scanners run.")},
    {"TARSEL_PLAYERS",
     QT_TRANSLATE_NOOP("ManualPage",
                       "The folder of the players that screen savers, slide shows and greetings are "
                       "made of, in place of the installed one.")},
    {"QT_LOGGING_RULES",
     QT_TRANSLATE_NOOP("ManualPage",
                       "With tarsel.*.debug=true, errors that are ignored go to standard error.")},
};

constexpr Meaning fileKinds[] = {
    {"*.tbf", QT_TRANSLATE_NOOP("ManualPage", "Task list: what is to be done with each picture.")},
    {"*.ibf, *.ibd",
     QT_TRANSLATE_NOOP("ManualPage", "Basket: paths of pictures; in a .ibd file with descriptions.")},
    {"*.mbf",
     QT_TRANSLATE_NOOP("ManualPage", "Metadata basket: the lines of metadata that a web album shows.")},
    {"*.xiff, *.ffo", QT_TRANSLATE_NOOP("ManualPage", "Side files: EXIF attributes, IPTC fields.")},
};

QString pageName(const QString& command) {
    return QStringLiteral("tarsel-") + QString(command).replace(u' ', u'-');
}

QString reference(const QString& page) {
    return ManualText::bold(page) + QStringLiteral("(1)");
}

QString withoutStop(QString sentence) {
    if (sentence.endsWith(u'.'))
        sentence.chop(1);
    return sentence;
}

/// Place holders, which are in capital letters, stand out from words that are typed as they are.
QString markedWord(const QString& word) {
    const bool isPlaceHolder = word.contains(u'|') || word != word.toLower();
    return isPlaceHolder ? ManualText::italic(word) : ManualText::bold(word);
}

QString markedWords(const QString& words) {
    QStringList marked;
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts))
        marked << (word == u"|" ? word : markedWord(word));
    return marked.join(u' ');
}

QString markedOption(const OptionSpec& option) {
    QString marked = ManualText::bold(QStringLiteral("--") + QLatin1String(option.name));
    if (option.value)
        marked += u' ' + ManualText::italic(QLatin1String(option.value));
    return marked;
}

void addName(ManualText& page, const QString& name, const QString& summary) {
    page.section(Texts::tr("NAME"));
    page.line(ManualText::escaped(name) + QStringLiteral(" \\- ") +
              ManualText::escaped(withoutStop(summary)));
}

template <std::size_t count>
void addMeanings(ManualText& page, const QString& title, const Meaning (&meanings)[count]) {
    page.section(title);
    for (const Meaning& each : meanings)
        page.item(ManualText::bold(QLatin1String(each.term)),
                  QCoreApplication::translate("ManualPage", each.text));
}

/// Those of one command, or all.
void addExamples(ManualText& page, const char* command) {
    page.section(Texts::tr("EXAMPLES"));
    for (const Example& example : examples())
        if (!command || QLatin1String(example.command) == QLatin1String(command)) {
            page.paragraph(QCoreApplication::translate("ManualPage", example.purpose));
            page.example(QStringLiteral("tarsel %1 %2")
                             .arg(QLatin1String(example.command), QString::fromUtf8(example.words)));
        }
}

void addReferences(ManualText& page, const QStringList& pages) {
    page.section(Texts::tr("SEE ALSO"));
    QStringList marked;
    for (const QString& each : pages)
        marked << reference(each);
    page.line(marked.join(QStringLiteral(",\n")));
}

/// The overview, and the other commands of a group.
QStringList pagesBeside(const Command& command) {
    QStringList pages{QStringLiteral("tarsel")};
    const QString name = QLatin1String(command.name);
    const QString group = name.contains(u' ') ? name.section(u' ', 0, 0) + u' ' : QString();
    for (const Command* other : commands())
        if (!group.isEmpty() && other != &command && QLatin1String(other->name).startsWith(group))
            pages << pageName(QLatin1String(other->name));
    return pages << programIdentity::name;
}

ManualPage pageOf(const Command& command, const QString& date) {
    const QString name = pageName(QLatin1String(command.name));
    ManualText page(name, date);
    addName(page, name, shownText(command.summary));
    page.section(Texts::tr("SYNOPSIS"));
    const QString required = markedWords(QLatin1String(command.required));
    page.line(ManualText::bold(QStringLiteral("tarsel ") + QLatin1String(command.name)) +
              (required.isEmpty() ? QString() : QLatin1Char(' ') + required) +
              QStringLiteral(" [\\fI%1\\fP]... ").arg(Texts::tr("OPTION")) +
              markedWords(QString::fromUtf8(command.operands)));
    page.section(Texts::tr("DESCRIPTION"));
    page.paragraph(shownText(command.summary) + u' ' + shownText(command.notes));
    page.section(Texts::tr("OPTIONS"));
    for (const OptionSpec& option : command.options)
        page.item(markedOption(option), shownText(option.help));
    page.item(ManualText::bold(QStringLiteral("--help")), Texts::tr("show a summary of this page"));
    addMeanings(page, Texts::tr("EXIT STATUS"), exitStatuses);
    addExamples(page, command.name);
    addReferences(page, pagesBeside(command));
    return {name + QStringLiteral(".1"), page.text()};
}

ManualPage pageOfProgram(const QString& date) {
    ManualText page(QStringLiteral("tarsel"), date);
    addName(page, QStringLiteral("tarsel"), Texts::tr("make JPEG documents from collections of pictures"));
    page.section(Texts::tr("SYNOPSIS"));
    page.line(QStringLiteral("\\fBtarsel\\fP \\fI%1\\fP [\\fI%2\\fP]... [\\fI%3\\fP]...\n.br")
                  .arg(Texts::tr("COMMAND"), Texts::tr("OPTION"), Texts::tr("OPERAND")));
    page.line(QStringLiteral("\\fBtarsel\\fP \\fI%1\\fP \\fB\\-\\-help\\fP\n.br").arg(Texts::tr("COMMAND")));
    page.line(QStringLiteral("\\fBtarsel \\-\\-version\\fP"));
    page.section(Texts::tr("DESCRIPTION"));
    page.paragraph(Texts::tr(
        "The program replays task lists on pictures, saves baskets of them, makes web albums, screen savers, "
        "slide shows and greetings, and reads and writes EXIF and IPTC. It needs no display.\n\n"
        "Results go to standard output, messages to standard error. With --json, results are one JSON object "
        "a line. On a terminal a bar shows how far it is."));
    page.section(Texts::tr("COMMANDS"));
    QStringList pages;
    for (const Command* command : commands()) {
        const QString name = QLatin1String(command->name);
        page.item(ManualText::bold(name), shownText(command->summary));
        pages << pageName(name);
    }
    addMeanings(page, Texts::tr("EXIT STATUS"), exitStatuses);
    addMeanings(page, Texts::tr("ENVIRONMENT"), environment);
    addMeanings(page, Texts::tr("FILES"), fileKinds);
    addExamples(page, nullptr);
    addReferences(page, pages << programIdentity::name);
    return {QStringLiteral("tarsel.1"), page.text()};
}

ManualPage pageOfWindow(const QString& date) {
    ManualText page(programIdentity::name, date);
    addName(page, programIdentity::name, Texts::tr("gather, edit and save collections of pictures"));
    page.section(Texts::tr("SYNOPSIS"));
    page.line(ManualText::bold(programIdentity::name) +
              QStringLiteral(" [\\fI%1\\fP]").arg(Texts::tr("FILE")));
    page.section(Texts::tr("DESCRIPTION"));
    page.paragraph(windowProgramPurpose());
    page.paragraph(windowProgramRemark());
    page.section(Texts::tr("OPTIONS"));
    for (const ProgramOption& option : windowProgramOptions())
        page.item(ManualText::bold(option.name), option.help);
    page.section(Texts::tr("EXIT STATUS"));
    page.paragraph(
        Texts::tr("0 after the window was closed, 1 when it could not be opened, 2 after an unknown "
                  "option."));
    addMeanings(page, Texts::tr("ENVIRONMENT"), environment);
    addMeanings(page, Texts::tr("FILES"), fileKinds);
    page.item(
        ManualText::bold(QStringLiteral("~/.local/share/") + programIdentity::name),
        Texts::tr("The settings, the basket of the last session, and pages of documents that are in the "
                  "basket. XDG_DATA_HOME names another place."));
    page.section(Texts::tr("EXAMPLES"));
    page.paragraph(Texts::tr("Show a folder, and open a basket:"));
    page.example(programIdentity::name + QStringLiteral(" ~/Pictures"));
    page.example(programIdentity::name + QStringLiteral(" summer.ibf"));
    addReferences(page, {QStringLiteral("tarsel")});
    return {programIdentity::name + QStringLiteral(".1"), page.text()};
}

} // namespace

QList<ManualPage> manualPages(const QString& date) {
    QList<ManualPage> pages{pageOfProgram(date), pageOfWindow(date)};
    for (const Command* command : commands())
        pages << pageOf(*command, date);
    return pages;
}

} // namespace tarsel::cli
