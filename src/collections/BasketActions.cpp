// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketActions.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/SaveFileDialog.h"
#include "collections/BasketFile.h"

#include <QCoreApplication>
#include <algorithm>
#include <ranges>

namespace tarsel::basketActions {

namespace {

QString basketFilter() {
    return QStringLiteral("Image basket formats (*.ibf;*.ibd)|*.ibf;*.ibd|"
                          "Image basket file (*.ibf)|*.ibf|"
                          "Image basket description file (*.ibd)|*.ibd|");
}

/// The reason, where there is one, follows on a line of its own.
void inform(const char* first, const char* second, const QString& reason) {
    QStringList lines{QString::fromLatin1(first), QString::fromLatin1(second)};
    if (!reason.isEmpty())
        lines << QString() << reason;
    service<Dialogs>().messageBox(lines.join(QLatin1Char('\n')), MessageIcon::Information, MessageButtons::Ok,
                                  ApplicationName);
}

bool mayReplaceRows() {
    const MessageAnswer answer = service<Dialogs>().messageBox(
        QStringLiteral("There are currently files in the Basket!.\nDo you want to continue?"),
        MessageIcon::Question, MessageButtons::OkCancel, ApplicationName);
    return answer == MessageAnswer::Ok;
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
    const QString question = QCoreApplication::translate(
        "BasketActions", "Descriptions are kept only in an image basket description file (*.ibd).\n"
                         "Do you want to save the list without them?");
    return service<Dialogs>().messageBox(question, MessageIcon::Question, MessageButtons::YesNo,
                                         ApplicationName) == MessageAnswer::Yes;
}

} // namespace

void cmdPagesOpen(Basket& basket, CollectionLists& lists) {
    if (!lists.lvPages.isEmpty() && !mayReplaceRows())
        return;
    const auto choice =
        service<Dialogs>().openFileDialog({QStringLiteral("Open Basket"), basketFilter(), {}});
    QString reason;
    if (choice && !modSaveOpenImageList::fncOpenImageBasket(choice->path, basket, lists, &reason))
        inform("Error opening image list!", "Please select a valid image list file.", reason);
}

void cmdPagesSave(const ListView& lvPages) {
    const auto choice = saveFileDialogFor({QStringLiteral("Save Basket"), basketFilter(), {}},
                                          modSaveOpenImageList::basketFilePath);
    QString reason;
    if (choice && mayLoseDescriptions(choice->filterIndex, lvPages) &&
        !modSaveOpenImageList::fncSaveImageBasket(choice->filterIndex, choice->path, lvPages, &reason))
        inform("Error saving image list!", "Please try again!", reason);
}

} // namespace tarsel::basketActions
