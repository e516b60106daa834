// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumGenerator.h"
#include "tests/output/TestBasket.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QUrl>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

#ifndef TARSEL_CHROMIUM
#define TARSEL_CHROMIUM ""
#endif

namespace {

/// The page as it is in the end, as text.
QString shownBy(const QUrl& page, const QString& profile) {
    QProcess browser;
    browser.setStandardErrorFile(QProcess::nullDevice());
    browser.start(text(TARSEL_CHROMIUM),
                  {text("--headless"), text("--no-sandbox"), text("--disable-gpu"),
                   text("--disable-web-security"), text("--allow-file-access-from-files"),
                   text("--user-data-dir=") + profile, text("--virtual-time-budget=60000"),
                   text("--dump-dom"), page.toString(QUrl::FullyEncoded)});
    EXPECT_TRUE(browser.waitForFinished(90'000));
    return QString::fromUtf8(browser.readAllStandardOutput());
}

} // namespace

TEST(AlbumInABrowser, EveryPictureLinkAndBackgroundIsFoundWhateverTheNames) {
    if (text(TARSEL_CHROMIUM).isEmpty())
        GTEST_SKIP() << "no Chromium on this machine";
    TestBasket basket;
    const QStringList names{text("plain"),        text("with blank"),   text("\u00FCml\u00E4ut"),
                            text("it's \"a\""),   text("50% #1 & <b>"), text("&amp;?x=1"),
                            text("\u6E56\u6CCA"), text("a:b|c"),        text("ni\u00F1o"),
                            text("%41"),          text("{x}*~"),        text(" lead")};
    for (const QString& name : names) {
        basket.addPicture(text("p%1.png").arg(basket.pages.count()).toUtf8().constData());
        basket.pages.setText(basket.pages.count() - 1, name);
    }
    AlbumOptions options;
    options.settings.AlbumFolder = basket.path("out");
    options.settings.AlbumTitle = text("Tom's #1: 100% \u6E56 & \u00FC");
    options.font = text("Sans");
    std::vector<RowResult> results;
    ASSERT_TRUE(fncGenerateAlbum({basket.pages, basket.box, nullptr}, options, basket.progress, {}, results));
    ASSERT_TRUE(QFile::copy(text(TARSEL_TESTS "/publishing/walk.html"), basket.path("out/walk.html")));
    QUrl walk = QUrl::fromLocalFile(basket.path("out/walk.html"));
    walk.setFragment(text("index.htm"));
    const QString page = shownBy(walk, basket.path("profile"));
    const QString report = page.section(text("<pre id=\"report\">"), 1).section(text("</pre>"), 0, 0);
    EXPECT_TRUE(contains(report, "pages 13 images 105")) << page.toStdString();
    EXPECT_FALSE(report.contains(text("no "))) << report.toStdString();
    EXPECT_TRUE(contains(report, text("title Tom's #1: 100% \u6E56 &amp; \u00FC: Web Album")));
}
