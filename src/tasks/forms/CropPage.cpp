// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/CropPage.h"

#include "configuration/ConfigRecord.h"
#include "tasks/forms/FormControls.h"
#include "tasks/forms/ui_CropOptions.h"

namespace tarsel {

namespace {

QString pointText(QPoint point) {
    return QStringLiteral("X : %1 ; Y : %2").arg(point.x()).arg(point.y());
}

} // namespace

CropPage::CropPage(TaskDefaults& defaults, QWidget* parent) :
    OptionPage(8, defaults, setUpForm<Ui::CropOptions>, parent) {
    setBackColor(configType::systemColor(14)); // kept while the program runs, not longer
    showWhile(*this, "optCropSelect_0", "frameCropMouse");
    showWhile(*this, "optCropSelect_1", "frameCropFixed");
    connect(&controlOf<QRadioButton>(*this, "optCropSelect_1"), &QRadioButton::toggled, this,
            [this](bool typed) {
                if (typed)
                    showPicture();
            });
    connect(&controlOf<QComboBox>(*this, "cmbCrop"), &QComboBox::currentIndexChanged, this,
            &CropPage::showChoices);
    showChoices();
}

void CropPage::showChoices() {
    constexpr int ellipse = 1;
    controlOf<QWidget>(*this, "FrameBackColor")
        .setVisible(controlOf<QComboBox>(*this, "cmbCrop").currentIndex() == ellipse);
    for (const char* choice : {"optCropSelect_0", "optCropSelect_1"})
        controlOf<QRadioButton>(*this, choice).setVisible(m_offersSelection);
}

void CropPage::setPicture(QSize present, QSize) {
    m_picture = present;
}

void CropPage::showPicture() {
    const std::pair<const char*, int> edges[] = {{"txtCropLeft", 0},
                                                 {"txtCropTop", 0},
                                                 {"txtCropRight", std::max(m_picture.width(), 0)},
                                                 {"txtCropBot", std::max(m_picture.height(), 0)}};
    for (const auto& [box, edge] : edges)
        controlOf<QLineEdit>(*this, box).setText(QString::number(edge));
}

/// The settings may come from a time when a region could be selected.
void CropPage::showSpecial(const TaskRow&) {
    if (!m_offersSelection)
        controlOf<QRadioButton>(*this, "optCropSelect_1").setChecked(true);
}

void CropPage::offerSelection() {
    OptionPage::offerSelection();
    m_offersSelection = true;
    showChoices();
}

void CropPage::showRegion(QPoint start, QPoint end) {
    controlOf<QLabel>(*this, "lblSelectRegionStart").setText(pointText(start));
    controlOf<QLabel>(*this, "lblSelectRegionEnd").setText(pointText(end));
    takeChange();
}

} // namespace tarsel
