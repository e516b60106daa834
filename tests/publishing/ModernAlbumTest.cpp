// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "embedded/IptcFields.h"
#include "tests/publishing/TestAlbum.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUrl>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class ModernAlbum : public TestAlbum {
protected:
    ModernAlbum() { options.settings.ModernTemplate = 1; }
    QString page() const { return QString::fromUtf8(readWholeFile(path("out/index.htm"))); }
    QStringList valuesOf(const char* attribute) const {
        QStringList values;
        auto found = QRegularExpression(text(" %1=\"([^\"]*)\"").arg(text(attribute))).globalMatch(page());
        while (found.hasNext())
            values << found.next().captured(1);
        return values;
    }
    /// Widths that a list of sources states, each found in its file.
    std::string widthsIn(const QString& sources) const {
        std::string widths;
        for (const QString& source : sources.split(text(", "))) {
            const QString file = QUrl::fromPercentEncoding(source.section(u' ', 0, 0).toLatin1());
            const int width = loaded(path("out/") + file).Width();
            EXPECT_EQ(text("%1w").arg(width), source.section(u' ', 1)) << file.toStdString();
            widths += std::to_string(width) + ' ';
        }
        return widths;
    }
};

} // namespace

TEST_F(ModernAlbum, OffersEachPictureInTheSizesThatAreWorthTheirBytes) {
    constexpr struct {
        int width, height;
        const char* sources;
    } cases[] = {{1, 1, "1 "},
                 {799, 300, "799 "},
                 {800, 301, "640 800 "},
                 {300, 1600, "120 240 300 "},
                 {2560, 20, "640 1280 2048 2560 "}};
    for (const auto& each : cases)
        addPicture(text("p%1.png").arg(each.width).toLatin1().constData(), each.width, each.height);
    ASSERT_TRUE(generate()) << errors().toStdString();
    const QStringList sources = valuesOf("data-sources");
    ASSERT_EQ(sources.size(), qsizetype(std::size(cases)));
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(widthsIn(sources[qsizetype(i)]), cases[i].sources) << cases[i].width;
    EXPECT_EQ(widthsIn(valuesOf("srcset").back()), "640 1280 ") << "thumbnails";
    EXPECT_TRUE(page().contains(text("--ratio: 0.19;")));
}

TEST_F(ModernAlbum, SaysWhatThePictureIsEscapedAndLeavesOutRowsWithoutOne) {
    const auto captioned = [](const char* exif, const char* iptc) {
        return [=](ImageBox& edited) {
            edited.ExifSet(text("ImageDescription"), text(exif));
            setIptcText(edited.metadata(), "IptcCaption", text(iptc));
            edited.ExifSet(text("Artist"), text("<i>Jo</i>"));
        };
    };
    addPicture("a.jpg", 9, 9, captioned("exif a", "iptc a"));
    addPicture("b.jpg", 9, 9, captioned("exif b", "iptc <b>"));
    addPicture("c.jpg", 9, 9, captioned("exif c", ""));
    addPicture("d.png", 9, 9);
    addRow("gone.jpg", "gone");
    pages.setSubItem(0, BasketColumn::Description, text(" own \" onload=\"x "));
    pages.setText(3, text("it's \"d\" & <img src=x> \u6E56, 100%"));
    options.settings.AlbumTitle = text("<script>'T'{{title}}\x01");
    options.metadata = {text("EXIF - Artist"), text("EXIF - Make")};
    ASSERT_TRUE(generate());
    EXPECT_EQ(valuesOf("alt"),
              QStringList({text("own &quot; onload=&quot;x"), text("iptc &lt;b&gt;"), text("exif c"),
                           text("it&#39;s &quot;d&quot; &amp; &lt;img src=x&gt; \u6E56, 100%")}));
    EXPECT_TRUE(contains(page(), "<h1>&lt;script&gt;&#39;T&#39;{{title}}</h1>\n<p>4 pictures</p>"));
    EXPECT_EQ(page().count(text("<script")), 1) << "its own";
    EXPECT_EQ(page().count(text("<dt>Artist</dt><dd>&lt;i&gt;Jo&lt;/i&gt;</dd>")), 3);
    EXPECT_FALSE(page().contains(text("<dt>Make")) || page().contains(text("gone")));
    EXPECT_TRUE(page().contains(text("%20%22d%22%20%26%20%3Cimg%20src%3Dx%3E%20%E6%B9%96%2C%20100%25.jpg")));
    EXPECT_EQ(states(), "written written written written failed");
}

TEST_F(ModernAlbum, OffersOriginalsButNotWithWhatIsToBeLeftOut) {
    const QString source = addPicture("a.jpg", 900, 9, [](ImageBox& edited) {
        edited.ExifSet(text("BodySerialNumber"), text("12345"));
        edited.ExifSet(text("Orientation"), text("6"));
    });
    options.settings.Originals = 1;
    ASSERT_TRUE(generate());
    EXPECT_EQ(readWholeFile(path("out/MyImages_My Album/originals/a.jpg")), readWholeFile(source));
    EXPECT_EQ(valuesOf("data-original"), QStringList(text("MyImages_My%20Album/originals/a.jpg")));
    EXPECT_EQ(valuesOf("height"), QStringList(text("900"))) << "turned upright";
    EXPECT_TRUE(readWholeFile(path("out/MyImages_My Album/a.jpg")).contains("12345"));
    EXPECT_FALSE(readWholeFile(path("out/MyImages_My Album/small/a.jpg")).contains("12345"));

    QDir(path("out/MyImages_My Album")).removeRecursively();
    options.settings.StripPrivate = 1;
    ASSERT_TRUE(generate());
    EXPECT_FALSE(QFile::exists(path("out/MyImages_My Album/originals")));
    EXPECT_TRUE(valuesOf("data-original").isEmpty());
    EXPECT_FALSE(readWholeFile(path("out/MyImages_My Album/a.jpg")).contains("12345"));
}
