// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/forms/PublishingParts.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/SystemServices.h"
#include "controls/Hyperlink.h"
#include "pixels/Color.h"

namespace tarsel {

QColor shownColor(qint32 color) {
    const Rgb rgb = resolveColor(color);
    return {rgb.red, rgb.green, rgb.blue};
}

bool hasPlayer(Player player, PlayerSystem system) {
    const auto missing = failureOf([&] { (void)playerFile(player, system); });
    if (missing)
        service<Dialogs>().messageBox(missing->description, MessageIcon::Exclamation, MessageButtons::Ok,
                                      ApplicationName);
    return !missing;
}

void connectSamplesLink(Hyperlink& link, const QString& kind) {
    const QString site = QStringLiteral(TARSEL_WEB_SITE);
    link.setVisible(!site.isEmpty());
    QObject::connect(&link, &Hyperlink::clicked, &link,
                     [address = site + QStringLiteral("?cat=samples&subcat=") + kind] {
                         service<SystemServices>().shellOpen(address);
                     });
}

} // namespace tarsel
