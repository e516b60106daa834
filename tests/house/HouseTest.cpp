// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

const QString sources = QStringLiteral(TARSEL_ROOT "/src");
const QStringList sourcePatterns = {QStringLiteral("*.h"), QStringLiteral("*.cpp"), QStringLiteral("*.def")};

/// Headers of the libraries that only some folders may include.
const struct {
    const char* library;
    QRegularExpression headers;
} libraries[] = {
    {"libjpeg", QRegularExpression(QStringLiteral("^(jpeglib|jerror|jmorecfg|turbojpeg)\\.h$"))},
    {"libpng", QRegularExpression(QStringLiteral("^png"))},
    {"libtiff", QRegularExpression(QStringLiteral("^tiff"))},
    {"lcms2", QRegularExpression(QStringLiteral("^lcms2"))},
    {"libqpdf", QRegularExpression(QStringLiteral("^qpdf/"))},
    {"Exiv2", QRegularExpression(QStringLiteral("^exiv2/"))},
    {"FreeType", QRegularExpression(QStringLiteral("^(ft2build\\.h$|freetype/)"))},
    {"Fontconfig", QRegularExpression(QStringLiteral("^fontconfig/"))},
    {"libseccomp", QRegularExpression(QStringLiteral("^seccomp"))},
    {"libxcb", QRegularExpression(QStringLiteral("^xcb/"))},
    {"libsane", QRegularExpression(QStringLiteral("^sane/"))},
    {"libstb", QRegularExpression(QStringLiteral("^stb/"))},
};

constexpr int programLevel = 1000; ///< "-" in the table: above all libraries

/// One row of the table of levels, with what the sources of its folder use.
struct Row {
    int level = 0;
    QSet<QString> mayUse;
    QSet<QString> used;
    QSet<QString> listing; ///< files that include from the folder's own subfolder
};

QStringList linesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
}

QStringList filesBelow(const QString& folder, const QStringList& patterns) {
    QStringList files;
    for (QDirIterator it(folder, patterns, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files << it.next();
    return files;
}

int levelOf(const QString& cell) {
    return cell == QLatin1String("-") ? programLevel : cell.toInt();
}

/// "base pixels, Qt Gui, libjpeg": folders parted by blanks, then libraries parted by commas.
QSet<QString> permissions(const QString& cell) {
    const QStringList parts = cell.split(QLatin1Char(','));
    const QStringList folders = parts[0].split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QSet<QString> all(folders.begin(), folders.end());
    for (const QString& library : parts.mid(1))
        all << library.trimmed();
    return all;
}

/// The table of src/README.md against the sources. Each fault is a line with file and fact.
class House : public testing::Test {
protected:
    House() {
        for (const QString& line : linesOf(sources + QStringLiteral("/README.md"))) {
            const QStringList cells = line.split(QLatin1Char('|'));
            if (cells.size() >= 5 && !line.startsWith(QLatin1String("|---")) &&
                cells[1].trimmed() != QLatin1String("folder"))
                rows[cells[1].trimmed()] = {levelOf(cells[2].trimmed()), permissions(cells[3]), {}, {}};
        }
        EXPECT_GE(rows.size(), 10);
    }
    ~House() override {
        if (!faults.isEmpty())
            ADD_FAILURE() << faults.join(QLatin1Char('\n')).toStdString();
    }

    void report(const QString& where, const QString& fact) { faults << where + QStringLiteral(": ") + fact; }

    void use(const QString& file, const QString& folder, const QString& used) {
        Row& row = rows[folder];
        row.used << used;
        if (used.startsWith(folder + QLatin1Char('/')) && !row.mayUse.contains(used))
            row.listing << QFileInfo(file).completeBaseName();
        else if (used != folder && !row.mayUse.contains(used))
            report(file, folder + QStringLiteral(" may not use ") + used);
    }

    /// The restricted library that a system header belongs to, or nothing.
    QString libraryOf(const QString& header) const {
        for (const auto& [library, headers] : libraries) {
            if (headers.match(header).hasMatch())
                return QString::fromLatin1(library);
        }
        for (const char* module : {"Widgets", "Gui"}) {
            const QString folder = QStringLiteral(TARSEL_QT_HEADERS "/Qt") + QString::fromLatin1(module);
            const QString name = header.section(QLatin1Char('/'), -1);
            if (header.startsWith(QLatin1Char('Q')) && QFile::exists(folder + QLatin1Char('/') + name))
                return QStringLiteral("Qt ") + QString::fromLatin1(module);
        }
        return {};
    }

    void checkInclude(const QString& file, const QString& folder, const QString& line) {
        static const QRegularExpression include(
            QStringLiteral("^\\s*#\\s*include\\s*(?:\"([^\"]+)\"|<([^>]+)>)"));
        const auto match = include.match(line);
        const QString own = QFileInfo(match.captured(1)).path();
        if (match.hasCaptured(1) && !match.captured(1).isEmpty())
            rows.contains(own)
                ? use(file, folder, own)
                : report(file, match.captured(1) + QStringLiteral(" is in no folder of the table"));
        if (match.captured(1) == QLatin1String("codecs/Codec.h") && folder != QLatin1String("codecs"))
            report(file,
                   QStringLiteral("the codecs are reached by codecs/PictureFile.h and codecs/Formats.h"));
        const QString library = libraryOf(match.captured(2));
        const bool included =
            library == QLatin1String("Qt Gui") && rows[folder].mayUse.contains(QStringLiteral("Qt Widgets"));
        if (!library.isEmpty() && !included)
            use(file, folder, library);
    }

    /// What a library links must be allowed for its folder or for one of the subfolders that it contains.
    void checkLinks(const QString& file, const QString& folder, const QString& line) {
        static const QRegularExpression linked(QStringLiteral("\\btarsel_(\\w+)"));
        static const QSet<QString> others = {QStringLiteral("library"), QStringLiteral("flags")};
        for (auto it = linked.globalMatch(line.section(QLatin1Char('#'), 0, 0)); it.hasNext();) {
            const QString name = it.next().captured(1);
            const QString used = QString(name).replace(QLatin1Char('_'), QLatin1Char('/'));
            bool allowed = used == folder || others.contains(name);
            for (auto row = rows.begin(); row != rows.end() && !allowed; ++row)
                allowed = (row.key() + QLatin1Char('/')).startsWith(folder + QLatin1Char('/')) &&
                          row->mayUse.contains(used);
            if (rows[folder].level == programLevel) // a program may link for sources of other folders
                rows[folder].used << used;
            if (!allowed)
                report(file, folder + QStringLiteral(" may not link ") + used);
        }
    }

    QMap<QString, Row> rows;
    QStringList faults;
};

} // namespace

TEST_F(House, ItsTableLooksDownwardOnly) {
    for (auto row = rows.begin(); row != rows.end(); ++row)
        for (const QString& used : row->mayUse) {
            const bool isFolder =
                used[0].isLower() && !used.startsWith(QLatin1String("lib")) && used != QLatin1String("lcms2");
            if (isFolder && !rows.contains(used))
                report(row.key(), used + QStringLiteral(" has no row"));
            else if (isFolder && rows[used].level >= row->level)
                report(row.key(), used + QStringLiteral(" is not on a lower level"));
        }
}

TEST_F(House, EverySourceUsesWhatItsFolderMayUseAndNoPermissionIsLeftOver) {
    for (const QString& path :
         filesBelow(sources, sourcePatterns + QStringList{QStringLiteral("CMakeLists.txt")})) {
        const QString file = path.mid(sources.size() + 1), folder = QFileInfo(file).path();
        if (folder != QLatin1String(".") && !rows.contains(folder))
            report(file, QStringLiteral("its folder has no row in the table"));
        else if (folder != QLatin1String("."))
            for (const QString& line : linesOf(path))
                file.endsWith(QLatin1String(".txt")) ? checkLinks(file, folder, line)
                                                     : checkInclude(file, folder, line);
    }
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const QSet<QString> unused = row->mayUse - row->used;
        for (const QString& permission : unused)
            report(row.key(), QStringLiteral("nothing uses the permission for ") + permission);
        if (row->listing.size() > 1) // one file may list what its folder's subfolder contains
            report(row.key(), QStringLiteral("several files use its own subfolder: ") +
                                  row->listing.values().join(QStringLiteral(", ")));
    }
}

TEST_F(House, EverySourceSaysItsLicence) {
    const QString root = QStringLiteral(TARSEL_ROOT "/");
    const QStringList scripts{QStringLiteral("CMakeLists.txt"), QStringLiteral("*.cmake"),
                              QStringLiteral("*.sh")};
    for (const char* folder : {"src", "tests", "samples", "artwork", "bench", "cmake"})
        for (const QString& path : filesBelow(root + QString::fromLatin1(folder), sourcePatterns + scripts)) {
            const bool permissive = path.startsWith(sources + QStringLiteral("/bytes/")) ||
                                    path.startsWith(sources + QStringLiteral("/publishing/joined/")) ||
                                    path.startsWith(sources + QStringLiteral("/players/"));
            const QString line = QStringLiteral(" SPDX-License-Identifier: ") +
                                 (permissive ? QStringLiteral("MIT") : QStringLiteral("GPL-3.0-or-later"));
            const QStringList lines = linesOf(path);
            if (lines[0] != QStringLiteral("//") + line &&
                !lines.first(2).contains(QStringLiteral("#") + line))
                report(path, QStringLiteral("doesn't begin with") + line);
        }
}
