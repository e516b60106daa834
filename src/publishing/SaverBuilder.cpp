// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/SaverBuilder.h"

#include "base/DialogSubject.h"
#include "base/SaveFileDialog.h"
#include "publishing/ReplaceQuestion.h"
#include "publishing/joined/JoinedOptions.h"

#include <QCoreApplication>

namespace tarsel {

Player saverPlayer(const settings::PublishingSettings& settings) {
    return settings.SaverType == 0 ? Player::Saver : Player::Slide;
}

QString saverPath(const QString& path, bool isSlide) {
    return withExtension(path, isSlide ? QStringLiteral(".exe") : QStringLiteral(".scr"));
}

std::optional<QString> askForSaver(bool isSlide) {
    const DialogSubject subject("frmScreenSaverOptions");
    const auto text = [](const char* source) { return QCoreApplication::translate("SaverBuilder", source); };
    FileDialogRequest request{
        text(isSlide ? QT_TRANSLATE_NOOP("SaverBuilder", "Save Slide As...")
                     : QT_TRANSLATE_NOOP("SaverBuilder", "Save ScreenSaver As...")),
        text(isSlide
                 ? QT_TRANSLATE_NOOP("SaverBuilder", "Slide (*.exe) | *.exe|All Files (*.*) | *.*")
                 : QT_TRANSLATE_NOOP("SaverBuilder", "Screen Savers (*.scr) | *.scr|All Files (*.*) | *.*")),
        {}};
    while (const auto choice = service<Dialogs>().saveFileDialog(request)) {
        const QString path = saverPath(choice->path, isSlide);
        if (mayReplace(path, text(QT_TRANSLATE_NOOP("SaverBuilder", "Would You Like To Overwrite It?"))))
            return path;
        request.initialPath = choice->path;
    }
    return std::nullopt;
}

bool MkSaver(const QString& path, const settings::PublishingSettings& settings, const JoinedSources& sources,
             Progress& progress, const JoinedRun& run, std::vector<RowResult>& results) {
    const JoinedBuild build{
        .routine = "modScreensaver.MkSaver",
        .path = path,
        .player = saverPlayer(settings),
        .system = PlayerSystem(settings.PlayerSystem),
        .quality = settings.SaverQuality,
        .options = bytesOf(joined::SaverOptions{settings.SaverBackColor, settings.SaverInterval}),
        .listName = QStringLiteral("Saver.lst"),
        .needsAll = false};
    return buildJoined(build, sources, progress, run, results);
}

} // namespace tarsel
