// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketActions.h"

#include "base/DialogSubject.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/SaveFileDialog.h"
#include "collections/BasketFile.h"

#include <QCoreApplication>
#include <algorithm>
#include <ranges>

namespace tarsel::basketActions {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(BasketActions)
};

constexpr const char* subjectName = "lvPages";

QString basketFilter() {
    return Texts::tr("Image basket formats (*.ibf;*.ibd)|*.ibf;*.ibd|"
                     "Image basket file (*.ibf)|*.ibf|"
                     "Image basket description file (*.ibd)|*.ibd|");
}

/// The reason, where there is one, follows on a line of its own.
void inform(const QString& text, const QString& reason) {
    service<Dialogs>().messageBox(reason.isEmpty() ? text : text + QStringLiteral("\n\n") + reason,
                                  MessageIcon::Information, MessageButtons::Ok, ApplicationName);
}

bool mayReplaceRows() {
    const MessageAnswer answer = service<Dialogs>().messageBox(
        Texts::tr("There are currently files in the Basket!.\nDo you want to continue?"),
        MessageIcon::Question, MessageButtons::OkCancel, ApplicationName);
    return answer == MessageAnswer::Ok;
}

void fillFrom(const QString& path, Basket& basket, CollectionLists& lists) {
    QString reason;
    if (!modSaveOpenImageList::fncOpenImageBasket(path, basket, lists, &reason))
        inform(Texts::tr("Error opening image list!\nPlease select a valid image list file."), reason);
}

/// The list forms of the first two filters hold paths only.
bool mayLoseDescriptions(int filterIndex, const ListView& lvPages) {
    constexpr int descriptionFilter = 3;
    const auto isDescribed = [&](int row) {
        return !lvPages.subItem(row, BasketColumn::Description).isEmpty();
    };
    if (filterIndex == descriptionFilter ||
        std::ranges::none_of(std::views::iota(0, lvPages.count()), isDescribed))
        return true;
    const QString question =
        Texts::tr("Descriptions are kept only in an image basket description file (*.ibd).\n"
                  "Do you want to save the list without them?");
    return service<Dialogs>().messageBox(question, MessageIcon::Question, MessageButtons::YesNo,
                                         ApplicationName) == MessageAnswer::Yes;
}

} // namespace

void cmdPagesOpen(Basket& basket, CollectionLists& lists) {
    const DialogSubject subject(subjectName);
    if (!lists.lvPages.isEmpty() && !mayReplaceRows())
        return;
    if (const auto choice = service<Dialogs>().openFileDialog({Texts::tr("Open Basket"), basketFilter(), {}}))
        fillFrom(choice->path, basket, lists);
}

void openBasketFile(const QString& path, Basket& basket, CollectionLists& lists) {
    const DialogSubject subject(subjectName);
    if (lists.lvPages.isEmpty() || mayReplaceRows())
        fillFrom(path, basket, lists);
}

void cmdPagesSave(const ListView& lvPages) {
    const DialogSubject subject(subjectName);
    const auto choice = saveFileDialogFor({Texts::tr("Save Basket"), basketFilter(), {}},
                                          modSaveOpenImageList::basketFilePath);
    QString reason;
    if (choice && mayLoseDescriptions(choice->filterIndex, lvPages) &&
        !modSaveOpenImageList::fncSaveImageBasket(choice->filterIndex, choice->path, lvPages, &reason))
        inform(Texts::tr("Error saving image list!\nPlease try again!"), reason);
}

} // namespace tarsel::basketActions
