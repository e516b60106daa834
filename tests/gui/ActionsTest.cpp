// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainActions.h"
#include "controls/LineIcon.h"

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QSet>
#include <gtest/gtest.h>

namespace tarsel::test {

TEST(MainActions, HaveTheirIconsAndShareNoNameOrShortcut) {
    QSet<QByteArray> names;
    QSet<QByteArray> shortcuts;
    for (const ActionRow& row : mainActions()) {
        EXPECT_FALSE(names.contains(row.name)) << row.name;
        names << row.name;
        EXPECT_TRUE(*row.icon == 0 || !lineIcon(QLatin1String(row.icon)).isNull()) << row.icon;
        if (*row.keys == 0)
            continue;
        EXPECT_FALSE(shortcuts.contains(row.keys)) << row.keys;
        EXPECT_FALSE(QKeySequence(QLatin1String(row.keys)).toString().isEmpty()) << row.keys;
        shortcuts << row.keys;
    }
    const ActionTable table(mainActions(), mainActionsContext);
    EXPECT_EQ(qsizetype(table.shortcuts().size()), shortcuts.size());
    EXPECT_EQ(table.action("cmdRefreshFolder").toolTip().toStdString(), "List the folder again (F5)");
}

TEST(LineIcons, HaveTheInkOfTheDesktopsPalette) {
    const QPalette usual = QGuiApplication::palette();
    const auto inkWith = [](QColor button, QColor text) {
        QPalette palette(button);
        palette.setColor(QPalette::ButtonText, text);
        QGuiApplication::setPalette(palette);
        const QImage image = lineIcon(QStringLiteral("previous")).pixmap(64, 64).toImage();
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
