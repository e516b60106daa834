// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "imaging/ImageBox.h"
#include "tests/cli/Program.h"
#include "tests/support/Corpus.h"
#include "tests/support/MadePictures.h"

#include <QDir>
#include <QFileInfo>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// One value of all results, blanks between them.
std::string column(const ProgramRun& run, const char* key) {
    QStringList values;
    for (const QJsonObject& object : run.objects())
        values << object.value(QLatin1String(key)).toVariant().toString();
    return values.join(QLatin1Char(' ')).toStdString();
}

std::string targetNames(const ProgramRun& run) {
    QStringList names;
    for (const QJsonObject& object : run.objects())
        names << QFileInfo(object.value(QLatin1String("target")).toString()).fileName();
    return names.join(QLatin1Char(' ')).toStdString();
}

const char textTask[] =
    "\"10\",\"text\",\"True\",\"False\",\"True\",\"0\",\"2\",\"DejaVu Sans\",\"10\",\"True\",\"False\","
    "\"False\",\"0\",\"0\",\"0\",\"8\",\"Hello\",\"0\",\"0\"\r\n";

/// In the place of the program's output: a pipe that is full, so that the program stops at its first line
/// until the pipe is read.
class FullPipe {
public:
    explicit FullPipe(const QString& path) {
        EXPECT_EQ(::mkfifo(path.toLocal8Bit().constData(), 0600), 0);
        m_pipe = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        const QByteArray filling(4096, '\n');
        while (::write(m_pipe, filling.constData(), size_t(filling.size())) > 0) {
        }
    }
    ~FullPipe() { ::close(m_pipe); }
    FullPipe(const FullPipe&) = delete;
    FullPipe& operator=(const FullPipe&) = delete;

    /// All that comes until the text does.
    QByteArray readUntil(const char* text) const {
        QByteArray all;
        pollfd ready = {.fd = m_pipe, .events = POLLIN, .revents = 0};
        char bytes[4096];
        while (!all.contains(text) && ::poll(&ready, 1, 60'000) > 0)
            if (const ssize_t size = ::read(m_pipe, bytes, sizeof bytes); size > 0)
                all.append(bytes, size);
        return all;
    }

private:
    int m_pipe = -1;
};

} // namespace

TEST(BatchCommand, ASignalEndsTheRunAfterTheCurrentFile) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const PictureFolder folder;
        ASSERT_TRUE(QDir().mkdir(folder.path(text("made"))));
        const FullPipe output(folder.path(text("output")));
        const pid_t process = startProgram(commandLine("batch --out made a.jpg b.jpg c.jpg"), folder.path());
        while (!QFileInfo::exists(folder.path(text("made/a.jpg"))))
            ::usleep(1000);
        ::kill(process, signal);
        const QByteArray lines = output.readUntil("failed");
        EXPECT_EQ(endOf(process), 130);
        EXPECT_EQ(lines.count("(cancelled)"), 2) << lines.trimmed().constData();
        EXPECT_EQ(folder.files(text("made")), "a.jpg");
    }
}

TEST(BatchCommand, MakesTheFilesAndTellsEachRow) {
    const PictureFolder folder;
    const ProgramRun run = folder.run(commandLine("batch --json --out made a.jpg ./b.jpg"));
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(folder.files(text("made")), "a.jpg b.jpg");
    EXPECT_EQ(column(run, "row"), "1 2");
    EXPECT_EQ(column(run, "state"), "written written");
    const QJsonObject second = run.objects().at(1);
    EXPECT_EQ(second.keys(), commandLine("reason row source state target"));
    EXPECT_EQ(second.value(text("source")).toString(), folder.path(text("b.jpg")));
    EXPECT_EQ(second.value(text("target")).toString(), folder.path(text("made/b.jpg")));
    EXPECT_TRUE(run.messages.contains("made the folder"));
}

TEST(BatchCommand, PlainResultsGoToStandardOutputAndNothingElseDoes) {
    const PictureFolder folder;
    const ProgramRun run = folder.run(commandLine("batch --out made a.jpg b.jpg"));
    ASSERT_EQ(run.lines().size(), 2);
    EXPECT_TRUE(run.lines().at(0).contains(text("written")));
    EXPECT_TRUE(run.lines().at(0).contains(text("made/a.jpg")));
}

TEST(BatchCommand, NamesFollowTheRules) {
    struct Case {
        const char *words, *names;
    };
    const Case cases[] = {
        {"--name keep", "a.jpg b.jpg"},
        {"--name generic --generic X --count 32766", "X32766.jpg X32767.jpg"},
        {"--name generic --count [Starting_1001]", "Sample1001.jpg Sample1002.jpg"},
        {"--name hybrid --prefix [Source_resolution] --suffix end", "24x16_a_end.jpg 26x16_b_end.jpg"},
        {"--name hybrid --separator1 [No_Separator] --separator2 [WhiteSpace] --suffix end",
         "a end.jpg b end.jpg"},
    };
    for (const Case& one : cases) {
        const PictureFolder folder;
        QStringList words = commandLine(one.words);
        words.replaceInStrings(text("_"), text(" "));
        const ProgramRun run =
            folder.run(commandLine("batch --json --out made") + words + commandLine("a.jpg b.jpg"));
        EXPECT_EQ(run.status, 0) << run.messages.constData();
        EXPECT_EQ(targetNames(run), one.names);
    }
}

TEST(BatchCommand, WrongUsageIsToldWithAHintAndDoesNothing) {
    const char* const wrong[] = {
        "",
        "bogus",
        "batch",
        "batch --out made",
        "batch --out made --source-folder a.jpg",
        "batch --out made --quality 0 a.jpg",
        "batch --out made --quality 80% a.jpg",
        "batch --out made --name fancy a.jpg",
        "batch --out made --name generic --count one a.jpg",
        "batch --out made --name generic --count= a.jpg",
        "batch --out made --prefix x a.jpg",
        "batch --out made --name hybrid --prefix x/y a.jpg",
        "batch --out made --name generic --generic ../x a.jpg",
        "batch --source-folder --name generic a.jpg",
        "batch --out made --rows 0-2 a.jpg",
        "batch --out made --rows 3-2 a.jpg",
        "batch --out made --rows - a.jpg",
        "batch --out made --rows 1-2-3 a.jpg",
        "batch --out made --frobnicate a.jpg",
        "batch --out made a.jpg x.ibf",
        "batch a.jpg",
        "apply a.jpg x.jpg",
        "info",
        "basket",
        "basket list",
        "basket save x.txt a.jpg",
    };
    for (const char* words : wrong) {
        const PictureFolder folder;
        const ProgramRun run = folder.run(commandLine(words));
        EXPECT_EQ(run.status, 2) << words;
        EXPECT_TRUE(run.messages.contains("--help")) << words;
        EXPECT_TRUE(run.output.isEmpty()) << words;
        EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg") << words;
        EXPECT_FALSE(QFileInfo::exists(folder.path(text("made")))) << words;
    }
}

TEST(BatchCommand, ASideFileOrTaskListThatIsMissingOrAFolderStopsBeforeTheFirstRow) {
    for (const char* option : {"--tasks", "--exif", "--iptc"}) {
        const PictureFolder folder;
        const ProgramRun run =
            folder.run(commandLine("batch --out made a.jpg") + QStringList{text(option), text("gone.x")});
        EXPECT_EQ(run.status, 1) << option;
        EXPECT_TRUE(run.messages.contains("gone.x"));
        EXPECT_FALSE(QFileInfo::exists(folder.path(text("made"))));
        const ProgramRun ofFolder =
            folder.run(commandLine("batch --out made a.jpg") + QStringList{text(option), folder.path()});
        EXPECT_EQ(ofFolder.status, 1) << option;
        EXPECT_TRUE(ofFolder.messages.contains(": " + folder.path().toUtf8() + ": Is a directory"))
            << ofFolder.messages.toStdString();
    }
}

TEST(BatchCommand, ABadTaskListIsNamed) {
    for (const char* list : {"nonsense", "\"seven\",\"sharpen\"\r\n", "\"7\",\"sharpen\",\"2\"\r\n"}) {
        const PictureFolder folder;
        writeFileSafely(folder.path(text("bad.tbf")), list);
        const ProgramRun run = folder.run(commandLine("batch --out made --tasks bad.tbf a.jpg"));
        EXPECT_EQ(run.status, 1) << list;
        EXPECT_TRUE(run.messages.contains("bad.tbf")) << run.messages.constData();
        EXPECT_TRUE(run.messages.contains("record 1")) << run.messages.constData();
    }
}

TEST(BatchCommand, SlicesAreNumberedAsTheWhole) {
    const PictureFolder folder;
    const QStringList rest = commandLine("--json --out made --name generic a.jpg b.jpg c.jpg --rows");
    EXPECT_EQ(targetNames(folder.run(commandLine("batch") + rest + commandLine("2-3"))),
              "Sample2.jpg Sample3.jpg");
    EXPECT_EQ(targetNames(folder.run(commandLine("batch") + rest + commandLine("3-"))), "Sample3.jpg");
    EXPECT_EQ(targetNames(folder.run(commandLine("batch") + rest + commandLine("-1"))), "Sample1.jpg");
    EXPECT_EQ(targetNames(folder.run(commandLine("batch") + rest + commandLine("2"))), "Sample2.jpg");
    EXPECT_EQ(targetNames(folder.run(commandLine("batch") + rest + commandLine("2-99"))),
              "Sample2.jpg Sample3.jpg");
    EXPECT_EQ(folder.run(commandLine("batch") + rest + commandLine("8-9")).status, 0);
}

TEST(BatchCommand, ADryRunWritesNothing) {
    const PictureFolder folder;
    const ProgramRun run = folder.run(commandLine("batch --json --dry-run --out made a.jpg b.jpg"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(column(run, "state"), "skipped skipped");
    EXPECT_EQ(targetNames(run), "a.jpg b.jpg");
    EXPECT_FALSE(QFileInfo::exists(folder.path(text("made"))));
    EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg");
}

TEST(BatchCommand, SourcesAreReplacedOnlyWhenAskedFor) {
    const PictureFolder folder;
    const QByteArray before = readWholeFile(folder.path(text("a.jpg")));
    EXPECT_EQ(folder.run(commandLine("batch a.jpg")).status, 2);
    EXPECT_EQ(readWholeFile(folder.path(text("a.jpg"))), before);
    EXPECT_EQ(folder.run(commandLine("batch --no-overwrite a.jpg")).status, 1);
    EXPECT_EQ(readWholeFile(folder.path(text("a.jpg"))), before);
    EXPECT_EQ(folder.run(commandLine("batch --source-folder --quality 20 a.jpg")).status, 0);
    EXPECT_NE(readWholeFile(folder.path(text("a.jpg"))), before);
    EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg");
}

TEST(BatchCommand, ASourceThatALaterRowNeedsIsNotReplaced) {
    const PictureFolder folder;
    makePicture(folder.path(text("b.png")), QSize(90, 60));
    const ProgramRun run = folder.run(commandLine("batch --json --source-folder b.png b.jpg"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(column(run, "state"), "skipped written");
    EXPECT_TRUE(run.objects().at(0).value(text("reason")).toString().contains(text("source of row 2")));
    ImageBox box;
    box.LoadFromFile(folder.path(text("b.jpg")));
    EXPECT_EQ(box.Width(), 26);
}

TEST(BatchCommand, TwoRowsThatEndInOneFileAreARemark) {
    const PictureFolder folder;
    makePicture(folder.path(text("b.png")), QSize(90, 60));
    const ProgramRun run = folder.run(commandLine("batch --json --out made b.png b.jpg"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(column(run, "state"), "written written");
    EXPECT_EQ(column(run, "reason"), " replaces the file of row 1");
}

TEST(BatchCommand, OptionsOfThePictureReachTheFile) {
    const PictureFolder folder;
    ImageBox box;
    box.LoadFromFile(folder.path(text("a.jpg")));
    ASSERT_TRUE(box.ExifSet(text("Orientation"), text("6")));
    box.SaveToFile(folder.path(text("a.jpg")));
    struct Case {
        const char* option;
        int width, bits;
        bool progressive;
    };
    for (const Case& one : {Case{"--quality=80", 24, 24, false}, Case{"--upright", 16, 24, false},
                            Case{"--progressive", 24, 24, true}, Case{"--gray", 24, 8, false}}) {
        ASSERT_EQ(folder.run(commandLine("batch --out made a.jpg") + QStringList{text(one.option)}).status,
                  0);
        const QJsonObject info = folder.run(commandLine("info --json made/a.jpg")).objects().value(0);
        EXPECT_EQ(info.value(text("width")).toInt(), one.width) << one.option;
        EXPECT_EQ(info.value(text("header")).toObject().value(text("bitsPerPixel")).toInt(), one.bits)
            << one.option;
        const bool progressive = readWholeFile(folder.path(text("made/a.jpg"))).contains("\xFF\xC2");
        EXPECT_EQ(progressive, one.progressive) << one.option;
    }
}

TEST(BatchCommand, AnUnreadablePageCountsAsNotDoneAlsoFromABasketFile) {
    const PictureFolder folder;
    makeDocument(folder.path(text("scan.tif")), {{QSize(8, 8)}, {.size = QSize(8, 8), .compression = 31000}});
    ASSERT_EQ(folder.run(commandLine("basket save x.ibf scan.tif a.jpg")).status, 0);
    for (const char* operands : {"scan.tif a.jpg", "x.ibf"}) {
        const ProgramRun run = folder.run(commandLine("batch --json --out made") + commandLine(operands));
        EXPECT_EQ(run.status, 1) << operands;
        EXPECT_EQ(column(run, "state"), "failed written written") << operands;
        EXPECT_TRUE(run.objects().value(0)[text("reason")].toString().startsWith(text("page 2 of 2: ")))
            << run.output.toStdString();
    }
}

TEST(BatchCommand, ARelativePathInAFolderThatIsGoneIsAnError) {
    const PictureFolder folder;
    const ProgramRun run =
        runShell("mkdir gone && cd gone && rmdir ../gone && exec \"$TARSEL\" batch a.jpg", folder.path());
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.messages.contains("the current folder no longer exists")) << run.messages.constData();
}

TEST(BatchCommand, WithoutAnOutFolderFilesGoToTheCurrentOne) {
    const PictureFolder folder;
    EXPECT_EQ(folder.run(commandLine("batch --name generic a.jpg")).status, 0);
    EXPECT_EQ(folder.files(), "Sample1.jpg a.jpg b.jpg c.jpg");
}

TEST(BatchCommand, AFailedRowEndsTheRunAndTheRestIsNotReached) {
    const PictureFolder folder;
    makePicture(folder.path(text("b.jpg")), 10, 10, text("x/y"));
    const ProgramRun run =
        folder.run(commandLine("batch --json --out made --name hybrid a.jpg b.jpg c.jpg --prefix") +
                   QStringList{text("[EXIF Artist]")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(column(run, "state"), "written failed skipped");
    EXPECT_EQ(run.objects().at(2).value(text("reason")).toString(), text("not reached"));
    EXPECT_TRUE(run.messages.contains("x/y"));
    EXPECT_TRUE(run.messages.contains("fncSaveSinglePage"));
}

TEST(BatchCommand, APictureThatCantBeReadDoesntStopTheOthers) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("bad.jpg")), "no picture");
    const ProgramRun run = folder.run(commandLine("batch --json --out made a.jpg gone.jpg bad.jpg c.jpg"));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(column(run, "row"), "0 0 1 2");
    EXPECT_EQ(column(run, "state"), "failed failed written written");
    EXPECT_EQ(folder.files(text("made")), "a.jpg c.jpg");
    const QString fact =
        folder.run(commandLine("info --json bad.jpg")).objects().value(0)[text("reason")].toString();
    EXPECT_FALSE(fact.isEmpty());
    EXPECT_EQ(run.objects().value(1)[text("reason")].toString(), fact);
}

TEST(BatchCommand, BasketFilesKeepTheirRowNames) {
    const PictureFolder folder;
    ASSERT_EQ(folder.run(commandLine("basket save x.ibf a.jpg c.jpg")).status, 0);
    const ProgramRun run = folder.run(commandLine("batch --json --out made x.ibf"));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(targetNames(run), "a.jpg.jpg c.jpg.jpg");
}

TEST(BatchCommand, AnIbfWithAnEmptyLineOrAMissingBasketIsTold) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("odd.ibf")), "\"/x/a.jpg\"\r\n\r\n");
    for (const char* basket : {"odd.ibf", "gone.ibf", "gone.ibd"}) {
        const ProgramRun run = folder.run(commandLine("batch --out made") + QStringList{text(basket)});
        EXPECT_EQ(run.status, 1) << basket;
        EXPECT_TRUE(run.messages.contains(basket)) << run.messages.constData();
    }
}

TEST(BatchCommand, TextIsDrawnWithoutADisplay) {
    const PictureFolder folder;
    makePicture(folder.path(text("a.jpg")), 200, 100);
    writeFileSafely(folder.path(text("text.tbf")), textTask);
    const ProgramRun run = folder.run(commandLine("batch --out made --tasks text.tbf a.jpg"));
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    ASSERT_EQ(folder.run(commandLine("batch --out plain a.jpg")).status, 0);
    EXPECT_NE(readWholeFile(folder.path(text("made/a.jpg"))),
              readWholeFile(folder.path(text("plain/a.jpg"))));
    EXPECT_EQ(run.messages.count('\n'), 2) << "no chatter of libraries: " << run.messages.constData();
}

TEST(BatchCommand, AFailedTaskIsToldWithItsFileAndTheRowIsWritten) {
    const PictureFolder folder;
    writeFileSafely(folder.path(text("odd.tbf")),
                    "\"7\",\"sharpen\",\"very\"" + QByteArray(",\"\"").repeated(16) + "\r\n");
    const ProgramRun run = folder.run(commandLine("batch --json --out made --tasks odd.tbf a.jpg"));
    EXPECT_EQ(run.status, 1) << "a script must notice";
    EXPECT_EQ(column(run, "state"), "written");
    EXPECT_TRUE(run.objects().at(0).value(text("reason")).toString().contains(text("task 1 (sharpen)")));
    EXPECT_TRUE(run.messages.contains("a.jpg: task 1 (sharpen): ")) << run.messages.constData();
    EXPECT_EQ(folder.run(commandLine("batch --dry-run --out made --tasks odd.tbf a.jpg")).status, 1);
}

TEST(BatchCommand, PagesOfADocumentAreRowsAndLeaveNothingBehind) {
    TARSEL_REQUIRE_CORPUS();
    const PictureFolder folder;
    const QString document = *corpusFolder() + text("/tiff/g4-multi.tiff");
    if (!QFile::exists(document) || !QFile::copy(document, folder.path(text("doc.tiff"))))
        GTEST_SKIP() << "no document in the corpus";
    const ProgramRun run = folder.run(commandLine("batch --json --source-folder doc.tiff a.jpg"));
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_EQ(targetNames(run), "doc1.jpg doc2.jpg doc3.jpg a.jpg");
    EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg doc.tiff doc1.jpg doc2.jpg doc3.jpg");
}

TEST(BatchCommand, FilesWithOddNamesWork) {
    const PictureFolder folder;
    const QString odd = text("-\u00fc \"quoted\" \u65e5.jpg");
    makePicture(folder.path(odd));
    const ProgramRun run = folder.run(commandLine("batch --json --out made --") + QStringList{odd});
    EXPECT_EQ(run.status, 0) << run.messages.constData();
    EXPECT_TRUE(QFileInfo::exists(folder.path(text("made/")) + odd));
    EXPECT_EQ(run.objects().at(0).value(text("source")).toString(), folder.path(odd));
}

TEST(Program, HelpAndVersionSucceedOnStandardOutput) {
    const PictureFolder folder;
    for (const char* words : {"--help", "-h", "--version", "batch --help", "apply --help", "info --help",
                              "basket --help", "batch --out x -h"}) {
        const ProgramRun run = folder.run(commandLine(words));
        EXPECT_EQ(run.status, 0) << words;
        EXPECT_FALSE(run.output.isEmpty()) << words;
        EXPECT_TRUE(run.messages.isEmpty()) << words;
    }
}
