// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketActions.h"

#include "base/Desktop.h"
#include "base/ErrorTrap.h"
#include "collections/BasketFile.h"

namespace tarsel::basketActions {

namespace {

QString basketFilter() {
    return QStringLiteral("Image basket formats (*.ibf;*.ibd)|*.ibf;*.ibd|"
                          "Image basket file (*.ibf)|*.ibf|"
                          "Image basket description file (*.ibd)|*.ibd|");
}

void inform(const char* first, const char* second) {
    desktop().messageBox(QLatin1String(first) + QLatin1Char('\n') + QLatin1String(second),
                         MessageIcon::Information, MessageButtons::Ok, ApplicationName);
}

bool mayReplaceRows() {
    const MessageAnswer answer = desktop().messageBox(
        QStringLiteral("There are currently files in the Basket!.\nDo you want to continue?"),
        MessageIcon::Question, MessageButtons::OkCancel, ApplicationName);
    return answer == MessageAnswer::Ok;
}

} // namespace

void cmdPagesOpen(Basket& basket, CollectionLists& lists) {
    if (!lists.lvPages.isEmpty() && !mayReplaceRows())
        return;
    const auto choice = desktop().openFileDialog({QStringLiteral("Open Basket"), basketFilter(), {}});
    if (choice && !modSaveOpenImageList::fncOpenImageBasket(choice->path, basket, lists))
        inform("Error opening image list!", "Please select a valid image list file.");
}

void cmdPagesSave(const ListView& lvPages) {
    const auto choice = desktop().saveFileDialog({QStringLiteral("Save Basket"), basketFilter(), {}});
    if (choice && !modSaveOpenImageList::fncSaveImageBasket(choice->filterIndex, choice->path, lvPages))
        inform("Error saving image list!", "Please try again!");
}

} // namespace tarsel::basketActions
