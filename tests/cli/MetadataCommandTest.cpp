// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "cli/CsvTable.h"
#include "metadata/modMetadata.h"
#include "tests/cli/Program.h"
#include "tests/support/Text.h"

#include <QFile>
#include <QJsonArray>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// The rows of a picture as "label=value", those without a value left out.
std::string rowsOf(const PictureFolder& folder, const char* picture) {
    const QList<QJsonObject> found =
        folder.run(commandLine("metadata get --json") << text(picture)).objects();
    QStringList rows;
    for (const char* list : {"exif", "iptc"})
        for (const QJsonValue& row : found.value(0)[QLatin1String(list)].toArray())
            if (const QString value = row[QLatin1String("value")].toString(); !value.isEmpty())
                rows << row[QLatin1String("label")].toString() + u'=' + value;
    return rows.join(u'|').toStdString();
}

void setAttributes(const QString& picture, const std::vector<std::pair<const char*, const char*>>& values) {
    ImageBox box;
    modMetadata::ReadMetadata(picture, box);
    for (const auto& [name, value] : values)
        EXPECT_TRUE(box.ExifSet(text(name), text(value)));
    box.SaveMetadataOnly(picture);
}

} // namespace

TEST(MetadataCommand, SetsDeletesClearsAndCarriesToOtherPictures) {
    const PictureFolder folder;
    const auto status = [&](const char* words, const QStringList& more = {}) {
        return folder.run(commandLine("metadata") + commandLine(words) + more).status;
    };
    EXPECT_EQ(status("set --exif Artist=Ann --iptc Urgency=3 a.jpg --iptc", {text("Keywords=sea, , sand")}),
              0);
    EXPECT_EQ(rowsOf(folder, "a.jpg"), "Software=Tarsel JPEG|Artist=Ann|Keywords=sea,sand|Urgency=3");
    EXPECT_EQ(status("export --exif x.xiff --iptc x.ffo a.jpg"), 0);
    for (const char* link : {"link.xiff", "link.ffo"})
        ASSERT_TRUE(QFile::link(folder.path("a.jpg"), folder.path(link)));
    for (const char* slip :
         {"--exif b.jpg", "--iptc a.jpg", "--iptc x.xiff", "--exif link.xiff", "--iptc link.ffo"})
        EXPECT_EQ(status("export a.jpg", commandLine(slip)), 2) << slip;
    for (const char* link : {"link.xiff", "link.ffo"})
        QFile::remove(folder.path(link));
    EXPECT_EQ(status("import --exif x.xiff --iptc x.ffo b.jpg c.jpg"), 0);
    EXPECT_EQ(rowsOf(folder, "c.jpg"), rowsOf(folder, "a.jpg"));
    ImageBox().IptcSaveToFile(folder.path("none.ffo"));
    EXPECT_EQ(status("import --iptc none.ffo b.jpg"), 1);
    EXPECT_EQ(rowsOf(folder, "b.jpg"), rowsOf(folder, "a.jpg"));
    const ProgramRun batch = folder.run("batch --iptc none.ffo --out made c.jpg");
    EXPECT_EQ(batch.status, 0);
    EXPECT_TRUE(contains(batch.lines().value(0), "none.ffo has no IPTC fields"));
    EXPECT_EQ(rowsOf(folder, "made/c.jpg"), rowsOf(folder, "c.jpg"));
    setAttributes(folder.path("b.jpg"), {{"Software", "other"}, {"Artist", ""}});
    EXPECT_EQ(status("delete --exif Artist --iptc Keywords --iptc Urgency b.jpg"), 0);
    EXPECT_EQ(rowsOf(folder, "b.jpg"), "Software=Tarsel JPEG");
    EXPECT_EQ(folder.run("metadata delete --exif Artist --dry-run b.jpg").output,
              "unchanged: " + folder.path("b.jpg").toUtf8() + "\n")
        << "an empty value is deleted too";
    EXPECT_EQ(status("clear --exif --iptc", {folder.path()}), 0) << "a folder is all of its pictures";
    ASSERT_TRUE(QDir(folder.path()).mkdir(text("empty")));
    EXPECT_EQ(status("clear --exif", {folder.path("empty")}), 0);
    EXPECT_EQ(rowsOf(folder, "a.jpg") + rowsOf(folder, "b.jpg") + rowsOf(folder, "c.jpg"), "");
}

TEST(MetadataCommand, ExportsBesideEachPictureAndReadsTheDatesThatItPrints) {
    const PictureFolder folder;
    const auto set = [&](const char* list, const char* change) {
        return folder.run(commandLine("metadata set a.jpg") << text(list) << text(change)).status;
    };
    for (const char* date : {"2004-01-31T15:05:09", "2004:01:31 15:05:09"}) {
        EXPECT_EQ(set("--exif", (std::string("DateTime=") + date).c_str()), 0);
        EXPECT_EQ(rowsOf(folder, "a.jpg"), "Software=Tarsel JPEG|Date/Time=2004:01:31 15:05:09");
    }
    EXPECT_EQ(set("--exif", "DateTime=0000:00:00 00:00:00"), 1);
    EXPECT_EQ(set("--exif", "Artist=Ann \"A\""), 0);
    EXPECT_EQ(folder.run(commandLine("metadata set b.jpg --iptc") << text("Date Created=2004-01-31")).status,
              0);
    EXPECT_EQ(rowsOf(folder, "b.jpg"), "Date Created=2004-01-31");
    EXPECT_EQ(folder.run("metadata export --beside both --dry-run .").status, 0);
    EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg");
    const ProgramRun run = folder.run("metadata export --beside both --json .");
    QStringList states;
    for (const QJsonObject& each : run.objects())
        states << each[QLatin1String("state")].toString();
    EXPECT_EQ(states.join(u' '), text("written written unchanged"));
    EXPECT_EQ(folder.files(), "a.jpg a.jpg.xiff b.jpg b.jpg.ffo c.jpg");
    EXPECT_TRUE(run.objects().value(0)[QLatin1String("remark")].toString().contains(text("Artist")));
    EXPECT_EQ(folder.run("metadata export --beside exif a.jpg b.jpg").status, 1);
    EXPECT_EQ(folder.run("metadata export --beside exif --overwrite a.jpg b.jpg").status, 0);
}

TEST(MetadataCommand, TakesATableAndGoesOnAfterWhatFails) {
    const PictureFolder folder;
    writeFileSafely(folder.path("t.csv"), "\xEF\xBB\xBF"
                                          "file,Caption,exif:DateTime\r\na.jpg,\"Sea, \"\"wide\"\"\r\nand "
                                          "blue\",\r\ngone.jpg,x,\nb.jpg,,soon\nc.jpg,,\n");
    const ProgramRun run = folder.run("metadata set --from t.csv --json");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(contains(folder.run("metadata set --exif DateTime=soon b.jpg").messages, "b.jpg: "));
    QStringList states;
    for (const QJsonObject& each : run.objects())
        states << each[QLatin1String("state")].toString();
    EXPECT_EQ(states.join(u' '), text("written failed failed unchanged"));
    EXPECT_EQ(rowsOf(folder, "a.jpg"), "Caption=Sea, \"wide\"\r\nand blue");
    EXPECT_EQ(folder.run("metadata set --iptc Headline=x --dry-run a.jpg").output,
              "dry-run: " + folder.path("a.jpg").toUtf8() + "\n");
    EXPECT_EQ(rowsOf(folder, "a.jpg"), "Caption=Sea, \"wide\"\r\nand blue");
    const QString longKeyword = text("Keywords=") + QString(65, u'k');
    EXPECT_TRUE(
        contains(folder.run(commandLine("metadata set a.jpg --iptc") << longKeyword).messages, "64 bytes"));
    for (const char* wrong : {"set a.jpg", "set --exif Make a.jpg", "set --exif ColorSpace=1 a.jpg",
                              "set --iptc Nothing=1 a.jpg", "get", "lose a.jpg", "export a.jpg",
                              "export --iptc x.ffo a.jpg b.jpg", "export --beside all a.jpg"})
        EXPECT_EQ(folder.run(commandLine("metadata") + commandLine(wrong)).status, 2) << wrong;
    EXPECT_TRUE(folder.run("metadata --help").output.contains("metadata import  Put the contents"));
    EXPECT_THROW(cli::readCsv("a,\"b"), TrappedError);
    EXPECT_THROW(cli::readCsv(QByteArray("a\0,\0", 4)), TrappedError) << "UTF-16";
    EXPECT_EQ(cli::readCsv("a,Gr\xF6\xDF"
                           "e")
                  .value(0)
                  .value(1),
              QString::fromUtf8("Gr\u00F6\u00DFe"));
    writeFileSafely(folder.path("t.csv"), "file,Caption\na.jpg,one, two\n");
    EXPECT_EQ(folder.run("metadata set --from t.csv").status, 2);
}

TEST(MetadataCommand, TwoEditsOfAFileAtOnceBothArrive) {
    const PictureFolder folder;
    for (int round = 0; round < 6; ++round) {
        const QString value = QString::number(round);
        std::vector<pid_t> edits;
        for (const char* name : {"Artist", "Copyright", "Make"})
            edits.push_back(
                startProgram(commandLine("metadata set a.jpg --exif") << QLatin1String(name) + u'=' + value,
                             folder.path()));
        for (const pid_t edit : edits)
            EXPECT_EQ(endOf(edit), 0);
        const ImageBox box = folder.loaded("a.jpg");
        for (const char* name : {"Artist", "Copyright", "Make"})
            EXPECT_EQ(box.ExifValueByName(QLatin1String(name)), value) << name;
    }
}
