// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/TextPage.h"

#include "controls/LineIcon.h"
#include "tasks/forms/FormControls.h"
#include "tasks/forms/ui_TextOptions.h"

namespace tarsel {

using column::Text;

namespace {

constexpr int clickedPosition = 9;

/// Each family once: of a family from several makers Qt makes one entry each, "C059 [urw]". A recorded name
/// with a maker would be unknown to computers that have the font from another one.
void listFamilies(QFontComboBox& fonts) {
    QStringList families;
    for (int index = 0; index < fonts.count(); ++index)
        families << fonts.itemText(index).section(QLatin1String(" ["), 0, 0);
    families.removeDuplicates();
    fonts.clear();
    fonts.addItems(families);
}

void setUpText(QWidget* page) {
    setUpForm<Ui::TextOptions>(page);
    auto& sizes = controlOf<QComboBox>(*page, "comboFontSize");
    for (int size = 8; size <= 100; ++size)
        sizes.addItem(QString::number(size));
    sizes.setCompleter(nullptr); // typed numbers stay as they are
    auto& fonts = controlOf<QFontComboBox>(*page, "ComboFontFamily");
    listFamilies(fonts);
    fonts.setPlaceholderText(TextPage::tr("Failed to get font info"));
    fonts.setEnabled(fonts.count() > 0);
    constexpr std::pair<const char*, const char*> icons[] = {{"OptTextAlignment_0", "alignLeft"},
                                                             {"OptTextAlignment_1", "alignCentre"},
                                                             {"OptTextAlignment_2", "alignRight"},
                                                             {"OptTextOrientation_0", "textAcross"},
                                                             {"OptTextOrientation_1", "textDown"}};
    for (const auto& [button, icon] : icons)
        controlOf<QToolButton>(*page, button).setIcon(lineIcon(QLatin1String(icon)));
}

} // namespace

TextPage::TextPage(TaskDefaults& defaults, QWidget* parent) : OptionPage(10, defaults, setUpText, parent) {
    auto& transparent = controlOf<QCheckBox>(*this, "chkTransparent");
    auto& background = controlOf<QWidget>(*this, "cmdTextBackground");
    connect(&transparent, &QCheckBox::toggled, &background, &QWidget::setDisabled);
    background.setDisabled(transparent.isChecked());
    for (const char* style : {"chkTextBold", "chkTextItalic", "chkTextUnderline"})
        connect(&controlOf<QToolButton>(*this, style), &QToolButton::toggled, this, &TextPage::showFont);
    connect(&controlOf<QFontComboBox>(*this, "ComboFontFamily"), &QFontComboBox::currentTextChanged, this,
            &TextPage::showFont);
    connect(&controlOf<QComboBox>(*this, "cboPosition"), &QComboBox::currentIndexChanged, this,
            &TextPage::showPlace);
    showPlace();
}

/// The box shows its text as it will be drawn, in the size of the form.
void TextPage::showFont() {
    const auto isOn = [this](const char* style) { return controlOf<QToolButton>(*this, style).isChecked(); };
    auto& box = controlOf<QLineEdit>(*this, "txtDraw");
    QFont font = box.font();
    font.setFamilies({controlOf<QFontComboBox>(*this, "ComboFontFamily").currentText()});
    font.setBold(isOn("chkTextBold"));
    font.setItalic(isOn("chkTextItalic"));
    font.setUnderline(isOn("chkTextUnderline"));
    box.setFont(font);
}

void TextPage::showPlace() {
    const bool isClicked = controlOf<QComboBox>(*this, "cboPosition").currentIndex() == clickedPosition;
    controlOf<QWidget>(*this, "frameTextPlace").setVisible(!isClicked);
    controlOf<QWidget>(*this, "frameTextClick").setVisible(isClicked);
    if (!isClicked)
        endSelection(PictureSelection::Location);
}

/// The index of the font may come from a time with more fonts.
void TextPage::showSpecial(const TaskRow& row) {
    auto& fonts = controlOf<QFontComboBox>(*this, "ComboFontFamily");
    if (const int index = fonts.findText(row[Text::fontName]); index >= 0)
        fonts.setCurrentIndex(index);
    else if (fonts.currentIndex() < 0)
        fonts.setCurrentIndex(0);
    showFont();
}

void TextPage::keepLocation(const TaskRow& recorded) {
    if (recorded[Text::position] == clickedPosition)
        setKeptLocation({recorded[Text::x], recorded[Text::y]});
}

TaskRow TextPage::row() const {
    TaskRow row = OptionPage::row();
    setText(row, Text::fontName.number, controlOf<QFontComboBox>(*this, "ComboFontFamily").currentText());
    const bool isClicked = row[Text::position] == clickedPosition;
    const bool isVertical = !isClicked && row[Text::orientation] == 1;
    if (isClicked) {
        setText(row, Text::orientation.number, QStringLiteral("0"));
        setText(row, Text::x.number, QString::number(location().x()));
        setText(row, Text::y.number, QString::number(location().y()));
    } else {
        setText(row, Text::angle.number, isVertical ? QStringLiteral("-90") : QStringLiteral("0"));
    }
    if (isClicked || isVertical)
        setText(row, Text::alignment.number, QStringLiteral("0"));
    return row;
}

} // namespace tarsel
