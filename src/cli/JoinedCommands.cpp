// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CodePage.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/JsonLine.h"
#include "cli/RowReport.h"
#include "cli/Terminal.h"
#include "collections/modFileSystem.h"
#include "publishing/ExtractedName.h"
#include "publishing/joined/JoinedOptions.h"
#include "publishing/joined/JoinedReader.h"

#include <QCoreApplication>
#include <QFile>

namespace tarsel::cli {

namespace {

constexpr OptionSpec listOptions[] = {
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine",
                       "one JSON object a line: row, name, offset, size; at the end the options")},
};
constexpr OptionSpec extractOptions[] = {
    {"out", "FOLDER",
     QT_TRANSLATE_NOOP("CommandLine", "put the pictures there; made when missing; required")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line: row, source, target, state, reason")},
};

/// A self-running file, open.
class JoinedInput {
public:
    explicit JoinedInput(const Arguments& arguments) {
        if (arguments.operands().size() != 1)
            throw UsageError{QCoreApplication::translate("CommandLine", "expected one FILE")};
        m_path = filePath(arguments.operands().first());
        m_file = openRegularFile(m_path);
        const auto contents = joined::readJoined(source());
        if (!contents)
            fail(ErrorNumber::UnreadableFile,
                 QCoreApplication::translate("CommandLine", "%1: no pictures are joined to this file")
                     .arg(m_path));
        m_contents = *contents;
    }

    const QString& path() const { return m_path; }
    const joined::JoinedContents& contents() const { return m_contents; }
    std::string block(std::uint64_t offset, std::uint64_t size) const {
        const auto bytes = joined::blockOf(source(), offset, size);
        if (!bytes)
            fail(ErrorNumber::InputPastEnd, m_path);
        return *bytes;
    }

private:
    ByteSource source() const {
        return {[this](std::int64_t at, void* target, std::int64_t count) -> std::int64_t {
                    return m_file->seek(at) ? m_file->read(static_cast<char*>(target), count) : 0;
                },
                m_file->size()};
    }

    QString m_path;
    std::unique_ptr<QFile> m_file;
    joined::JoinedContents m_contents;
};

QString nameOf(const joined::JoinedPicture& picture) {
    return codePage::decode(QByteArray::fromStdString(picture.name));
}

/// "RRGGBB", as the options of the commands take it.
QString colorText(std::int32_t color) {
    const quint32 rgb = (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
    return QStringLiteral("%1").arg(rgb, 6, 16, QLatin1Char('0')).toUpper();
}

struct OptionLine {
    const char* name;
    QString text;
};

std::vector<OptionLine> linesOf(const joined::SaverOptions& options) {
    return {{"interval", QString::number(options.interval)}, {"background", colorText(options.backColor)}};
}

std::vector<OptionLine> linesOf(const joined::EffectOptions& options) {
    const bool isDigital = options.clockKind == 1;
    return {{"text", codePage::decode(QByteArray::fromStdString(options.rollingText))},
            {"color", colorText(options.rollingTextColor)},
            {"clock", isDigital ? QStringLiteral("digital") : QStringLiteral("analog")},
            {"date", options.showDate == 1 ? QStringLiteral("yes") : QStringLiteral("no")},
            {"date-color", colorText(options.dateColor)},
            {"digital-color", colorText(options.digitalColor)},
            {"hour-color", colorText(options.hourColor)},
            {"minute-color", colorText(options.minuteColor)},
            {"second-color", colorText(options.secondColor)}};
}

/// The record of a screen saver is shorter than any of a greeting.
std::vector<OptionLine> optionLines(const JoinedInput& input) {
    constexpr std::uint64_t saverSize = 6, longestEffect = 65'535 + 28;
    const joined::JoinedContents& contents = input.contents();
    const std::uint64_t size = contents.listOffset - contents.optionsOffset;
    const std::string bytes = input.block(contents.optionsOffset, std::min(size, longestEffect));
    if (const auto options = joined::saverOptions(bytes); options && size == saverSize)
        return linesOf(*options);
    if (const auto options = joined::effectOptions(bytes))
        return linesOf(*options);
    return {};
}

int list(const Arguments& arguments, Terminal& terminal) {
    const JoinedInput input(arguments);
    const bool isJson = arguments.has("json");
    int row = 0;
    for (const joined::JoinedPicture& picture : input.contents().pictures) {
        ++row;
        terminal.result(isJson ? JsonLine()
                                     .add("row", row)
                                     .add("name", nameOf(picture))
                                     .add("offset", double(picture.offset))
                                     .add("size", double(picture.size))
                                     .text()
                               : QStringLiteral("%1  %2  %3  %4")
                                     .arg(row, 5)
                                     .arg(picture.offset, 10)
                                     .arg(picture.size, 10)
                                     .arg(nameOf(picture)));
    }
    JsonLine options;
    for (const OptionLine& line : optionLines(input)) {
        options.add(line.name, line.text);
        if (!isJson)
            terminal.result(QStringLiteral("%1: %2").arg(QLatin1String(line.name), line.text));
    }
    if (isJson)
        terminal.result(JsonLine().add("options", options).text());
    return AllDone;
}

/// A list can name any number of bytes.
constexpr std::uint64_t largestPicture = std::uint64_t(1) << 30;

RowResult extracted(const JoinedInput& input, int row, const QString& target) {
    const joined::JoinedPicture& picture = input.contents().pictures[std::size_t(row - 1)];
    RowResult result;
    result.row = row;
    result.source = nameOf(picture);
    result.target = target;
    try {
        if (picture.size > largestPicture)
            fail(ErrorNumber::InvalidPicture,
                 QCoreApplication::translate("CommandLine", "%1 bytes are no JPEG file").arg(picture.size));
        const std::string jpeg = input.block(picture.offset, picture.size);
        if (writeNewFileSafely(target, QByteArray::fromRawData(jpeg.data(), qsizetype(jpeg.size()))))
            result.state = RowState::Written;
        else
            result.skip(SkipReason::Exists);
    } catch (const TrappedError& error) {
        result.remark(error.description);
    }
    return result;
}

int extract(const Arguments& arguments, Terminal& terminal) {
    requireOption(arguments, "out");
    const JoinedInput input(arguments);
    const QString folder = folderPath(arguments.value("out"));
    if (!modFileSystem::FolderExists(folder))
        modFileSystem::MakeFolder(folder);
    const InterruptScope interruptible;
    RowReport report(terminal, arguments.has("json"));
    ExtractedNames names;
    int row = 0;
    for (const joined::JoinedPicture& picture : input.contents().pictures) {
        if (wasInterrupted())
            break;
        report.add(extracted(input, ++row, folder + QLatin1Char('/') + names.next(nameOf(picture))));
    }
    report.summarise();
    return exitStatus(report.allDone(false));
}

} // namespace

constexpr Command joinedListCommand{
    .name = "joined list",
    .operands = "FILE",
    .summary = QT_TRANSLATE_NOOP("CommandLine",
                                 "List the pictures and options of a screen saver, slide show or greeting."),
    .notes =
        QT_TRANSLATE_NOOP("CommandLine", "The lines have number, offset, size and name of each picture."),
    .options = listOptions,
    .run = list,
};

constexpr Command joinedExtractCommand{
    .name = "joined extract",
    .operands = "FILE",
    .required = "--out FOLDER",
    .summary =
        QT_TRANSLATE_NOOP("CommandLine", "Copy the pictures out of a screen saver, slide show or greeting."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "Files are named after their pictures, without what can't be part of a file name. No file "
        "is\nreplaced: a picture whose file exists is skipped."),
    .options = extractOptions,
    .run = extract,
};

} // namespace tarsel::cli
