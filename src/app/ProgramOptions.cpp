// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ProgramOptions.h"

#include "base/ProgramHelp.h"
#include "base/ProgramIdentity.h"
#include "base/Translation.h"

#include <QCoreApplication>
#include <cstdio>

namespace tarsel {

namespace {

constexpr QLatin1String endOfOptions("--");

void print(std::FILE* stream, const QString& text) {
    std::fprintf(stream, "%s\n", qPrintable(text));
}

QString helpText() {
    QString text =
        QCoreApplication::translate("ProgramOptions", "Usage: %1 [FILE]").arg(programIdentity::name) +
        QStringLiteral("\n\n") + windowProgramPurpose() + QStringLiteral("\n\n");
    for (const ProgramOption& option : windowProgramOptions())
        text += QStringLiteral("  ") + option.name.leftJustified(11) + option.help + u'\n';
    return text + u'\n' + windowProgramRemark();
}

} // namespace

std::optional<int> answerHelp(int argc, char** argv) {
    for (int index = 1; index < argc && QLatin1String(argv[index]) != endOfOptions; ++index) {
        const QString argument = QString::fromLocal8Bit(argv[index]);
        const bool isVersion = argument == QLatin1String("--version");
        if (!isVersion && argument != QLatin1String("--help") && argument != QLatin1String("-h"))
            continue;
        const QCoreApplication application(argc, argv);
        installTranslation();
        print(stdout, isVersion ? programIdentity::name + QLatin1String(" " TARSEL_VERSION) : helpText());
        return 0;
    }
    return std::nullopt;
}

std::optional<QStringList> operandsOf(const QStringList& arguments) {
    QStringList operands = arguments.mid(1);
    const auto end = operands.indexOf(endOfOptions);
    for (const QString& argument : operands.mid(0, end))
        if (argument.size() > 1 && argument.startsWith(QLatin1Char('-'))) {
            print(stderr, QCoreApplication::translate("ProgramOptions",
                                                      "%1: unknown option \"%2\". Try \"%1 --help\".")
                              .arg(programIdentity::name, argument));
            return std::nullopt;
        }
    if (end >= 0)
        operands.removeAt(end);
    if (operands.size() > 1) {
        print(stderr,
              QCoreApplication::translate("ProgramOptions", "%1: expected one FILE. Try \"%1 --help\".")
                  .arg(programIdentity::name));
        return std::nullopt;
    }
    return operands;
}

} // namespace tarsel
