// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/forms/HelpDesk.h"

#include "help/HelpTopics.h"
#include "help/forms/frmManual.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QWidget>
#include <utility>

namespace tarsel {

namespace {

/// "de" of "de-DE", in the order of the user's preference, up to English, which the pages are in anyway.
QStringList languagesBeforeEnglish() {
    QStringList languages;
    for (const QString& name : QLocale::system().uiLanguages()) {
        const QString language = name.section(QLatin1Char('-'), 0, 0);
        if (language == QLatin1String("en") || language == QLatin1String("C"))
            break;
        languages << language;
    }
    languages.removeDuplicates();
    return languages;
}

/// A question or a file dialog that no command has named a topic for is about what had the focus below.
const QWidget* above(const QWidget* widget) {
    const QWidget* parent = widget->parentWidget();
    if (!widget->isWindow() || !parent || !parent->isWindow() || !parent->focusWidget())
        return parent;
    return parent->focusWidget();
}

} // namespace

QString helpPlaceFor(const QWidget* widget) {
    for (; widget; widget = above(widget))
        for (const QString& name : {widget->property(helpTopicProperty).toString(), widget->objectName()})
            if (const QString place = helpTopic(name); !place.isEmpty())
                return place;
    return QStringLiteral("index");
}

HelpDesk::HelpDesk(QString folder, QObject* parent) : QObject(parent), m_folder(std::move(folder)) {
    qApp->installEventFilter(this);
}

HelpDesk::~HelpDesk() = default;

void HelpDesk::showHere() {
    const QWidget* focused = QApplication::focusWidget();
    showFor(focused ? focused : QApplication::activeWindow());
}

void HelpDesk::showFor(const QWidget* widget) {
    const bool isOwn = m_window && widget && widget->window() == m_window.get();
    const QString place = helpPlaceFor(isOwn ? nullptr : widget);
    if (!m_window)
        m_window = std::make_unique<frmManual>(Manual::read(m_folder, languagesBeforeEnglish()));
    m_window->showPlace(place);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void HelpDesk::close() {
    if (m_window)
        m_window->close();
}

/// A dialog's own shortcut would have to be made in each, and those of the main window don't work while a
/// modal dialog is open.
bool HelpDesk::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    showFor(static_cast<const QWidget*>(watched));
    return true;
}

} // namespace tarsel
