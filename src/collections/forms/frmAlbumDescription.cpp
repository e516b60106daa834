// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/frmAlbumDescription.h"

#include "collections/Basket.h"
#include "collections/forms/ui_frmAlbumDescription.h"
#include "controls/FormScrollArea.h"

namespace tarsel {

frmAlbumDescription::frmAlbumDescription(const ListView& lvPages, int row, QWidget* owner) :
    QDialog(owner), m_ui(std::make_unique<Ui::frmAlbumDescription>()) {
    m_ui->setupUi(this);
    m_ui->lblFile->setText(m_ui->lblFile->text().arg(lvPages.row(row).text));
    // "Add" replaces the row's description, so that an empty box would delete it.
    m_ui->txtDescription->setPlainText(lvPages.subItem(row, BasketColumn::Description));
    m_ui->txtDescription->moveCursor(QTextCursor::End);
    connect(m_ui->txtDescription, &QPlainTextEdit::textChanged, this, &frmAlbumDescription::dropQuotes);
    connect(m_ui->cmdAdd, &QPushButton::clicked, this, &QDialog::accept);
    fitToText(*this, 70);
}

frmAlbumDescription::~frmAlbumDescription() = default;

void frmAlbumDescription::dropQuotes() {
    const QString text = m_ui->txtDescription->toPlainText();
    const auto quote = text.indexOf(QLatin1Char('"'));
    if (quote < 0)
        return;
    m_ui->txtDescription->setPlainText(QString(text).remove(QLatin1Char('"')));
    QTextCursor cursor = m_ui->txtDescription->textCursor();
    cursor.setPosition(int(quote));
    m_ui->txtDescription->setTextCursor(cursor);
}

QString frmAlbumDescription::description() const {
    return m_ui->txtDescription->toPlainText().remove(QLatin1Char('"')).remove(QLatin1Char('&'));
}

} // namespace tarsel
