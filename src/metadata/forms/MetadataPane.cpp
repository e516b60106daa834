// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/MetadataPane.h"

#include "controls/FocusTabBar.h"
#include "controls/ListControl.h"

#include <QStackedWidget>
#include <QVBoxLayout>

namespace tarsel {

MetadataPane::MetadataPane(ListView& lvExif, ListView& lvIPTC, QWidget* parent) :
    QWidget(parent), m_exif(addList(lvExif, "lvExif", tr("EXIF attributes"))),
    m_iptc(addList(lvIPTC, "lvIPTC", tr("IPTC attributes"))), m_tabs(new FocusTabBar(this)) {
    setObjectName(QStringLiteral("PicMetadata"));
    m_tabs->setObjectName(QStringLiteral("tbsMetadata"));
    m_tabs->setDocumentMode(true);
    m_tabs->setExpanding(false);
    m_tabs->addTab(tr("EXIF"));
    m_tabs->addTab(tr("IPTC"));
    auto* lists = new QStackedWidget(this);
    lists->addWidget(m_exif);
    lists->addWidget(m_iptc);
    connect(m_tabs, &QTabBar::currentChanged, lists, &QStackedWidget::setCurrentIndex);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addWidget(m_tabs);
    rows->addWidget(lists, 1);
}

void MetadataPane::showTab(int tab) {
    m_tabs->setCurrentIndex(tab);
}

ListControl* MetadataPane::addList(ListView& list, const char* name, const QString& meaning) {
    auto* control = new ListControl(list, this);
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(meaning);
    control->setFullRowSelect(true);
    return control;
}

} // namespace tarsel
