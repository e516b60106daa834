// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Service.h"

#include <QString>
#include <optional>

namespace tarsel {

struct ErrorReport;

enum class MessageIcon { None, Information, Exclamation, Question, Stop };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel, SaveDiscardCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No, Save, Discard };

/// What a file dialog is asked for. `filter` is pairs of text and pattern, all separated by "|":
/// "Task basket file (*.tbf)|*.tbf".
struct FileDialogRequest {
    QString title;
    QString filter;
    QString initialPath; ///< folder or file that the dialog starts at; empty for the last one
};

/// What came back: the path, and the index of the chosen filter counted from 1.
struct FileDialogChoice {
    QString path;
    int filterIndex = 1;
};

/// A font as the font dialog and the text task know it.
struct FontChoice {
    QString name;
    double size = 0; ///< points
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

/// Asks and informs the user. The application opens windows, the command line writes to the terminal and
/// refuses, tests script the answers. A dialog that was cancelled returns nothing.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual MessageAnswer messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                                     const QString& title) = 0;
    virtual void showErrorReport(const ErrorReport& report) = 0;
    virtual std::optional<FileDialogChoice> openFileDialog(const FileDialogRequest& request) = 0;
    virtual std::optional<FileDialogChoice> saveFileDialog(const FileDialogRequest& request) = 0;
    virtual std::optional<QString> folderDialog(const QString& startFolder) = 0;
    /// Colours are 32-bit values with red in the low byte.
    virtual std::optional<qint32> colorDialog(qint32 initial) = 0;
    virtual std::optional<FontChoice> fontDialog(const FontChoice& initial) = 0;
};

} // namespace tarsel
