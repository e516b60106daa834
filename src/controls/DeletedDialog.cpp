// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/DeletedDialog.h"

#include "base/EventLoop.h"

#include <QDialog>
#include <QTimer>

namespace tarsel {

namespace {

void deleteAtDepth(QDialog& dialog, int depth) {
    constexpr int pause = 50; // ms
    if (service<EventLoop>().depth() <= depth)
        dialog.deleteLater();
    else
        QTimer::singleShot(pause, &dialog, [&dialog, depth] { deleteAtDepth(dialog, depth); });
}

} // namespace

void deleteWhenClosed(QDialog& dialog) {
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&dialog, depth = service<EventLoop>().depth()] {
        QTimer::singleShot(0, &dialog, [&dialog, depth] { deleteAtDepth(dialog, depth); });
    });
}

} // namespace tarsel
