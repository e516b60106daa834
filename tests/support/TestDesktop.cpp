// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestDesktop.h"

namespace tarsel::test {

namespace {

/// The next scripted answer; a question that nobody scripted is noted and answered as cancelled.
template <class Answer>
std::optional<Answer> next(std::deque<std::optional<Answer>>& script, QStringList& unexpected,
                           const QString& what) {
    if (script.empty()) {
        unexpected << what;
        return std::nullopt;
    }
    auto answer = script.front();
    script.pop_front();
    return answer;
}

MessageAnswer refusal(MessageButtons buttons) {
    return buttons == MessageButtons::Ok      ? MessageAnswer::Ok
           : buttons == MessageButtons::YesNo ? MessageAnswer::No
                                              : MessageAnswer::Cancel;
}

} // namespace

MessageAnswer TestDesktop::messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                                      const QString& title) {
    messages.push_back({text, icon, buttons, title});
    if (answers.empty())
        return refusal(buttons);
    const MessageAnswer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<FileDialogChoice> TestDesktop::openFileDialog(const FileDialogRequest& request) {
    fileDialogs.push_back(request);
    return next(fileChoices, unexpected, request.title);
}

std::optional<FileDialogChoice> TestDesktop::saveFileDialog(const FileDialogRequest& request) {
    fileDialogs.push_back(request);
    return next(fileChoices, unexpected, request.title);
}

std::optional<QString> TestDesktop::folderDialog(const QString& startFolder) {
    return next(folderChoices, unexpected, startFolder);
}

std::optional<qint32> TestDesktop::colorDialog(qint32) {
    return next(colorChoices, unexpected, QStringLiteral("colour"));
}

std::optional<FontChoice> TestDesktop::fontDialog(const FontChoice&) {
    return next(fontChoices, unexpected, QStringLiteral("font"));
}

void TestDesktop::yield() {
    constexpr int mostYields = 60'000; // a loop that waits for what never comes fails, and doesn't hang
    if (++yields > mostYields)
        fail(ErrorNumber::InvalidCall, QStringLiteral("This loop doesn't end."));
    if (onYield)
        onYield();
}

bool TestDesktop::shellOpen(const QString& target) {
    opened << target;
    return opens;
}

bool TestDesktop::startHidden(const QString& program, const QStringList& arguments) {
    started << program + QLatin1Char(' ') + arguments.join(QLatin1Char(' '));
    return true;
}

bool TestDesktop::closeWindowTitled(const QString& title) {
    if (!windows.removeOne(title))
        return false;
    closedTitles << title;
    return true;
}

} // namespace tarsel::test
