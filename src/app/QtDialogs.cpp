// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDialogs.h"

#include "app/DialogFilters.h"
#include "app/FileDialogLook.h"
#include "app/frmErrorReport.h"
#include "base/DialogSubject.h"
#include "base/IgnoringErrors.h"
#include "base/ProgramIdentity.h"
#include "configuration/ConfigRecord.h"
#include "configuration/ProgramFolder.h"
#include "help/forms/HelpDesk.h"
#include "pixels/Color.h"

#include <QAbstractButton>
#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QStyle>
#include <utility>

namespace tarsel {

namespace {

/// The window that a dialog belongs to: the one in use, else any on show.
QWidget* owner() {
    if (QWidget* window = QApplication::activeModalWidget())
        return window;
    if (QWidget* window = QApplication::activeWindow())
        return window;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return window;
    return nullptr;
}

/// One over another dialog is about that.
void takeSubject(QDialog& dialog) {
    if (!QApplication::activeModalWidget())
        dialog.setProperty(helpTopicProperty, QString::fromLatin1(DialogSubject::current()));
}

QMessageBox::Icon qtIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Stop:
        return QMessageBox::Critical;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons qtButtons(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::SaveDiscardCancel:
        return QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    case MessageButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// Only some platforms give the standard buttons a mnemonic, and the translations of Qt lack it too.
void giveMnemonics(QMessageBox& box) {
    const auto name = [&](QMessageBox::StandardButton each, const char* text) {
        if (QAbstractButton* button = box.button(each))
            button->setText(QCoreApplication::translate("QtDialogs", text));
    };
    name(QMessageBox::Ok, QT_TRANSLATE_NOOP("QtDialogs", "&OK"));
    name(QMessageBox::Cancel, QT_TRANSLATE_NOOP("QtDialogs", "&Cancel"));
    name(QMessageBox::Yes, QT_TRANSLATE_NOOP("QtDialogs", "&Yes"));
    name(QMessageBox::No, QT_TRANSLATE_NOOP("QtDialogs", "&No"));
    name(QMessageBox::Save, QT_TRANSLATE_NOOP("QtDialogs", "&Save"));
    name(QMessageBox::Discard, QT_TRANSLATE_NOOP("QtDialogs", "&Discard"));
}

/// A name that is typed or proposed may have double quotes, between which Qt looks for the names of several
/// files.
QString chosenPath(const QFileDialog& dialog) {
    const auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const bool hasQuotes =
        dialog.acceptMode() == QFileDialog::AcceptSave && name && name->text().contains(QLatin1Char('"'));
    return hasQuotes ? dialog.directory().absoluteFilePath(name->text())
                     : dialog.selectedFiles().constFirst();
}

MessageAnswer answerOf(int button) {
    switch (button) {
    case QMessageBox::Cancel:
        return MessageAnswer::Cancel;
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    case QMessageBox::Save:
        return MessageAnswer::Save;
    case QMessageBox::Discard:
        return MessageAnswer::Discard;
    default:
        return MessageAnswer::Ok;
    }
}

/// The window manager's title bar has a bold font, perhaps, and buttons on both sides.
void makeRoomForTitle(QMessageBox& box) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    QFont font = QApplication::font();
    font.setBold(true);
    const int width =
        QFontMetrics(font).horizontalAdvance(box.windowTitle()) + 8 * box.fontMetrics().height();
    if (grid)
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

/// Types by the extension: the default looks into every file that changes, on the window's thread.
class PlainIcons final : public QAbstractFileIconProvider {
public:
    QIcon icon(IconType type) const override { return type == File ? m_file : m_folder; }
    QIcon icon(const QFileInfo& file) const override { return file.isDir() ? m_folder : m_file; }
    QString type(const QFileInfo& file) const override {
        return QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).comment();
    }

private:
    const QIcon m_folder = QApplication::style()->standardIcon(QStyle::SP_DirIcon);
    const QIcon m_file = QApplication::style()->standardIcon(QStyle::SP_FileIcon);
};

} // namespace

MessageAnswer QtDialogs::messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                                    const QString& title) {
    QMessageBox box(qtIcon(icon), title.isEmpty() ? programIdentity::title : title, text, qtButtons(buttons),
                    owner());
    box.setObjectName(QStringLiteral("messageBox"));
    box.setTextFormat(Qt::PlainText);
    if (buttons == MessageButtons::YesNo)
        box.setDefaultButton(QMessageBox::No); // Enter must not replace anything
    giveMnemonics(box);
    makeRoomForTitle(box);
    takeSubject(box);
    return answerOf(box.exec());
}

void QtDialogs::showErrorReport(const ErrorReport& report) {
    if (sessionEnds)
        logIgnored(report.ErrRoutine + QStringLiteral(": ") + report.ErrSystem);
    else if (m_holdsReports)
        m_heldReports.push_back(report);
    else
        frmErrorReport(report, owner()).exec();
}

void QtDialogs::showHeldReports() {
    m_holdsReports = false;
    QStringList shown;
    for (const ErrorReport& report : std::exchange(m_heldReports, {})) {
        if (shown.contains(report.ErrSystem))
            continue;
        shown << report.ErrSystem;
        showErrorReport(report);
    }
}

std::optional<FileDialogChoice> QtDialogs::openFileDialog(const FileDialogRequest& request) {
    PlainIcons icons; // which the dialog's model asks until its end
    QFileDialog dialog(owner(), request.title);
    dialog.setIconProvider(&icons);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return runFileDialog(dialog, request);
}

/// A folder that takes no files is refused here, before anything is made for it.
std::optional<FileDialogChoice> QtDialogs::saveFileDialog(const FileDialogRequest& request) {
    FileDialogRequest asked = request;
    while (auto choice = askForFile(asked)) {
        const QFileInfo folder(QFileInfo(choice->path).path());
        if (!folder.isDir() || folder.isWritable() || QFileInfo::exists(choice->path))
            return choice;
        messageBox(QCoreApplication::translate("QtDialogs", "You may not write to the folder %1.")
                       .arg(folder.filePath()),
                   MessageIcon::Exclamation, MessageButtons::Ok, {});
        asked.initialPath = choice->path;
    }
    return std::nullopt;
}

std::optional<FileDialogChoice> QtDialogs::askForFile(const FileDialogRequest& request) {
    PlainIcons icons; // which the dialog's model asks until its end
    QFileDialog dialog(owner(), request.title);
    dialog.setIconProvider(&icons);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // the caller asks, about the name that it completes
    dialog.setFileMode(QFileDialog::AnyFile);
    return runFileDialog(dialog, request);
}

std::optional<FileDialogChoice> QtDialogs::runFileDialog(QFileDialog& dialog,
                                                         const FileDialogRequest& request) {
    const QStringList filters = qtNameFilters(request.filter);
    dialog.setNameFilters(filters);
    const QFileInfo start(request.initialPath);
    const bool isFolder = start.isDir();
    const QString folder = isFolder ? start.filePath() : start.path();
    const bool isThere = !request.initialPath.isEmpty() && QFileInfo(folder).isDir();
    dialog.setDirectory(isThere ? folder : startFolder(dialog.acceptMode() == QFileDialog::AcceptSave));
    if (!isFolder && !request.initialPath.isEmpty())
        dialog.selectFile(start.fileName());
    takeSubject(dialog);
    makeFileDialogReadable(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = chosenPath(dialog);
    m_lastFolder = QFileInfo(path).path();
    return FileDialogChoice{path, int(filters.indexOf(dialog.selectedNameFilter())) + 1};
}

/// Of the last dialog; before the first one, the folder that the last session ended with: in a fresh record
/// that is the program folder, in which nobody would find a file again, and later perhaps the samples', which
/// take no files.
QString QtDialogs::startFolder(bool isToSave) const {
    for (const QString& folder : {m_lastFolder, visibleFolder(ConfigRecord.LastFolder.trimmed())})
        if (const QFileInfo info(folder);
            !folder.isEmpty() && info.isDir() && (!isToSave || info.isWritable()))
            return folder;
    return QDir::homePath();
}

std::optional<QString> QtDialogs::folderDialog(const QString& startFolder) {
    const QString folder = QFileDialog::getExistingDirectory(
        owner(), QCoreApplication::translate("QtDialogs", "Browse for folder"), startFolder);
    if (folder.isEmpty())
        return std::nullopt;
    return folder;
}

std::optional<qint32> QtDialogs::colorDialog(qint32 initial) {
    const Rgb start = resolveColor(initial);
    const QColor color = QColorDialog::getColor(QColor(start.red, start.green, start.blue), owner());
    if (!color.isValid())
        return std::nullopt;
    return colorOf(Rgb{std::uint8_t(color.red()), std::uint8_t(color.green()), std::uint8_t(color.blue())});
}

std::optional<FontChoice> QtDialogs::fontDialog(const FontChoice& initial) {
    QFont start(initial.name);
    if (initial.size > 0)
        start.setPointSizeF(initial.size);
    start.setBold(initial.bold);
    start.setItalic(initial.italic);
    start.setUnderline(initial.underline);
    bool chosen = false;
    const QFont font = QFontDialog::getFont(&chosen, start, owner());
    if (!chosen)
        return std::nullopt;
    return FontChoice{font.family(), font.pointSizeF(), font.bold(), font.italic(), font.underline()};
}

} // namespace tarsel
