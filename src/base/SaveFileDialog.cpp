// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SaveFileDialog.h"

#include "base/ErrorTrap.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel {

namespace {

bool mayReplace(const QString& path, const QString& loss) {
    QString question =
        QCoreApplication::translate("SaveFileDialog", "%1 already exists.\nDo you want to replace it?")
            .arg(QFileInfo(path).fileName());
    if (!loss.isEmpty())
        question += QStringLiteral("\n\n") + loss;
    return service<Dialogs>().messageBox(question, MessageIcon::Question, MessageButtons::YesNo,
                                         ApplicationName) == MessageAnswer::Yes;
}

} // namespace

std::optional<FileDialogChoice>
saveFileDialogFor(FileDialogRequest request,
                  const std::function<QString(int filterIndex, const QString& path)>& writtenPath,
                  const std::function<QString(const QString& written)>& lossBy) {
    while (const auto choice = service<Dialogs>().saveFileDialog(request)) {
        const QString written = writtenPath(choice->filterIndex, choice->path);
        if (!QFileInfo(written).isFile() || mayReplace(written, lossBy ? lossBy(written) : QString()))
            return choice;
        request.initialPath = choice->path;
    }
    return std::nullopt;
}

QString withExtension(const QString& path, const QString& extension) {
    return path.endsWith(extension, Qt::CaseInsensitive) ? path : path + extension;
}

std::optional<QString> savePathFor(const FileDialogRequest& request, const QString& extension) {
    const auto written = [&](int, const QString& path) { return withExtension(path, extension); };
    const auto choice = saveFileDialogFor(request, written);
    return choice ? std::optional(withExtension(choice->path, extension)) : std::nullopt;
}

} // namespace tarsel
