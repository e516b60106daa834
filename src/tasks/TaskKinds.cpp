// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskList.h"
#include "tasks/steps/Steps.h"

#include <QCoreApplication>

namespace tarsel {

const std::array<TaskKind, 16>& taskKinds() {
    // clang-format off
    static constexpr std::array<TaskKind, 16> kinds{{
        { 1, "Flip",       QT_TRANSLATE_NOOP("TaskKinds", "Flip"),               "flip",       QT_TRANSLATE_NOOP("TaskKinds", "Orientation"), QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Flip"),            steps::flip},
        { 2, "Rotate",     QT_TRANSLATE_NOOP("TaskKinds", "Rotate"),             "rotate",     QT_TRANSLATE_NOOP("TaskKinds", "Rotate"),      QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Rotate"),          steps::rotate},
        { 3, "Resize",     QT_TRANSLATE_NOOP("TaskKinds", "Resize"),             "resize",     QT_TRANSLATE_NOOP("TaskKinds", "Resize"),      QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Resize"),          steps::resize},
        { 4, "Blur",       QT_TRANSLATE_NOOP("TaskKinds", "Blur"),               "blur",       QT_TRANSLATE_NOOP("TaskKinds", "Blur"),        QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Blur"),            steps::blur},
        { 5, "Contrast",   QT_TRANSLATE_NOOP("TaskKinds", "Contrast"),           "contrast",   QT_TRANSLATE_NOOP("TaskKinds", "Contrast"),    QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Contrast"),        steps::contrast},
        { 6, "Brightness", QT_TRANSLATE_NOOP("TaskKinds", "Brightness"),         "brightness", QT_TRANSLATE_NOOP("TaskKinds", "Brightness"),  QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Brightness"),      steps::brightness},
        { 7, "Sharpen",    QT_TRANSLATE_NOOP("TaskKinds", "Sharpen"),            "sharpen",    QT_TRANSLATE_NOOP("TaskKinds", "Sharpen"),     QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Sharpen"),         steps::sharpen},
        { 8, "Crop",       QT_TRANSLATE_NOOP("TaskKinds", "Crop"),               "crop",       QT_TRANSLATE_NOOP("TaskKinds", "Crop"),        QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Crop"),            steps::crop},
        { 9, "Watermark",  QT_TRANSLATE_NOOP("TaskKinds", "Watermark/Merge"),    "watermark",  QT_TRANSLATE_NOOP("TaskKinds", "Watermark"),   QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Watermark/merge"), steps::watermark},
        {10, "Text",       QT_TRANSLATE_NOOP("TaskKinds", "Text"),               "text",       QT_TRANSLATE_NOOP("TaskKinds", "Text"),        QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Add Text"),        steps::text},
        {11, "Invert",     QT_TRANSLATE_NOOP("TaskKinds", "Invert"),             "invert",     QT_TRANSLATE_NOOP("TaskKinds", "Negative"),    QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Invert"),          steps::invert},
        {12, "Canvas",     QT_TRANSLATE_NOOP("TaskKinds", "Canvas"),             "canvas",     QT_TRANSLATE_NOOP("TaskKinds", "Canvas"),      QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Canvas"),          steps::canvas},
        {13, "Frame",      QT_TRANSLATE_NOOP("TaskKinds", "Frame"),              "frame",      QT_TRANSLATE_NOOP("TaskKinds", "Frame"),       QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Frame"),           steps::frame},
        {14, "Mask",       QT_TRANSLATE_NOOP("TaskKinds", "Mask"),               "mask",       QT_TRANSLATE_NOOP("TaskKinds", "Mask"),        QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Mask"),            steps::mask},
        {15, "Shadow",     QT_TRANSLATE_NOOP("TaskKinds", "Shadow"),             "shadow",     QT_TRANSLATE_NOOP("TaskKinds", "Shadow"),      QT_TRANSLATE_NOOP("TaskKinds", "Task Option - Shadow"),          steps::shadow},
        {16, "RedEye",     QT_TRANSLATE_NOOP("TaskKinds", "Red-Eye Correction"), "",           "",                   QT_TRANSLATE_NOOP("TaskKinds", "Red-Eye Correction"),            nullptr},
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
    return known && *known->displayName ? QCoreApplication::translate("TaskKinds", known->displayName)
                                        : QString();
}

} // namespace tarsel
