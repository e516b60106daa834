// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/publishing/TestAlbum.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QUrl>

using namespace tarsel;
using namespace tarsel::test;

#ifndef TARSEL_CHROMIUM
#define TARSEL_CHROMIUM ""
#endif
#ifndef TARSEL_AXE
#define TARSEL_AXE ""
#endif
#ifndef TARSEL_HTML_VALIDATE
#define TARSEL_HTML_VALIDATE ""
#endif

namespace {

const QStringList oddNames{text("plain"),        text("with blank"),   text("\u00FCml\u00E4ut"),
                           text("it's \"a\""),   text("50% #1 & <b>"), text("&amp;?x=1"),
                           text("\u6E56\u6CCA"), text("a:b|c"),        text("ni\u00F1o"),
                           text("%41"),          text("{x}*~, y"),     text(" lead")};

class AlbumInABrowser : public TestAlbum {
protected:
    void SetUp() override {
        if (text(TARSEL_CHROMIUM).isEmpty())
            GTEST_SKIP() << "no Chromium on this machine";
        options.settings.AlbumTitle = text("Tom's #1: 100% \u6E56 & \u00FC");
    }
    void addOddNames(int width) {
        for (const QString& name : oddNames) {
            addPicture(text("p%1.jpg").arg(pages.count()).toUtf8().constData(), width, 9,
                       [](ImageBox& edited) { edited.ExifSet(text("Artist"), text("Jo")); });
            pages.setText(pages.count() - 1, name);
        }
    }
    /// What a page of the tests reports that is opened beside the album.
    QString reportOf(const char* name) const {
        EXPECT_TRUE(QFile::copy(text(TARSEL_TESTS "/publishing/") + text(name), path("out/walk.html")));
        QProcess browser;
        browser.start(text(TARSEL_CHROMIUM),
                      {text("--headless"), text("--no-sandbox"), text("--disable-gpu"),
                       text("--disable-web-security"), text("--allow-file-access-from-files"),
                       text("--enable-logging=stderr"), text("--user-data-dir=") + path("profile"),
                       text("--virtual-time-budget=60000"), text("--dump-dom"),
                       QUrl::fromLocalFile(path("out/walk.html")).toString(QUrl::FullyEncoded)});
        EXPECT_TRUE(browser.waitForFinished(90'000));
        for (const QByteArray& line : browser.readAllStandardError().split('\n'))
            EXPECT_FALSE(line.contains("CONSOLE")) << line.toStdString();
        const QString page = QString::fromUtf8(browser.readAllStandardOutput());
        return page.section(text("<pre id=\"report\">"), 1).section(text("</pre>"), 0, 0);
    }
};

} // namespace

TEST_F(AlbumInABrowser, EveryPictureLinkAndBackgroundIsFoundWhateverTheNames) {
    addOddNames(24);
    ASSERT_TRUE(generate());
    const QString report = reportOf("walk.html");
    EXPECT_TRUE(contains(report, "pages 13 images 105")) << report.toStdString();
    EXPECT_FALSE(report.contains(text("no "))) << report.toStdString();
    EXPECT_TRUE(contains(report, text("title Tom's #1: 100% \u6E56 &amp; \u00FC: Web Album")));
}

TEST_F(AlbumInABrowser, TheModernPageIsValidAccessibleAndUsedByKeysAndFingers) {
    addOddNames(900);
    options.settings.ModernTemplate = 1;
    options.settings.Originals = 1;
    options.metadata = {text("EXIF - Artist")};
    ASSERT_TRUE(generate());
    const bool hasAxe = QFile::copy(text(TARSEL_AXE), path("out/axe.min.js"));
    if (!hasAxe)
        writeFile("out/axe.min.js", "");
    const QString checkedPage = hasAxe ? text("checked page\n") : QString();
    const QString checkedViewer = hasAxe ? text("checked viewer\n") : QString();
    EXPECT_EQ(reportOf("walk-modern.html").toStdString(),
              (text("pictures 48\n") + checkedPage +
               text("open true 2 of 12\nArrowRight 3 of 12 close\nEnd 12 of 12 close\n"
                    "ArrowRight 1 of 12 close\nArrowLeft 12 of 12 close\nHome 1 of 12 close\n"
                    "Tab 1 of 12 original\nTab 1 of 12 next\nswipe 2 of 12\n"
                    "details ArtistJo true\nshows with%20blank.jpg with blank\n") +
               checkedViewer + text("closed picture-2\nend\n"))
                  .toStdString());
    if (text(TARSEL_HTML_VALIDATE).isEmpty())
        return;
    QProcess validator;
    validator.start(text(TARSEL_HTML_VALIDATE),
                    {text("--preset"), text("standard,a11y"), path("out/index.htm")});
    EXPECT_TRUE(validator.waitForFinished(60'000));
    EXPECT_EQ(validator.exitCode(), 0) << validator.readAllStandardOutput().toStdString();
}
