// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "publishing/MetadataLines.h"
#include "publishing/forms/frmInsertMetadata.h"
#include "tasks/TaskColumns.h"
#include "tests/gui/AllWindows.h"
#include "tests/support/TestLanguages.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDirIterator>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QTabBar>

namespace tarsel::test {

namespace {

const QRegularExpression word(QStringLiteral("[A-Za-z]{2}"));

/// The widths of some panes follow that of the screen.
constexpr QSize smallScreen(1366, 768);

class Languages : public AllWindows {
protected:
    void SetUp() override {
        if (QGuiApplication::primaryScreen()->size() != smallScreen)
            GTEST_SKIP() << "ctest runs it on a screen of 1366 by 768";
    }
    /// A dialog as small as its layout allows, the main window on a small screen.
    void shrink(QWidget& form) {
        QSize size = form.minimumSizeHint().expandedTo(form.minimumSize());
        if (form.hasHeightForWidth())
            size.setHeight(std::max(size.height(), form.heightForWidth(size.width())));
        form.resize(&form == &window() ? smallScreen - QSize(16, 48) : size);
        QCoreApplication::processEvents();
    }
    static void expectNothingCut(QWidget& form) {
        for (const QWidget* widget : shownWidgets(form)) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            if (!button || button->icon().isNull() || word.match(button->text()).hasMatch())
                expectNotCut(*widget); // others show their icon alone
            if (const auto* tabs = qobject_cast<const QTabBar*>(widget))
                expectTabsNotCut(*tabs);
        }
    }
    static void expectTabsNotCut(const QTabBar& tabs) {
        for (int tab = 0; tab < tabs.count(); ++tab) {
            const QString text = tabs.tabText(tab).remove(u'&');
            EXPECT_GE(tabs.tabRect(tab).width(), tabs.fontMetrics().horizontalAdvance(text))
                << text.toStdString();
            EXPECT_LE(tabs.tabRect(tab).right(), tabs.width()) << text.toStdString();
        }
    }
};

/// What a control says: its text, its entries, its tip and its heads.
QStringList textsOf(const QWidget& widget) {
    QStringList texts{widget.toolTip(), widget.accessibleName()};
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        texts << label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        texts << button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        texts << group->title();
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts << tabs->tabText(tab);
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        for (int entry = 0; entry < box->count(); ++entry)
            texts << box->itemText(entry);
    if (const auto* header = qobject_cast<const QHeaderView*>(&widget); header && header->model())
        for (int section = 0; section < header->count(); ++section)
            texts << header->model()->headerData(section, header->orientation()).toString();
    return texts;
}

/// Drivers of scanners have titles and words of their own for their options.
bool isOfDriver(const QWidget& widget) {
    for (const QWidget* each = &widget; each; each = each->parentWidget())
        if (each->objectName() == QLatin1String("options"))
            return true;
    return false;
}

/// Texts that are the same in every language.
bool isNotForTranslation(const QWidget& widget, const QString& text) {
    if (!word.match(text).hasMatch())
        return true; // numbers and signs
    static const QSet<QString> data{
        QStringLiteral("cboFonts"),        // families of fonts
        QStringLiteral("ComboFontFamily"), // the same
        QStringLiteral("cmbAttribute"),    // raw names of EXIF attributes
        QStringLiteral("cboPrinter"),      // names of printers
        QStringLiteral("cboPaper"),        // names of papers, by Qt
        QStringLiteral("cboSystem"),       // names of systems
        QStringLiteral("cboDevice"),       // scanners
        QStringLiteral("lblName"),         // the program's own
        QStringLiteral("cboFormat"),       // short names of formats
        QStringLiteral("cboRenamePrefix"), // tokens and signs, which settings and scripts hold
        QStringLiteral("cboRenameSuffix"),   QStringLiteral("cboRenameGeneric"),
        QStringLiteral("cboSeparator1"),     QStringLiteral("cboSeparator2"),
        QStringLiteral("picCropBackColor"), // a colour as HTML writes it
        QStringLiteral("cmdTextBackground"),
        QStringLiteral("sbMain_filename"), // files and folders of the user
        QStringLiteral("sbMain_format"),     QStringLiteral("pbQueue"),
        QStringLiteral("lblItem"),           QStringLiteral("lnkFolder"),
        QStringLiteral("lblNamesFolder"),
    };
    return data.contains(widget.objectName()) || isOfDriver(widget);
}

/// Every file below a folder by its name. The place of the window has its size, to which texts add.
QMap<QString, QByteArray> filesBelow(const QString& folder) {
    QMap<QString, QByteArray> files;
    for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();) {
        const QString path = it.next();
        if (!path.endsWith(QLatin1String("/window-place")))
            files.insert(path.mid(folder.size()), readWholeFile(path));
    }
    return files;
}

} // namespace

TEST_F(Languages, GermanHasEachTextThatIsShownCutsNoneAndSharesNoMnemonic) {
    const NotedLanguage german("de");
    if (!german.isBuilt())
        GTEST_SKIP() << "translations are not built without Qt's lrelease";
    const auto check = [this](QWidget& form) {
        shrink(form);
        expectMnemonicsOfTheirOwn(form, shownWidgets(form));
        expectNothingCut(form);
    };
    forEach(check);
    forEachTask(check);
    EXPECT_EQ(german.missing(), "");
}

TEST_F(Languages, LongTextsFitAndEveryTextOnShowIsTranslated) {
    const LongLanguage longer;
    const auto check = [this](QWidget& form) {
        shrink(form);
        expectNothingCut(form);
        for (const QWidget* widget : shownWidgets(form))
            for (const QString& text : textsOf(*widget))
                EXPECT_TRUE(text.contains(LongLanguage::last) || isNotForTranslation(*widget, text))
                    << widget->metaObject()->className() << ' ' << widget->objectName().toStdString() << ": "
                    << text.toStdString();
    };
    forEach(check);
    forEachTask(check);
}

/// Settings, the basket of the session and what else the program keeps.
TEST_F(Languages, ASessionWritesTheSameFilesInAnyLanguage) {
    QMap<QString, QByteArray> english;
    for (const bool translated : {false, true}) {
        std::optional<LongLanguage> longer;
        if (translated)
            longer.emplace();
        QDir(programFolder()).removeRecursively();
        QDir().mkpath(programFolder());
        startWithBasket(2);
        for (const TaskKind& kind : taskKinds())
            if (kind.replay)
                window().workspace().tasks.append(defaultRow(kind.number, {}));
        close();
        const QMap<QString, QByteArray> written = filesBelow(programFolder());
        if (!translated)
            english = written;
        EXPECT_EQ(written.keys(), english.keys());
        for (auto file = english.cbegin(); file != english.cend(); ++file)
            EXPECT_EQ(written.value(file.key()), file.value()) << file.key().toStdString();
    }
    EXPECT_GT(english.size(), 1);
}

TEST_F(Languages, LinesOfMetadataAreChosenByTheirEnglishNames) {
    const LongLanguage longer;
    start();
    frmInsertMetadata chooser(&window());
    child<QCheckBox>(chooser, "chkSelectAll").click();
    EXPECT_EQ(chooser.chosen(), metadataLines());
}

TEST_F(Languages, IptcFieldsAreShownTranslatedAndFoundByTheirEnglishLabels) {
    const LongLanguage longer;
    startListing(1);
    window().preview().ShowRow(listed(), 0);
    ListView& fields = window().workspace().lvIPTC;
    ASSERT_TRUE(waitFor([&] { return fields.count() > 0; }));
    EXPECT_EQ(fields.row(0).text.toStdString(), "Caption");
    EXPECT_TRUE(fields.index(0, 0).data().toString().contains(LongLanguage::last));
}

} // namespace tarsel::test
