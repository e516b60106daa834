// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DialogFit.h"

#include "controls/FormScrollArea.h"

#include <QDialog>
#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

namespace tarsel {

namespace {

bool exceeds(QSize size, QSize room) {
    return size.width() > room.width() || size.height() > room.height();
}

/// Those of Qt arrange themselves, and change their layouts while they are open.
bool isOfQt(const QDialog& dialog) {
    return dialog.metaObject()->className()[0] == 'Q';
}

QSize leastSize(const QDialog& dialog) {
    return dialog.minimumSizeHint().expandedTo(dialog.minimumSize());
}

/// The contents stay in their window, which keeps the order of its Tab key. The window stays as large as they
/// ask for, or as the screen: by itself, a scroll area asks for next to nothing.
void makeScrollable(QDialog& dialog, QSize room) {
    const QSize wanted = dialog.sizeHint().expandedTo(leastSize(dialog)).boundedTo(room);
    auto* contents = new QWidget(&dialog);
    contents->setLayout(dialog.layout());
    auto* area = new QScrollArea(&dialog);
    area->setObjectName(QStringLiteral("areaFitted"));
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(contents);
    auto* rows = new QVBoxLayout(&dialog);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(area);
    dialog.setMinimumSize(wanted);
}

/// With the frame that the window manager draws, which a dialog that was just shown doesn't know yet: it will
/// be as that of the window below.
QRect frameOf(const QDialog& dialog) {
    const auto margins = [](const QWidget* window) {
        return window && window->windowHandle() ? window->windowHandle()->frameMargins() : QMargins();
    };
    const QWidget* below = dialog.parentWidget() ? dialog.parentWidget()->window() : nullptr;
    const QMargins own = margins(&dialog);
    return {dialog.pos(), dialog.size().grownBy(own.isNull() ? margins(below) : own)};
}

/// Some have taken their size only after they were placed.
void moveInside(QDialog& dialog) {
    const QRect available = dialog.screen()->availableGeometry();
    const QRect frame = frameOf(dialog);
    if (dialog.isMaximized() || dialog.isFullScreen() || available.contains(frame))
        return;
    const QPoint last = available.bottomRight() + QPoint(1, 1) - QPoint(frame.width(), frame.height());
    dialog.move(std::max(available.left(), std::min(frame.left(), last.x())),
                std::max(available.top(), std::min(frame.top(), last.y())));
}

void fit(QDialog& dialog) {
    if (dialog.isMaximized() || dialog.isFullScreen())
        return;
    const QSize room = roomOnScreen(dialog);
    if (exceeds(leastSize(dialog), room) && dialog.layout() && !isOfQt(dialog))
        makeScrollable(dialog, room);
    if (exceeds(dialog.size(), room))
        dialog.resize(dialog.size().boundedTo(room));
}

} // namespace

bool DialogFit::eventFilter(QObject* watched, QEvent* event) {
    const bool isShown = event->type() == QEvent::Show;
    if ((!isShown && event->type() != QEvent::Resize) || event->spontaneous())
        return false;
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (!dialog || !dialog->isWindow() || !dialog->isVisible())
        return false;
    if (isShown)
        fit(*dialog);
    // Some grow only now, when their contents have their texts.
    QTimer::singleShot(0, dialog, [dialog] {
        fit(*dialog);
        moveInside(*dialog);
    });
    return false;
}

} // namespace tarsel
