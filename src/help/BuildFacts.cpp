// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/BuildFacts.h"

#include "base/ProgramIdentity.h"
#include "codecs/CodecLibraries.h"

#include <QCoreApplication>
#include <QSysInfo>

namespace tarsel {

namespace {

QString purpose(const char* text) {
    return QCoreApplication::translate("BuildFacts", text);
}

QString compiler() {
#if defined(__clang__)
    return QStringLiteral("Clang " __clang_version__);
#elif defined(__GNUC__)
    return QStringLiteral("GCC " __VERSION__);
#else
    return {};
#endif
}

} // namespace

std::vector<PartFacts> programParts() {
    const CodecLibraries codecs = codecLibraries();
    constexpr bool atBuild = false;
    const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
    return {
        {text("Qt"), text(qVersion()), true, text("LGPL-3.0-only"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "windows, texts, files"))},
        {text("libjpeg-turbo"), codecs.jpeg, atBuild, text("IJG AND BSD-3-Clause"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "JPEG files"))},
        {text("libpng"), codecs.png, true, text("libpng-2.0"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "PNG files"))},
        {text("libtiff"), codecs.tiff, true, text("libtiff"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "TIFF files"))},
        {text("Little CMS"), codecs.lcms, true, text("MIT"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "colour profiles"))},
        {text("qpdf"), codecs.qpdf, true, text("Apache-2.0"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "PDF files"))},
        {text("FreeType"), text(TARSEL_FREETYPE), atBuild, text("FTL OR GPL-2.0-or-later"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "letters in metafiles"))},
        {text("Fontconfig"), text(TARSEL_FONTCONFIG), atBuild, text("HPND"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "fonts of metafiles"))},
        {text("libseccomp"), text(TARSEL_SECCOMP), atBuild, text("LGPL-2.1-only"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "locks the process that draws metafiles"))},
        {text("XCB"), text(TARSEL_XCB), atBuild, text("MIT"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "pictures of the screen"))},
        {text("CUPS"), text(TARSEL_CUPS), atBuild, text("Apache-2.0"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "printers"))},
        {text("SANE"), text(TARSEL_SANE), atBuild, text("GPL-2.0-or-later WITH SANE-exception"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "scanners"))},
        {text("stb_truetype"), text("1.26"), atBuild, text("MIT OR Unlicense"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "letters in greetings"))},
        {text("DejaVu Sans"),
         {},
         atBuild,
         text("Bitstream-Vera"),
         purpose(QT_TRANSLATE_NOOP("BuildFacts", "font of greetings"))},
    };
}

std::vector<BuildFact> buildFacts() {
    std::vector<BuildFact> facts{
        {programIdentity::title, QStringLiteral(TARSEL_VERSION)},
        {QStringLiteral("Qt"),
         QStringLiteral("%1 (built with %2)").arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR))},
        {QStringLiteral("Compiler"), compiler()},
        {QStringLiteral("System"), QSysInfo::prettyProductName()},
        {QStringLiteral("Kernel"), QSysInfo::kernelType() + QLatin1Char(' ') + QSysInfo::kernelVersion()},
        {QStringLiteral("Architecture"), QSysInfo::buildAbi()},
    };
    const QString commit = QStringLiteral(TARSEL_COMMIT);
    if (!commit.isEmpty())
        facts.insert(facts.begin() + 1, {QStringLiteral("Commit"), commit});
    return facts;
}

QString buildReport() {
    QString report;
    for (const auto& [name, value] : buildFacts())
        report += QStringLiteral("%1: %2\n").arg(name, value);
    report += QLatin1Char('\n');
    for (const PartFacts& part : programParts()) {
        const QString version = part.version.isEmpty() ? QStringLiteral("-")
                                : part.isInUse         ? part.version
                                                       : part.version + QStringLiteral(" (built with)");
        report += QStringLiteral("%1 %2, %3\n").arg(part.name, version, part.licence);
    }
    return report;
}

} // namespace tarsel
