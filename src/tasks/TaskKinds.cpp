// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskList.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

const std::array<TaskKind, 16>& taskKinds() {
    // clang-format off
    static constexpr std::array<TaskKind, 16> kinds{{
        { 1, "Flip",       "Flip",            "flip",       "Orientation", "Task Option - Flip",            steps::flip},
        { 2, "Rotate",     "Rotate",          "rotate",     "Rotate",      "Task Option - Rotate",          steps::rotate},
        { 3, "Resize",     "Resize",          "resize",     "Resize",      "Task Option - Resize",          steps::resize},
        { 4, "Blur",       "Blur",            "blur",       "Blur",        "Task Option - Blur",            steps::blur},
        { 5, "Contrast",   "Contrast",        "contrast",   "Contrast",    "Task Option - Contrast",        steps::contrast},
        { 6, "Brightness", "Brightness",      "brightness", "Brightness",  "Task Option - Brightness",      steps::brightness},
        { 7, "Sharpen",    "Sharpen",         "sharpen",    "Sharpen",     "Task Option - Sharpen",         steps::sharpen},
        { 8, "Crop",       "Crop",            "crop",       "Crop",        "Task Option - Crop",            steps::crop},
        { 9, "Watermark",  "Watermark/Merge", "watermark",  "Watermark",   "Task Option - Watermark/merge", steps::watermark},
        {10, "Text",       "Text",            "text",       "Text",        "Task Option - Add Text",        steps::text},
        {11, "Invert",     "Invert",          "invert",     "Negative",    "Task Option - Invert",          steps::invert},
        {12, "Canvas",     "Canvas",          "canvas",     "Canvas",      "Task Option - Canvas",          steps::canvas},
        {13, "Frame",      "Frame",           "frame",      "Frame",       "Task Option - Frame",           steps::frame},
        {14, "Mask",       "Mask",            "mask",       "Mask",        "Task Option - Mask",            steps::missingArtwork},
        {15, "Shadow",     "Shadow",          "shadow",     "Shadow",      "Task Option - Shadow",          steps::missingArtwork},
        {16, "RedEye",     "Red-Eye Correction", "",        "",            "Red-Eye Correction",            nullptr},
    }};
    // clang-format on
    return kinds;
}

const TaskKind* taskKind(int number) {
    for (const TaskKind& kind : taskKinds())
        if (kind.number == number)
            return &kind;
    return nullptr;
}

QString taskDisplayName(int kind) {
    const TaskKind* known = taskKind(kind);
    return known ? QString::fromLatin1(known->displayName) : QString();
}

} // namespace tarsel
