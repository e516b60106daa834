// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QPointer>
#include <QWidget>
#include <span>

class QStackedWidget;
class QTabBar;

namespace tarsel {

class ActionTable;
class ListControl;

/// The metadata of the picture on show, on two tabs with a bar of buttons each. The keys of the buttons work
/// from both tabs.
class MetadataPane final : public QWidget {
    Q_OBJECT
public:
    MetadataPane(ListView& lvExif, ListView& lvIPTC, const ActionTable& actions, QWidget* parent = nullptr);

    ListControl& lvExif() const { return *m_exif; }
    ListControl& lvIPTC() const { return *m_iptc; }
    void showTab(int tab);   ///< 0 EXIF, 1 IPTC
    void focusList(int tab); ///< shows its tab, with a row selected
    int tab() const;
    /// Offers no command while a file is being written. The focus that this takes from a button returns at
    /// the end, unless the user has moved it.
    void setBusy(bool isBusy);

Q_SIGNALS:
    void tabShown(int tab);
    void cmdEXIFBar(int index);
    void cmdIPTCBar(int index);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    using Clicked = void (MetadataPane::*)(int);

    void offerCommands();
    void run(int tab, int index, Clicked clicked);
    QWidget* makePage(std::span<const char* const> buttons, const char* barName, ListControl* list,
                      Clicked clicked);
    ListControl* addList(ListView& list, const char* name, const QString& meaning);

    const ActionTable& m_actions;
    ImageList m_icons; ///< of the rows that can be edited
    ListControl* m_exif;
    ListControl* m_iptc;
    QTabBar* m_tabs;
    QStackedWidget* m_pages;
    bool m_isBusy = false;
    struct {
        QPointer<QWidget> before, meanwhile;
    } m_focus; ///< of a busy time
};

} // namespace tarsel
