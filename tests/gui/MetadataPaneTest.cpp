// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/MetadataPane.h"
#include "base/Locale.h"
#include "base/SafeFileWriter.h"
#include "codecs/PictureFile.h"
#include "controls/ListControl.h"
#include "controls/ucDateTimePicker.h"
#include "embedded/IptcFields.h"
#include "metadata/forms/FileChange.h"
#include "metadata/modMetadata.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Text.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSemaphore>
#include <QTabBar>
#include <QTest>
#include <exiv2/exiv2.hpp>

namespace tarsel::test {

namespace {

struct DayFirst final : Locale {
    DateForms dateForms() override { return {QStringLiteral("dd/MM/yyyy"), QStringLiteral("HH:mm:ss")}; }
};

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
    /// As another program reads it from the file.
    QString attribute(const char* name) {
        const auto picture = Exiv2::ImageFactory::open(file().toStdString());
        picture->readMetadata();
        for (const Exiv2::Exifdatum& datum : picture->exifData())
            if (datum.tagName() == name)
                return QString::fromStdString(datum.toString());
        return {};
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
    void key(const char* list, Qt::Key key) {
        QTest::keyClick(child<ListControl>(window(), list).view(), key);
    }
    /// Fills the next dialog of that name and ends it by a button.
    void answer(const char* dialog, const std::function<void(QWidget&)>& fill, const char* button = "cmdOK") {
        script.on(dialog, [=](QWidget& box) {
            fill(box);
            // After this step: the dialog may ask in turn.
            QMetaObject::invokeMethod(&child<QAbstractButton>(box, button), &QAbstractButton::click,
                                      Qt::QueuedConnection);
        });
    }
    void answerYes() {
        script.on("messageBox",
                  [](QWidget& box) { dynamic_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click(); });
    }
    void answerMessage(const QByteArray& text) {
        script.on("messageBox", [=](QWidget& box) {
            EXPECT_EQ(dynamic_cast<QMessageBox&>(box).text().toUtf8().left(text.size()), text);
            dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok)->click();
        });
    }
    /// Into the dialog that comes with `before`, where that is said.
    void enter(const QString& value, const QString& before = {}) {
        answer("frmExifEditAttribute", [=](QWidget& box) {
            auto& text = child<QPlainTextEdit>(box, "txtValue");
            EXPECT_TRUE(before.isEmpty() || text.toPlainText() == before);
            const int room = box.height() - text.height();
            box.resize(box.width(), room + 500);
            EXPECT_EQ(text.height(), 500) << "room for a long caption";
            text.setPlainText(value);
        });
    }
    void choose(const QString& chosen) {
        script.on("QFileDialog", [=](QWidget& dialog) {
            dynamic_cast<QFileDialog&>(dialog).selectFile(chosen);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    /// Changes the file as another program would.
    void changeMeanwhile(const char* label, const QStringList& items) {
        ImageBox box;
        modMetadata::ReadMetadata(file(), box);
        modMetadata::SetIptcList(file(), QLatin1String(label), items, box);
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

TEST_F(MetadataPaneOfTheWindow, ListsWhatEachKindOfFileHolds) {
    makePictures(1);
    ImageBox box;
    box.LoadFromFile(file());
    EXPECT_TRUE(box.ExifSet(text("Artist"), text("Ann")));
    setIptcText(box.metadata(), "IptcHeadline", text("Lake"));
    const QString folder = path("kinds");
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const char* name : {"a.gif", "b.jpe", "c.psd"})
        box.SaveToFile(folder + QLatin1Char('/') + QLatin1String(name));
    start();
    listFolder(folder);
    for (const auto& [row, exifRows, headline] :
         {std::tuple{1, true, "Lake"}, {2, false, "Lake"}, {0, false, ""}}) {
        window().preview().ShowRow(listed(), row);
        ASSERT_TRUE(waitFor([&] { return !window().preview().isBusy(); }));
        EXPECT_EQ(rowOf(exif(), "Artist") >= 0, exifRows) << row;
        const int found = rowOf(iptc(), "Headline");
        EXPECT_EQ(found < 0 ? QString() : iptc().subItem(found, 1), text(headline)) << row;
    }
}

TEST_F(MetadataPaneOfTheWindow, EditsExifInTheFile) {
    showPicture();
    showTab(0);
    const QByteArray pixels = bytesFromScan(file());
    addAttribute("Artist", " Ann ");
    EXPECT_EQ(attribute("Artist"), QStringLiteral("Ann"));
    EXPECT_EQ(attribute("Software"), QStringLiteral("Tarsel JPEG"));
    EXPECT_EQ(exif().subItem(rowOf(exif(), "Software"), 1), QStringLiteral("Tarsel JPEG"));
    ASSERT_EQ(rowOf(exif(), "Artist"), exif().count() - 1);
    exif().selectOnly(rowOf(exif(), "Artist"));
    enter(QStringLiteral("Bea\nCid"), QStringLiteral("Ann"));
    press("cmdEXIFBar_0");
    EXPECT_EQ(attribute("Artist"), QStringLiteral("Bea\nCid"));
    EXPECT_EQ(exif().subItem(rowOf(exif(), "Artist"), 1), QStringLiteral("Bea\nCid"));
    addAttribute("PixelXDimension", "wide");
    EXPECT_EQ(attribute("PixelXDimension"), QString()) << "a value that doesn't fit is refused";
    EXPECT_EQ(panel("status"), "PixelXDimension can't take this value: wide");
    EXPECT_EQ(exif().selectedIndex(), rowOf(exif(), "Artist"));
    choose(path("kept.xiff"));
    press("cmdEXIFBar_5");
    EXPECT_EQ(readWholeFile(path("kept.xiff")), "\"Artist\",\"Bea\nCid\"\r\n");
    press("cmdEXIFBar_2");
    EXPECT_EQ(attribute("Artist"), QString());
    EXPECT_EQ(rowOf(exif(), "Artist"), -1);
    EXPECT_EQ(exif().selectedIndex(), exif().count() - 1) << "the row after it, or the last one";
    exif().selectOnly(exif().add({}));
    exif().setTag(exif().selectedIndex(), QStringLiteral("Make"));
    answerMessage("Error deleting attribute\nThe file has no attribute Make.");
    press("cmdEXIFBar_2");
    addAttribute("Make", "Acme");
    DayFirst dayFirst;
    const ServiceScope<Locale> abroad(dayFirst);
    const auto pick = [&](const char* dialog, QDate before, QDate day) {
        answer(dialog, [=](QWidget& box) {
            if (box.objectName() == QLatin1String("frmExifNewAttribute"))
                child<QComboBox>(box, "cmbAttribute").setCurrentText(QStringLiteral("DateTime"));
            auto& picker = child<ucDateTimePicker>(box, "ucDateTime");
            EXPECT_TRUE(before.isNull() || picker.DateSelected().date() == before);
            picker.setDateSelected(day.startOfDay());
        });
    };
    const auto typeDate = [&](const QString& before, const QString& typed) {
        answer("frmExifEditAttribute", [=](QWidget& box) {
            EXPECT_EQ(child<QLineEdit>(box, "Text1").text(), before);
            child<QLineEdit>(box, "Text1").setText(typed);
        });
    };
    pick("frmExifNewAttribute", {}, {2004, 12, 11});
    press("cmdEXIFBar_1");
    exif().selectOnly(rowOf(exif(), "DateTime"));
    pick("frmExifEditAttribute", {2004, 12, 11}, {2004, 12, 10});
    press("cmdEXIFBar_0");
    EXPECT_EQ(attribute("DateTime").left(10), QStringLiteral("2004:12:10"));
    typeDate(QStringLiteral("10/12/2004"), QStringLiteral("soon"));
    answerMessage("DateTime: \"soon\" is not a date.");
    typeDate(QStringLiteral("soon"), QStringLiteral("2003:01:31 10:00:00"));
    press("cmdEXIFBar_0");
    EXPECT_EQ(attribute("DateTime").left(10), QStringLiteral("2003:01:31"));
    answerYes();
    press("cmdEXIFBar_3");
    EXPECT_EQ(attribute("Software"), QString());
    EXPECT_EQ(panel("metadata"), "No metadata");
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
    const QString tooLong(257, u'F');
    enter(tooLong);
    answerMessage("Headline takes at most 256 bytes, and this text has 257.");
    enter(QStringLiteral("Flood"), tooLong);
    press("cmdIPTCBar_0");
    select("Keywords");
    answer("frmIPTCKeywords", [&](QWidget& box) {
        changeMeanwhile("Keywords", {QStringLiteral("storm")});
        for (const auto& [word, isDouble] :
             {std::pair(" river ", false), {"  ", false}, {"river", true}, {"lake, big", false}}) {
            child<QLineEdit>(box, "txtKeywordAdd").setText(QString::fromLatin1(word));
            child<QAbstractButton>(box, "cmdAdd").click();
            EXPECT_EQ(child<QWidget>(box, "lblNote").isVisible(), isDouble) << word;
        }
    });
    QAbstractItemView* rows = child<ListControl>(window(), "lvIPTC").view();
    const QPoint place = rows->visualRect(rows->currentIndex()).center();
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, place);
    select("Supplemental Categories");
    answer("frmIPTCCategory", [](QWidget& box) { child<QComboBox>(box, "cboUrgency").setCurrentIndex(2); });
    key("lvIPTC", Qt::Key_Return);
    EXPECT_EQ(field("IptcHeadline"), QStringLiteral("Flood"));
    EXPECT_EQ(field("IptcUrgency"), QStringLiteral("3"));
    EXPECT_EQ(iptc().subItem(rowOf(iptc(), "Keywords"), 1), QStringLiteral("storm,river,lake, big"));
    EXPECT_EQ(panel("metadata"), "Metadata -  IPTC");

    const QString sideFile = path("side.ffo");
    choose(sideFile);
    press("cmdIPTCBar_2");
    select("Headline");
    press("cmdIPTCBar_3");
    EXPECT_EQ(field("IptcHeadline"), QString());
    answerYes();
    choose(sideFile);
    press("cmdIPTCBar_1");
    EXPECT_EQ(field("IptcHeadline"), QStringLiteral("Flood"));
    EXPECT_EQ(iptc().subItem(rowOf(iptc(), "Headline"), 1), QStringLiteral("Flood"));
    EXPECT_EQ(iptc().selectedIndex(), rowOf(iptc(), "Headline"));
    answerYes();
    press("cmdIPTCBar_4");
    EXPECT_EQ(field("IptcHeadline") + iptc().subItem(rowOf(iptc(), "Headline"), 1), QString());
}

TEST_F(MetadataPaneOfTheWindow, OffersNoCommandWhileAFileIsWrittenAndClosesOnlyThen) {
    FileChange change;
    QSemaphore noticed;
    QObject::connect(&change, &FileChange::slowChanged,
                     [&](bool isSlow) { noticed.release(isSlow ? 1 : 9); });
    change.run([&] { noticed.acquire(); });
    EXPECT_EQ(noticed.available(), 9) << "the window hears nothing of a slow change";

    showPicture();
    showTab(0);
    addAttribute("Artist", "Ann");
    auto& pane = child<MetadataPane>(window(), "PicMetadata");
    auto& remove = child<QAbstractButton>(window(), "cmdEXIFBar_2");
    remove.setFocus();
    pane.setBusy(true);
    EXPECT_FALSE(remove.isEnabled() || window().focusWidget() == &remove);
    pane.setBusy(false);
    EXPECT_TRUE(remove.isEnabled() && window().focusWidget() == &remove);
    showTab(1);
    remove.click(); // as its key does from there
    EXPECT_TRUE(exif().count() > 0 && pane.tab() == 0) << "a row that is out of sight is not removed";

    exif().selectOnly(rowOf(exif(), "Artist"));
    writeFileSafely(file(), "of another program");
    QMetaObject::invokeMethod(&window(), &QWidget::close, Qt::QueuedConnection);
    script.on("frmErrorReport", [&](QWidget& box) {
        EXPECT_TRUE(window().isVisible()) << "nobody sees that the file could not be written";
        child<QAbstractButton>(box, "cmdCancel").click();
    });
    key("lvExif", Qt::Key_Delete);
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(script.isDone());
}

} // namespace tarsel::test
