// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/WatermarkPage.h"

#include "base/Dialogs.h"
#include "controls/LineIcon.h"
#include "tasks/forms/FormControls.h"
#include "tasks/forms/ui_WatermarkOptions.h"

namespace tarsel {

using column::Watermark;

WatermarkPage::WatermarkPage(TaskDefaults& defaults, QWidget* parent) :
    OptionPage(9, defaults, setUpForm<Ui::WatermarkOptions>, parent), m_settings(defaults),
    picWatermarkImage(&controlOf<MergedPictureView>(*this, "picWatermarkImage")) {
    auto& pick = controlOf<QToolButton>(*this, "chkWatermarkTransparentColor");
    auto& color = controlOf<ColorWell>(*this, "picWatermarkTransparentColor");
    pick.setIcon(lineIcon(QStringLiteral("pick")));
    showWhile(*this, "chkWatermarkTransparent", "picTransparentOptions");
    connect(&controlOf<QPushButton>(*this, "cmdSelectMerge"), &QPushButton::clicked, this,
            &WatermarkPage::cmdSelectMerge_Click);
    connect(&pick, &QToolButton::toggled, picWatermarkImage, &MergedPictureView::setPicking);
    connect(picWatermarkImage, &MergedPictureView::colorPicked, &color, &ColorWell::setValue);
    connect(picWatermarkImage, &MergedPictureView::pickEnded, &pick, [&pick] { pick.setChecked(false); });
    connect(picWatermarkImage, &MergedPictureView::shown, &controlOf<QLabel>(*this, "lblWatermarkResolution"),
            &QLabel::setText);
    auto& style = controlOf<QComboBox>(*this, "cboMergeStyle");
    connect(&style, &QComboBox::currentIndexChanged, this, &WatermarkPage::showStyle);
    showStyle(style.currentIndex());
}

/// Only "Single" has a place of its own.
void WatermarkPage::showStyle(int style) {
    controlOf<QWidget>(*this, "picLocation").setVisible(style == 0);
    if (style != 0)
        endSelection(PictureSelection::Location);
}

void WatermarkPage::cmdSelectMerge_Click() {
    const QString formats = QStringLiteral("*.jpg;*.jpeg;*.jpe;*.tif;*.tiff;*.gif;*.bmp;*.pcx;*.png;*.wbm;"
                                           "*.wbmp;*.psd;*.wmf;*.emf");
    const auto choice = service<Dialogs>().openFileDialog({tr("Load Image for Merging"),
                                                           tr("Pictures") + QLatin1Char('|') + formats,
                                                           picWatermarkImage->value().toString()});
    if (!choice)
        return;
    m_settings.WatermarkImage = choice->path; // whether the task is confirmed or not
    picWatermarkImage->choose(choice->path);
}

void WatermarkPage::keepLocation(const TaskRow& recorded) {
    setKeptLocation({int(recorded[Watermark::x]), int(recorded[Watermark::y])});
}

/// Colour and place are recorded whether they are in use or not.
TaskRow WatermarkPage::row() const {
    TaskRow row = OptionPage::row();
    const QVariant color = controlOf<ColorWell>(*this, "picWatermarkTransparentColor").value();
    setText(row, Watermark::transparentColor.number, color.toString());
    setText(row, Watermark::y.number, QString::number(location().y()));
    setText(row, Watermark::x.number, QString::number(location().x()));
    return row;
}

} // namespace tarsel
