// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

namespace tarsel {

struct ErrorReport;

enum class MessageIcon { None, Information, Exclamation, Question, Stop };
enum class MessageButtons { Ok, OkCancel, YesNo };
enum class MessageAnswer { Ok, Cancel, Yes, No };

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

/// Everything that logic asks of the user and of the system. The application implements it with windows, the
/// command line on the terminal, tests with a script of answers.
class Desktop {
public:
    virtual ~Desktop() = default;

    // --- the user
    // ---------------------------------------------------------------------------------------------
    virtual MessageAnswer messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                                     const QString& title) = 0;
    virtual void showErrorReport(const ErrorReport& report) = 0;
    /// The dialogs give nothing when they were cancelled.
    virtual std::optional<FileDialogChoice> openFileDialog(const FileDialogRequest& request) = 0;
    virtual std::optional<FileDialogChoice> saveFileDialog(const FileDialogRequest& request) = 0;
    virtual std::optional<QString> folderDialog(const QString& startFolder) = 0;
    /// Colours are 32-bit values with red in the low byte.
    virtual std::optional<qint32> colorDialog(qint32 initial) = 0;
    virtual std::optional<FontChoice> fontDialog(const FontChoice& initial) = 0;

    // --- the running loop
    // -------------------------------------------------------------------------------------
    /// Lets pending events run once: called by long loops once per item.
    virtual void yield() = 0;
    virtual void setBusyPointer(bool busy) = 0;

    // --- the system
    // -------------------------------------------------------------------------------------------
    /// Opens a file or an address with the program that the system has for it.
    virtual bool shellOpen(const QString& target) = 0;
    /// Path of the system's registered browser, or empty when there is no such registration.
    virtual QString browserPath() = 0;
    virtual bool startHidden(const QString& program, const QStringList& arguments) = 0;
    virtual bool isOnline() = 0;
    /// Posts a close message to the top-level window of exactly this title; false when there is none.
    virtual bool closeWindowTitled(const QString& title) = 0;
    virtual QDateTime now() = 0;
    /// Uniform in [0, 1).
    virtual double randomNumber() = 0;
    /// Qt pattern of the short date with a four-digit year, such as "M/d/yyyy".
    virtual QString shortDateFormat() = 0;
    /// Qt pattern of the long time, such as "h:mm:ss AP".
    virtual QString longTimeFormat() = 0;
};

/// The desktop of this process. It is a programming error to ask for it before one was set.
Desktop& desktop();

/// How the desktop's user writes dates.
DateForms desktopDateForms();

/// Makes a desktop the one of this process for as long as the scope lives; scopes nest.
class DesktopScope {
public:
    explicit DesktopScope(Desktop& current);
    ~DesktopScope();
    DesktopScope(const DesktopScope&) = delete;
    DesktopScope& operator=(const DesktopScope&) = delete;

private:
    Desktop* m_previous;
};

} // namespace tarsel
