// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainActions.h"
#include "base/SafeFileWriter.h"
#include "controls/LineIcon.h"
#include "controls/LineIconLabel.h"

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QSet>
#include <gtest/gtest.h>

namespace tarsel::test {

TEST(MainActions, HaveTheirIconsAndAKeyEachAndShareNoNameOrShortcut) {
    QSet<QByteArray> names, shortcuts;
    for (const ActionRow& row : mainActions()) {
        EXPECT_FALSE(names.contains(row.name)) << row.name;
        names << row.name;
        EXPECT_FALSE(lineIcon(QLatin1String(row.icon)).isNull()) << row.name;
        EXPECT_TRUE(*row.keys != 0 || QByteArray(row.text).contains('&')) << row.name << " has no key";
        EXPECT_TRUE(*row.keys == 0 || !shortcuts.contains(row.keys)) << row.keys;
        shortcuts << row.keys;
    }
}

TEST(MainActions, AreListedWithTheirShortcutsInTheKeyboardPage) {
    const ActionTable table(mainActions(), mainActionsContext);
    QString rows = QStringLiteral("|---|---|\n");
    for (const auto& [text, keys] : table.shortcuts())
        rows += QStringLiteral("| %1 | %2 |\n").arg(text, keys.toString(QKeySequence::PortableText));
    const QString page =
        QString::fromUtf8(readWholeFile(QStringLiteral(TARSEL_ROOT "/docs/manual/keyboard.md")));
    EXPECT_TRUE(page.contains(rows + QLatin1Char('\n'))) << rows.toStdString();
    EXPECT_EQ(table.action("cmdRefreshFolder").toolTip().toStdString(), "List the folder again (F5)");
}

/// Also where they are on show already, beside the texts of the status line.
TEST(LineIcons, HaveTheInkOfTheDesktopsPalette) {
    const QPalette usual = QGuiApplication::palette();
    LineIconLabel label(lineIcon(QStringLiteral("previous")), nullptr, 4);
    const auto inkWith = [&](QColor button, QColor text) {
        QPalette palette(button);
        palette.setColor(QPalette::ButtonText, text);
        QGuiApplication::setPalette(palette);
        QImage image(64, 64, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        label.render(&image, {}, {}, QWidget::DrawChildren);
        QColor strongest(0, 0, 0, 0);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).alpha() > strongest.alpha())
                    strongest = image.pixelColor(x, y);
        return strongest;
    };
    EXPECT_EQ(inkWith(QColor(40, 40, 40), QColor(230, 231, 232)), QColor(230, 231, 232));
    EXPECT_EQ(inkWith(QColor(240, 240, 240), QColor(10, 20, 30)), QColor(10, 20, 30));
    QGuiApplication::setPalette(usual);
}

} // namespace tarsel::test
