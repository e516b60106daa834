// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "cli/BasketWorkspace.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/RowReport.h"
#include "cli/TaskSource.h"
#include "cli/Terminal.h"
#include "collections/modFileSystem.h"
#include "publishing/AlbumFields.h"
#include "publishing/AlbumGenerator.h"
#include "publishing/ForeignFile.h"
#include "publishing/MetadataBasket.h"

#include <QCoreApplication>
#include <array>

namespace tarsel::cli {

namespace {

constexpr OptionSpec ownOptions[] = {
    {"out", "FOLDER",
     QT_TRANSLATE_NOOP("CommandLine",
                       "required; put index.htm and the other files there; made when missing")},
    {"overwrite", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "replace files that are not of an album, such as another index.htm")},
    {"thumbnail", "WxH",
     QT_TRANSLATE_NOOP("CommandLine", "size of thumbnails, 30 to 300 (default: 150x150)")},
    {"font", "FAMILY", QT_TRANSLATE_NOOP("CommandLine", "of all texts (default: Arial)")},
    {"metadata", "F.mbf", QT_TRANSLATE_NOOP("CommandLine", "show these lines of metadata on each page")},
    {"tasks", "F.tbf", QT_TRANSLATE_NOOP("CommandLine", "run this task list on every picture")},
    {"upright", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "turn pictures by their EXIF orientation before the tasks run")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line: row, source, target, state, reason")},
};

constexpr std::size_t fieldOptions =
    std::size_t(std::ranges::count_if(albumFields, [](const AlbumField& field) { return field.option; }));

constexpr auto options = [] {
    std::array<OptionSpec, std::size(ownOptions) + fieldOptions> all{};
    auto next = std::ranges::copy(ownOptions, all.begin()).out;
    for (const AlbumField& field : albumFields)
        if (field.option)
            *next++ = {field.option, field.value, field.help};
    return all;
}();

int numberOf(const AlbumField& field, const QString& text) {
    const QString value = QLatin1String(field.value);
    if (value == u"RRGGBB")
        return colorIn(text, field.option);
    if (!value.contains(u'|'))
        return numberIn(text, field.lowest, field.highest, field.option);
    const qsizetype index = value.split(u'|').indexOf(text);
    if (index < 0)
        throw UsageError{QCoreApplication::translate("CommandLine", "--%1 is %2, not \"%3\"")
                             .arg(QLatin1String(field.option), value, text)};
    return int(index);
}

void setField(settings::Album& settings, const AlbumField& field, const Arguments& arguments) {
    std::visit(
        [&](auto member) {
            using Value = std::remove_reference_t<decltype(settings.*member)>;
            if constexpr (std::is_same_v<Value, QString>)
                settings.*member = arguments.value(field.option);
            else if (!field.value)
                settings.*member = Value(settings.*member == 0);
            else
                settings.*member = Value(numberOf(field, arguments.value(field.option)));
        },
        field.field);
}

void setThumbnail(settings::Album& settings, const QString& text) {
    const QStringList sides = text.split(u'x');
    if (sides.size() != 2)
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--thumbnail takes WxH, not \"%1\"").arg(text)};
    const AlbumField& field = albumField("TThumbnailWidth");
    const auto side = [&](int index) {
        return qint16(numberIn(sides[index], field.lowest, field.highest, "thumbnail"));
    };
    settings.ThumbnailWidth = side(0);
    settings.ThumbnailHeight = side(1);
}

void requireOriginalsToFit(const settings::Album& settings) {
    if (settings.Originals == 0 || offersOriginals(settings))
        return;
    throw UsageError{settings.StripPrivate == 1
                         ? QCoreApplication::translate(
                               "CommandLine", "--originals would publish what --strip-private leaves out")
                         : QCoreApplication::translate("CommandLine", "--originals needs --template modern")};
}

AlbumOptions albumOptions(const Arguments& arguments) {
    requireOption(arguments, "out");
    AlbumOptions album;
    for (const AlbumField& field : albumFields)
        if (field.option && arguments.has(field.option))
            setField(album.settings, field, arguments);
    if (arguments.has("thumbnail"))
        setThumbnail(album.settings, arguments.value("thumbnail"));
    album.settings.AlbumFolder = folderPath(arguments.value("out"));
    album.settings.ProcessTaskBasket = arguments.has("tasks") ? 1 : 0;
    requireOriginalsToFit(album.settings);
    album.font = arguments.value("font", QStringLiteral("Arial"));
    if (arguments.has("metadata"))
        modSaveOpenImageList::readMetadataBasket(filePath(arguments.value("metadata")), album.metadata);
    return album;
}

void refuseToReplaceOthers(const ListView& pages, const AlbumOptions& album) {
    if (const auto file = foreignFile(pages, album))
        throw TrappedError{ErrorNumber::InvalidCall,
                           QCoreApplication::translate(
                               "CommandLine",
                               "%1 is not of an album and would be replaced: give the album a folder of "
                               "its own, or say --overwrite")
                               .arg(*file)};
}

int run(const Arguments& arguments, Terminal& terminal) {
    const AlbumOptions album = albumOptions(arguments);
    TaskList tasks;
    readTasks(arguments, tasks);
    const InterruptScope interruptible;
    TerminalProgress progress(terminal);
    BasketWorkspace basket(progress, interruptible.stop());
    basket.fill(arguments.operands());
    RowReport report(terminal, arguments.has("json"));
    report.addMissing(basket.missing());
    if (basket.pages().isEmpty()) { // an album without a row would take the place of an older one
        report.summarise();
        return exitStatus(false);
    }
    if (!arguments.has("overwrite"))
        refuseToReplaceOthers(basket.pages(), album);
    if (!modFileSystem::FolderExists(album.settings.AlbumFolder))
        modFileSystem::MakeFolder(album.settings.AlbumFolder);
    AlbumRun albumRun;
    albumRun.upright = arguments.has("upright");
    albumRun.unreadSources = basket.missing();
    albumRun.stop = interruptible.stop();
    albumRun.onRow = [&](const RowResult& result) { report.add(result); };
    const auto replayed = [&] { return allTasks(tasks); };
    ImageBox box;
    std::vector<RowResult> results;
    const bool isComplete =
        fncGenerateAlbum({basket.pages(), box, replayed}, album, progress, albumRun, results);
    report.summarise();
    return exitStatus(isComplete && report.allDone(false));
}

} // namespace

constexpr Command albumCommand{
    .name = "album",
    .operands = "BASKET.ibf|BASKET.ibd | PICTURE...",
    .required = "--out FOLDER",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Make a web album of a basket, or of pictures."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "Files of an earlier album are replaced; those that the new one doesn't use stay. Other files of\n"
        "these names, such as an index.htm of your own, are replaced with --overwrite only. index.htm is\n"
        "written at the end: not after an error or an interrupt. A row whose picture fails has a page\n"
        "without it, and the run goes on. No source is replaced, but that of the row itself.\n"
        "--template modern has one page, index.htm, without the rows that fail; it turns pictures upright, "
        "and\n"
        "needs none of the options for colours, borders, fonts, backgrounds and sizes of thumbnails."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
