// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FirstHints.h"

#include "controls/NoticeBar.h"

#include <QCoreApplication>
#include <span>

namespace tarsel {

namespace {

struct HintRow {
    const char* text;
    quint8 settings::WindowSettings::*isSeen;
};

constexpr HintRow rows[FirstHints::HintCount] = {
    {QT_TRANSLATE_NOOP(
         "FirstHints",
         "These are sample pictures, to try things on. For your own, choose a folder on the left, or press "
         "Ctrl+Shift+P for the folder of your pictures."),
     &settings::WindowSettings::HintOwnSeen},
    {QT_TRANSLATE_NOOP(
         "FirstHints",
         "Press F4 to change the picture on show: choose a task, such as Resize, and press Ctrl+Return. The "
         "list of these tasks can then run on every picture of the basket."),
     &settings::WindowSettings::HintTaskSeen},
    {QT_TRANSLATE_NOOP(
         "FirstHints",
         "Press Ctrl+J to save the pictures of the basket as JPEG files. Tick \"Run the tasks of the task "
         "basket on every picture\" to save them with the tasks. You see the new names before anything is "
         "written."),
     &settings::WindowSettings::HintSaveSeen},
};

QString textOf(const HintRow& row) {
    return QCoreApplication::translate("FirstHints", row.text);
}

} // namespace

FirstHints::FirstHints(NoticeBar& bar, settings::WindowSettings& settings, QObject* parent) :
    QObject(parent), m_bar(bar), m_settings(settings) {
    connect(&bar, &NoticeBar::dismissed, this, &FirstHints::setSeen);
}

void FirstHints::beginFirstRun() {
    for (const HintRow& row : rows)
        m_settings.*row.isSeen = 0;
}

void FirstHints::offer(Hint hint) {
    if (m_settings.*rows[hint].isSeen == 0)
        m_bar.say(textOf(rows[hint]));
}

void FirstHints::done(Hint hint) {
    const QString text = textOf(rows[hint]);
    setSeen(text);
    m_bar.withdraw(text);
}

void FirstHints::setSeen(const QString& text) {
    for (const HintRow& row : rows)
        if (textOf(row) == text)
            m_settings.*row.isSeen = 1;
}

} // namespace tarsel
