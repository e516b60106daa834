// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QWidget>

class QTabBar;

namespace tarsel {

class ListControl;

/// The metadata of the picture on show, on two tabs.
class MetadataPane final : public QWidget {
    Q_OBJECT
public:
    MetadataPane(ListView& lvExif, ListView& lvIPTC, QWidget* parent = nullptr);

    ListControl& lvExif() const { return *m_exif; }
    ListControl& lvIPTC() const { return *m_iptc; }
    void showTab(int tab); ///< 0 EXIF, 1 IPTC

private:
    ListControl* addList(ListView& list, const char* name, const QString& meaning);

    ListControl* m_exif;
    ListControl* m_iptc;
    QTabBar* m_tabs;
};

} // namespace tarsel
