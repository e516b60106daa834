// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/DeletedDialog.h"

#include "base/EventLoop.h"

#include <QDialog>
#include <QTimer>

namespace tarsel {

namespace {

void deleteAfterInnerLoops(QDialog& dialog) {
    constexpr int loopOfTheProgram = 1;
    constexpr int pause = 50; // ms
    if (service<EventLoop>().depth() <= loopOfTheProgram)
        dialog.deleteLater();
    else
        QTimer::singleShot(pause, &dialog, [&dialog] { deleteAfterInnerLoops(dialog); });
}

} // namespace

void deleteWhenClosed(QDialog& dialog) {
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&dialog] {
        QTimer::singleShot(0, &dialog, [&dialog] { deleteAfterInnerLoops(dialog); });
    });
}

} // namespace tarsel
