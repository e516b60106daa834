// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "codecs/PictureFile.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Text.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>

namespace tarsel::test {

namespace {

class MetadataPaneOfTheWindow : public WindowTest {
protected:
    /// Shows the first picture and waits for the rows of its metadata.
    void showPicture() {
        startListing(2);
        window().preview().ShowRow(listed(), 0);
        ASSERT_TRUE(waitFor([&] { return !window().preview().isBusy() && iptc().count() == 52; }));
    }
    ListView& exif() { return window().workspace().lvExif; }
    ListView& iptc() { return window().workspace().lvIPTC; }
    QString file() { return pictures() + QStringLiteral("/photo01.jpg"); }
    QString attribute(const char* name) {
        return MetadataStore(PictureFile(file()).metadata()).ExifValueByName(QString::fromLatin1(name));
    }
    QString field(const char* member) {
        return iptcText(MetadataStore(PictureFile(file()).metadata()), member);
    }
    static QByteArray bytesFromScan(const QString& path) {
        const QByteArray bytes = readWholeFile(path);
        return bytes.mid(bytes.indexOf("\xFF\xDA"));
    }
    static int rowOf(const ListView& list, const char* text) {
        for (int row = 0; row < list.count(); ++row)
            if (list.row(row).text == QLatin1String(text))
                return row;
        return -1;
    }
    void showTab(int tab) { child<QTabBar>(window(), "tbsMetadata").setCurrentIndex(tab); }
    void press(const char* button) { click(window(), button); }
    /// Fills the next dialog of that name and ends it by a button.
    void answer(const char* dialog, const std::function<void(QWidget&)>& fill, const char* button = "cmdOK") {
        script.on(dialog, [=](QWidget& box) {
            fill(box);
            child<QAbstractButton>(box, button).click();
        });
    }
    void addAttribute(const char* name, const char* value) {
        answer("frmExifNewAttribute", [=](QWidget& box) {
            child<QComboBox>(box, "cmbAttribute").setCurrentText(QString::fromLatin1(name));
            child<QPlainTextEdit>(box, "txtValue").setPlainText(QString::fromUtf8(value));
        });
        press("cmdEXIFBar_1");
    }
};

} // namespace

TEST_F(MetadataPaneOfTheWindow, EditsExifInTheFile) {
    showPicture();
    showTab(0);
    const QByteArray pixels = bytesFromScan(file());
    addAttribute("Artist", " Ann ");
    EXPECT_EQ(attribute("Artist"), QStringLiteral("Ann"));
    EXPECT_EQ(attribute("Software"), QStringLiteral("Tarsel JPEG"));
    ASSERT_EQ(rowOf(exif(), "Artist"), exif().count() - 1);
    exif().selectOnly(rowOf(exif(), "Artist"));
    answer("frmExifEditAttribute", [](QWidget& box) {
        child<QPlainTextEdit>(box, "txtValue").setPlainText(QStringLiteral("Bea\nCid"));
    });
    press("cmdEXIFBar_0");
    EXPECT_EQ(attribute("Artist"), QStringLiteral("Bea\nCid"));
    EXPECT_EQ(exif().subItem(rowOf(exif(), "Artist"), 1), QStringLiteral("Bea\nCid"));
    addAttribute("PixelXDimension", "wide");
    EXPECT_EQ(attribute("PixelXDimension"), QString()) << "a value that doesn't fit is refused";
    exif().selectOnly(rowOf(exif(), "Artist"));
    press("cmdEXIFBar_2");
    EXPECT_EQ(attribute("Artist"), QString());
    EXPECT_EQ(rowOf(exif(), "Artist"), -1);
    addAttribute("Make", "Acme");
    script.on("messageBox",
              [](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click(); });
    press("cmdEXIFBar_3");
    EXPECT_EQ(attribute("Software"), QString());
    EXPECT_EQ(bytesFromScan(file()), pixels);

    const QByteArray before = readWholeFile(file());
    ASSERT_TRUE(QDir().mkdir(path("empty")));
    listFolder(path("empty"));
    ASSERT_TRUE(waitFor([&] { return !window().workspace().ibMain.HasImage(); }));
    press("cmdEXIFBar_1"); // asks for nothing
    EXPECT_EQ(readWholeFile(file()), before) << "a picture that is no longer shown stays as it is";
    EXPECT_TRUE(script.unexpected.isEmpty());
}

TEST_F(MetadataPaneOfTheWindow, ASideFileGoesIntoThePictureThatWasOnShowAsAWhole) {
    showPicture();
    QByteArray records;
    for (const char* name : {"Make", "Model", "Artist", "Copyright"})
        records += QByteArray("\"") + name + "\",\"of the first\"\r\n";
    writeFileSafely(path("many.xiff"), records);
    const QString second = pictures() + QStringLiteral("/photo02.jpg");
    const QByteArray untouched = readWholeFile(second);
    script.on("QFileDialog", [this](QWidget& dialog) {
        dynamic_cast<QFileDialog&>(dialog).selectFile(path("many.xiff"));
        QMetaObject::invokeMethod(&dialog, "accept");
        QTimer::singleShot(0, &window(), [this] { window().preview().ShowRow(listed(), 1); });
    });
    showTab(0);
    press("cmdEXIFBar_4");
    ASSERT_TRUE(waitFor([&] { return !window().preview().isBusy(); }));
    EXPECT_EQ(attribute("Make") + attribute("Copyright"), QStringLiteral("of the firstof the first"));
    EXPECT_EQ(readWholeFile(second), untouched);
}

TEST_F(MetadataPaneOfTheWindow, EditsIptcAndCarriesItBySideFiles) {
    showPicture();
    showTab(1);
    const auto select = [&](const char* label) { iptc().selectOnly(rowOf(iptc(), label)); };
    select("Headline");
    answer("frmExifEditAttribute", [](QWidget& box) {
        child<QPlainTextEdit>(box, "txtValue").setPlainText(QStringLiteral("Flood"));
    });
    press("cmdIPTCBar_0");
    select("Keywords");
    answer("frmIPTCKeywords", [](QWidget& box) {
        for (const char* word : {"river", "lake, big"}) {
            child<QLineEdit>(box, "txtKeywordAdd").setText(QString::fromLatin1(word));
            child<QAbstractButton>(box, "cmdAdd").click();
        }
    });
    press("cmdIPTCBar_0");
    select("Supplemental Categories");
    answer("frmIPTCCategory", [](QWidget& box) { child<QComboBox>(box, "cboUrgency").setCurrentIndex(2); });
    press("cmdIPTCBar_0");
    EXPECT_EQ(field("IptcHeadline"), QStringLiteral("Flood"));
    EXPECT_EQ(field("IptcUrgency"), QStringLiteral("3"));
    EXPECT_EQ(iptc().subItem(rowOf(iptc(), "Keywords"), 1), QStringLiteral("river,lake, big"));
    EXPECT_EQ(panel("metadata"), "Metadata -  IPTC");

    const QString sideFile = path("side.ffo");
    const auto choose = [&](const QString& chosen) {
        script.on("QFileDialog", [=](QWidget& dialog) {
            dynamic_cast<QFileDialog&>(dialog).selectFile(chosen);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    };
    choose(sideFile);
    press("cmdIPTCBar_2");
    select("Headline");
    press("cmdIPTCBar_3");
    EXPECT_EQ(field("IptcHeadline"), QString());
    script.on("messageBox",
              [](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click(); });
    choose(sideFile);
    press("cmdIPTCBar_1");
    EXPECT_EQ(field("IptcHeadline"), QStringLiteral("Flood"));
    EXPECT_EQ(iptc().subItem(rowOf(iptc(), "Headline"), 1), QStringLiteral("Flood"));
}

} // namespace tarsel::test
