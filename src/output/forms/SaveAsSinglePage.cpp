// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/SaveAsSinglePage.h"

#include "base/ErrorTrap.h"
#include "controls/ProgressBar.h"
#include "controls/frmStatus.h"
#include "output/forms/frmSaveSinglePage.h"

#include <QScopeGuard>

namespace tarsel {

std::vector<RowResult> subSaveAsSinglePage(const SaveAsLists& lists, QWidget* owner) {
    std::vector<RowResult> results;
    std::ignore = trap("FrmMain.subSaveAsSinglePage", [&] {
        TrappingString = QStringLiteral("Saving a new Single file");
        if (lists.lvPages.isEmpty())
            return;
        // Only this dialog's Save counts, not one that an earlier session left in the record.
        lists.settings.Confirmed = 0;
        frmSaveSinglePage(lists.settings, lists.lvPages, lists.lvEditBatch, owner).exec();
        if (!lists.settings.Confirmed)
            return;
        lists.runningChanged(true);
        const auto atEnd = qScopeGuard([&] { lists.runningChanged(false); });
        frmStatus status(owner);
        status.begin();
        fncSaveSinglePage(lists.lvPages, lists.lvEditBatch, lists.ibTemp, status.pbQueue(), lists.settings,
                          {}, results);
        lists.settings.Confirmed = 0;
        status.finish();
    });
    return results;
}

} // namespace tarsel
