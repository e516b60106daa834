// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/WheelToPanel.h"
#include "tasks/forms/CropPage.h"
#include "tasks/forms/FormControls.h"
#include "tasks/forms/PictureButtons.h"
#include "tasks/forms/ResizePage.h"
#include "tasks/forms/TextPage.h"
#include "tasks/forms/WatermarkPage.h"
#include "tasks/forms/ui_BlurOptions.h"
#include "tasks/forms/ui_BrightnessOptions.h"
#include "tasks/forms/ui_CanvasOptions.h"
#include "tasks/forms/ui_ContrastOptions.h"
#include "tasks/forms/ui_FlipOptions.h"
#include "tasks/forms/ui_FrameOptions.h"
#include "tasks/forms/ui_MaskOptions.h"
#include "tasks/forms/ui_NoOptions.h"
#include "tasks/forms/ui_RedEyeOptions.h"
#include "tasks/forms/ui_RotateOptions.h"
#include "tasks/forms/ui_ShadowOptions.h"
#include "tasks/forms/ui_SharpenOptions.h"

#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace tarsel {

namespace {

template <class Form>
TaskOptionPage* plainPage(int kind, TaskDefaults& defaults, QWidget* parent) {
    return new OptionPage(kind, defaults, setUpForm<Form>, parent);
}

template <class Page>
TaskOptionPage* specialPage(int, TaskDefaults& defaults, QWidget* parent) {
    return new Page(defaults, parent);
}

TaskOptionPage* rotatePage(int kind, TaskDefaults& defaults, QWidget* parent) {
    auto* page = plainPage<Ui::RotateOptions>(kind, defaults, parent);
    constexpr std::pair<const char*, int> angles[] = {
        {"cmdAngle_0", -15}, {"cmdAngle_1", 15}, {"cmdAngle_2", 45}, {"cmdAngle_3", -45}};
    auto& degrees = controlOf<QSlider>(*page, "sbDegrees");
    for (const auto& [button, angle] : angles)
        QObject::connect(&controlOf<QPushButton>(*page, button), &QPushButton::clicked, &degrees,
                         [&degrees, to = angle] { degrees.setValue(to); });
    return page;
}

/// A frame of images or of one colour.
TaskOptionPage* framePage(int kind, TaskDefaults& defaults, QWidget* parent) {
    auto* page = plainPage<Ui::FrameOptions>(kind, defaults, parent);
    showWhile(*page, "OptFrameStyle_0", "picFrameImage");
    showWhile(*page, "OptFrameStyle_1", "picFrameColor");
    showWhile(*page, "OptFrameStyle_1", "FrameBackColor");
    return page;
}

TaskOptionPage* textOnly(int kind, TaskDefaults& defaults, QWidget* parent) {
    auto* page = new OptionPage(kind, defaults, setUpForm<Ui::NoOptions>, parent);
    auto& text = controlOf<QLabel>(*page, "lblNothing");
    if (kind == 0)
        text.setText(
            TaskOptionPage::tr("Select a task from above, or click finish button to exit edit mode."));
    else
        text.setText(
            TaskOptionPage::tr("No Options Available. Click 'Preview' or 'Confirm' below to continue."));
    return page;
}

/// The region of the eye is for the preview only: the task is never recorded.
class RedEyePage final : public OptionPage {
public:
    RedEyePage(TaskDefaults& defaults, QWidget* parent) :
        OptionPage(16, defaults, setUpForm<Ui::RedEyeOptions>, parent) {}
    TaskRow row() const override {
        TaskRow row = OptionPage::row();
        writeRegion(row, 1);
        return row;
    }
};

using MakePage = TaskOptionPage* (*)(int kind, TaskDefaults& defaults, QWidget* parent);

/// By the number of the kind.
constexpr MakePage makers[] = {
    textOnly,
    plainPage<Ui::FlipOptions>,
    rotatePage,
    specialPage<ResizePage>,
    plainPage<Ui::BlurOptions>,
    plainPage<Ui::ContrastOptions>,
    plainPage<Ui::BrightnessOptions>,
    plainPage<Ui::SharpenOptions>,
    specialPage<CropPage>,
    specialPage<WatermarkPage>,
    specialPage<TextPage>,
    textOnly,
    plainPage<Ui::CanvasOptions>,
    framePage,
    plainPage<Ui::MaskOptions>,
    plainPage<Ui::ShadowOptions>,
    specialPage<RedEyePage>,
};

} // namespace

TaskOptionPage* makeTaskOptionPage(int kind, TaskDefaults& defaults, QWidget* parent) {
    if (kind < 0 || kind >= int(std::size(makers)))
        return nullptr;
    TaskOptionPage* page = makers[kind](kind, defaults, parent);
    showArtwork(*page);
    letWheelScroll(*page);
    page->showRow(defaultRow(kind, defaults));
    return page;
}

} // namespace tarsel
