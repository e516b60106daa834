// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/frmAlbumDescription.h"

#include "collections/Basket.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tarsel {

frmAlbumDescription::frmAlbumDescription(ListView& lvPages, int row, QWidget* owner) :
    QDialog(owner), m_pages(lvPages), m_row(row), txtDescription(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("frmAlbumDescription"));
    setWindowTitle(tr("Add description"));
    auto* lblFile = new QLabel(tr("Description of the image - '%1'").arg(lvPages.row(row).text), this);
    lblFile->setObjectName(QStringLiteral("lblFile"));
    txtDescription->setObjectName(QStringLiteral("txtDescription"));
    txtDescription->setAccessibleName(tr("Description"));
    txtDescription->setTabChangesFocus(true);
    // "Add" replaces the row's description, so that an empty box would delete it.
    txtDescription->setPlainText(lvPages.subItem(row, BasketColumn::Description));
    txtDescription->moveCursor(QTextCursor::End);
    auto* note =
        new QLabel(tr("Note: Don't use double quote (\") in the description if you plan to save the image "
                      "basket"),
                   this);
    note->setObjectName(QStringLiteral("Label2"));
    note->setWordWrap(true);
    auto* cmdAdd = new QPushButton(tr("&Add"), this);
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    cmdAdd->setDefault(true);
    auto* cmdCancel = new QPushButton(tr("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(txtDescription, &QPlainTextEdit::textChanged, this, &frmAlbumDescription::dropQuotes);
    connect(cmdAdd, &QPushButton::clicked, this, &frmAlbumDescription::cmdAdd_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdAdd);
    buttons->addWidget(cmdCancel);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(14, 14, 14, 14);
    rows->setSpacing(10);
    rows->addWidget(lblFile);
    rows->addWidget(txtDescription, 1);
    rows->addWidget(note);
    rows->addLayout(buttons);
    resize(420, 240);
}

void frmAlbumDescription::dropQuotes() {
    const QString text = txtDescription->toPlainText();
    const auto quote = text.indexOf(QLatin1Char('"'));
    if (quote < 0)
        return;
    txtDescription->setPlainText(QString(text).remove(QLatin1Char('"')));
    QTextCursor cursor = txtDescription->textCursor();
    cursor.setPosition(int(quote));
    txtDescription->setTextCursor(cursor);
}

void frmAlbumDescription::cmdAdd_Click() {
    QString text = txtDescription->toPlainText();
    text.remove(QLatin1Char('"')).remove(QLatin1Char('&'));
    if (m_row < m_pages.count())
        m_pages.setSubItem(m_row, BasketColumn::Description, text);
    accept();
}

} // namespace tarsel
