// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"

#include "app/DialogFilters.h"
#include "app/frmErrorReport.h"
#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/ProgramIdentity.h"
#include "pixels/Color.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QLocale>
#include <QMessageBox>
#include <QProcess>
#include <QUrl>
#include <algorithm>
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
    case MessageButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

MessageAnswer answerOf(int button) {
    switch (button) {
    case QMessageBox::Cancel:
        return MessageAnswer::Cancel;
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    default:
        return MessageAnswer::Ok;
    }
}

} // namespace

QtDesktop::QtDesktop(QString networkFolder) : m_networkFolder(std::move(networkFolder)) {}

// --- the user

MessageAnswer QtDesktop::messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                                    const QString& title) {
    QMessageBox box(qtIcon(icon), title.isEmpty() ? programIdentity::title : title, text, qtButtons(buttons),
                    owner());
    box.setTextFormat(Qt::PlainText);
    if (buttons == MessageButtons::YesNo)
        box.setDefaultButton(QMessageBox::No); // Enter must not replace anything
    return answerOf(box.exec());
}

void QtDesktop::showErrorReport(const ErrorReport& report) {
    frmErrorReport(report, owner()).exec();
}

std::optional<FileDialogChoice> QtDesktop::openFileDialog(const FileDialogRequest& request) {
    QFileDialog dialog(owner(), request.title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return runFileDialog(dialog, request);
}

std::optional<FileDialogChoice> QtDesktop::saveFileDialog(const FileDialogRequest& request) {
    QFileDialog dialog(owner(), request.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    return runFileDialog(dialog, request);
}

std::optional<FileDialogChoice> QtDesktop::runFileDialog(QFileDialog& dialog,
                                                         const FileDialogRequest& request) {
    const QStringList filters = qtNameFilters(request.filter);
    dialog.setNameFilters(filters);
    const QFileInfo start(request.initialPath);
    if (request.initialPath.isEmpty()) {
        dialog.setDirectory(m_lastFolder.isEmpty() ? QDir::homePath() : m_lastFolder);
    } else if (start.isDir()) {
        dialog.setDirectory(start.filePath());
    } else {
        dialog.setDirectory(start.path());
        dialog.selectFile(start.fileName());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    m_lastFolder = QFileInfo(path).path();
    return FileDialogChoice{path, int(filters.indexOf(dialog.selectedNameFilter())) + 1};
}

std::optional<QString> QtDesktop::folderDialog(const QString& startFolder) {
    const QString folder =
        QFileDialog::getExistingDirectory(owner(), QStringLiteral("Browse for folder"), startFolder);
    if (folder.isEmpty())
        return std::nullopt;
    return folder;
}

std::optional<qint32> QtDesktop::colorDialog(qint32 initial) {
    const Rgb start = resolveColor(initial);
    const QColor color = QColorDialog::getColor(QColor(start.red, start.green, start.blue), owner());
    if (!color.isValid())
        return std::nullopt;
    return colorOf(Rgb{std::uint8_t(color.red()), std::uint8_t(color.green()), std::uint8_t(color.blue())});
}

std::optional<FontChoice> QtDesktop::fontDialog(const FontChoice& initial) {
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

// --- the running loop

void QtDesktop::yield() {
    const ErrorSubject none{QString()}; // handlers of input don't work on the caller's file
    QCoreApplication::processEvents();
}

void QtDesktop::setBusyPointer(bool busy) {
    if (busy == std::exchange(m_busy, busy))
        return;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

// --- the system

bool QtDesktop::shellOpen(const QString& target) {
    const bool isAddress = target.contains(QLatin1String("://"));
    return QDesktopServices::openUrl(isAddress ? QUrl(target) : QUrl::fromLocalFile(target));
}

/// Linux has no registration that names a browser's program: an address goes to the default handler.
QString QtDesktop::browserPath() {
    return {};
}

bool QtDesktop::startHidden(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}

/// On line means that an interface other than the loopback is up. Point-to-point links say "unknown".
bool QtDesktop::isOnline() {
    const QStringList interfaces = QDir(m_networkFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::any_of(interfaces.begin(), interfaces.end(), [this](const QString& name) {
        QFile state(QStringLiteral("%1/%2/operstate").arg(m_networkFolder, name));
        if (name == QLatin1String("lo") || !state.open(QIODevice::ReadOnly))
            return false;
        const QByteArray text = state.readAll().trimmed();
        return text == "up" || text == "unknown";
    });
}

/// Looks among this program's own windows. A title such as "Success" is no proof that another program's
/// window shows the answer to a report: it could be the user's own page or document, so it is left alone.
bool QtDesktop::closeWindowTitled(const QString& title) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->windowTitle() != title)
            continue;
        QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        yield();
        return true;
    }
    return false;
}

QDateTime QtDesktop::now() {
    return QDateTime::currentDateTime();
}

double QtDesktop::randomNumber() {
    return std::uniform_real_distribution<double>(0.0, 1.0)(m_random);
}

QString QtDesktop::shortDateFormat() {
    QString format = QLocale::system().dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

/// The system's long time without its time zone.
QString QtDesktop::longTimeFormat() {
    QString format = QLocale::system().timeFormat(QLocale::LongFormat);
    return format.remove(QLatin1Char('t')).trimmed();
}

} // namespace tarsel
