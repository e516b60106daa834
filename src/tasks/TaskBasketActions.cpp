// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskBasketActions.h"

#include "base/DialogSubject.h"
#include "base/Dialogs.h"
#include "base/SaveFileDialog.h"
#include "tasks/TaskFile.h"

#include <QCoreApplication>

namespace tarsel::taskBasketActions {

namespace {

QString taskFilter() {
    return QCoreApplication::translate("TaskBasketActions", "Task basket file (*.tbf)|*.tbf");
}

bool clearTasks(TaskList& tasks, bool) {
    const bool hadRows = tasks.count() > 0;
    tasks.clear();
    return hadRows;
}

bool openTasks(TaskList& tasks, bool) {
    const auto choice = service<Dialogs>().openFileDialog(
        {QCoreApplication::translate("TaskBasketActions", "Open Editing list"), taskFilter(), {}});
    if (choice)
        modSaveOpenImageList::fncOpenTaskBasket(choice->path, tasks);
    return choice.has_value(); // a failed read has changed the rows too
}

bool saveTasks(TaskList& tasks, bool) {
    if (tasks.count() == 0)
        return false;
    const auto path =
        savePathFor({QCoreApplication::translate("TaskBasketActions", "Save Editing list"), taskFilter(), {}},
                    modSaveOpenImageList::taskFileExtension);
    if (path)
        modSaveOpenImageList::fncSaveTaskBasket(*path, tasks);
    return false;
}

bool removeTask(TaskList& tasks, bool editing) {
    const int selected = (editing ? tasks.lvEditPreview : tasks.lvEdit).selectedIndex();
    if (selected < 0)
        return false;
    tasks.remove(selected);
    tasks.deselect(); // or the picture would end at the next row
    return true;
}

} // namespace

bool cmdEditBar(int index, TaskList& tasks, bool editing) {
    const DialogSubject subject("picEditBar");
    using Action = bool (*)(TaskList&, bool editing);
    static constexpr Action actions[] = {clearTasks, openTasks, saveTasks, removeTask};
    return actions[index](tasks, editing);
}

} // namespace tarsel::taskBasketActions
