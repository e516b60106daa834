// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/EffectBuilder.h"

#include "base/CodePage.h"
#include "base/DialogSubject.h"
#include "base/ErrorTrap.h"
#include "base/SaveFileDialog.h"
#include "players/effects/Font.h"
#include "publishing/ReplaceQuestion.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel {

namespace {

constexpr const char routine[] = "modEffectsExe.subMakeEffectExe";
constexpr int quality = 60;

/// Nothing, and a report, for a text that the record can't count.
std::optional<std::string> recordBytes(const joined::EffectOptions& record) {
    std::optional<std::string> bytes = bytesOf(record);
    if (!bytes)
        std::ignore = trap(routine, [] {
            fail(ErrorNumber::InvalidCall,
                 QCoreApplication::translate("EffectBuilder", "the text is longer than 65535 bytes"));
        });
    return bytes;
}

/// What the player can't show of the text; empty when it can show all.
QString noteOnText(const joined::EffectOptions& record) {
    const std::u32string missing = players::lettersWithoutGlyph(record.rollingText);
    return missing.empty() ? QString()
                           : QCoreApplication::translate(
                                 "EffectBuilder", "the player has no letters for \"%1\" and shows boxes")
                                 .arg(QString::fromStdU32String(missing));
}

} // namespace

GreetingStyle styleOf(const settings::PublishingSettings& settings) {
    return GreetingStyle(std::clamp<int>(settings.EffectStyle, 0, int(GreetingStyle::Clock)));
}

void takeEffectOptions(const settings::PublishingSettings& settings, joined::EffectOptions& record) {
    switch (styleOf(settings)) {
    case GreetingStyle::RainingText:
        record.rollingText = codePage::encode(settings.RainingText).toStdString();
        record.rollingTextColor = settings.RollingTextColor;
        break;
    case GreetingStyle::Clock:
        record.clockKind = settings.ClockType;
        record.showDate = settings.ClockDate;
        record.dateColor = settings.DateColor;
        record.digitalColor = settings.DigitalClockColor;
        record.hourColor = settings.HourColor;
        record.minuteColor = settings.MinuteColor;
        record.secondColor = settings.SecondColor;
        break;
    case GreetingStyle::Simple:
    case GreetingStyle::Watery:
        break;
    }
}

void storeEffectSettings(const settings::PublishingSettings& shown, settings::PublishingSettings& stored) {
    stored.EffectStyle = shown.EffectStyle;
    stored.PlayerSystem = shown.PlayerSystem;
    if (styleOf(shown) == GreetingStyle::RainingText) {
        stored.RainingText = shown.RainingText;
        stored.RollingTextColor = shown.RollingTextColor;
    }
    if (styleOf(shown) == GreetingStyle::Clock) {
        stored.ClockType = shown.ClockType;
        stored.ClockDate = shown.ClockDate;
        stored.DateColor = shown.DateColor;
        stored.DigitalClockColor = shown.DigitalClockColor;
    }
}

Player effectPlayer(const settings::PublishingSettings& settings) {
    constexpr Player players[] = {Player::Simple, Player::Watery, Player::RainingText, Player::Clock};
    return players[int(styleOf(settings))];
}

QString effectPath(const QString& path) {
    return withExtension(path, QStringLiteral(".exe"));
}

std::optional<QString> askForEffect() {
    const DialogSubject subject("frmExecutable");
    const auto choice = service<Dialogs>().saveFileDialog(
        {QCoreApplication::translate("EffectBuilder", "Save IMAGE as Effect Executable"),
         QCoreApplication::translate("EffectBuilder", "Exe File (*.exe)|*.exe"),
         {}});
    if (!choice || choice->path.isEmpty())
        return std::nullopt;
    return effectPath(choice->path);
}

bool subMakeEffectExe(const QString& path, const settings::PublishingSettings& settings,
                      const joined::EffectOptions& record, const EffectSource& source, bool ask,
                      const JoinedRun& run, std::vector<RowResult>& results) {
    if (ask &&
        !mayReplace(path, QCoreApplication::translate("EffectBuilder", "Would You Like To Replace It?")))
        return true;
    const std::optional<std::string> options = recordBytes(record);
    if (!options)
        return false;
    const JoinedBuild build{.routine = routine,
                            .path = path,
                            .player = effectPlayer(settings),
                            .system = PlayerSystem(settings.PlayerSystem),
                            .quality = quality,
                            .options = *options,
                            .listName = QStringLiteral("ImageExe.lst"),
                            .needsAll = true};
    ListView single;
    ListRow row;
    row.text = QStringLiteral("Single");
    row.tag = source.picture;
    single.add(row);
    NoProgress noBar;
    const bool isBuilt = buildJoined(build, {single, source.ibTemp, source.tasks}, noBar, run, results);
    const QString note = build.player == Player::RainingText ? noteOnText(record) : QString();
    if (isBuilt && !results.empty() && !note.isEmpty())
        results.back().notes << note;
    return isBuilt;
}

} // namespace tarsel
