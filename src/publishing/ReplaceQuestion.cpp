// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/ReplaceQuestion.h"

#include "base/ErrorTrap.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel {

bool mayReplace(const QString& path, const QString& question) {
    if (!QFileInfo::exists(path))
        return true;
    const QString exists =
        QCoreApplication::translate("ReplaceQuestion", "This File ('%1') Already Exists!\n%2")
            .arg(path, question);
    return service<Dialogs>().messageBox(exists, MessageIcon::Question, MessageButtons::YesNo,
                                         ApplicationName) == MessageAnswer::Yes;
}

} // namespace tarsel
