// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/forms/CropPage.h"

#include "configuration/ConfigRecord.h"
#include "tasks/forms/FormControls.h"
#include "tasks/forms/ui_CropOptions.h"

namespace tarsel {

using column::Crop;

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
                if (!typed)
                    return;
                showPicture();
                Q_EMIT selectionWanted(PictureSelection::Region, false);
            });
    connect(&controlOf<QComboBox>(*this, "cmbCrop"), &QComboBox::currentIndexChanged, this,
            &CropPage::showShape);
    showShape();
}

void CropPage::showShape() {
    constexpr int ellipse = 1;
    controlOf<QWidget>(*this, "FrameBackColor")
        .setVisible(controlOf<QComboBox>(*this, "cmbCrop").currentIndex() == ellipse);
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

void CropPage::showSpecial(const TaskRow&) {
    for (const char* corner : {"lblSelectRegionStart", "lblSelectRegionEnd"})
        controlOf<QLabel>(*this, corner).clear();
}

void CropPage::showRegion(QPoint start, QPoint end) {
    OptionPage::showRegion(start, end);
    controlOf<QLabel>(*this, "lblSelectRegionStart").setText(pointText(start));
    controlOf<QLabel>(*this, "lblSelectRegionEnd").setText(pointText(end));
}

TaskRow CropPage::row() const {
    TaskRow row = OptionPage::row();
    if (!row[Crop::typed])
        writeRegion(row, Crop::mouseLeft.number);
    return row;
}

} // namespace tarsel
