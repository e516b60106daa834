// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <memory>

class QWidget;

namespace tarsel {

class frmManual;

/// The dynamic property by which a widget names its topic where its object name doesn't, such as a panel
/// whose contents change.
inline constexpr const char* helpTopicProperty = "helpTopic";

/// The place of the manual for a widget: that of the first of it and its parents that has a topic. From a
/// window without one it goes on at the focus of the window that owns it. The start page where none has.
QString helpPlaceFor(const QWidget* widget);

/// Opens the manual: by F1 in every window of the program, also in modal dialogs, at the page of the window
/// or pane with the focus.
class HelpDesk final : public QObject {
    Q_OBJECT
public:
    /// `folder` holds the pages.
    HelpDesk(QString folder, QObject* parent);
    ~HelpDesk() override;

    /// At the page of the widget with the focus.
    void showHere();
    /// At the page of this widget; at the first one where it belongs to the manual.
    void showFor(const QWidget* widget);
    void close();
    frmManual* window() const { return m_window.get(); } ///< nullptr before it was opened

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_folder;
    std::unique_ptr<frmManual> m_window; ///< without a parent, so that it may go behind the main window
};

} // namespace tarsel
