// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

/// Shows texts in the language of the user's system where there is a file of them, such as
/// "tarsel-jpeg_de.qm", among the resources or in share/tarsel-jpeg/i18n next to the program's own folder.
/// For each new application object.
void installTranslation();

} // namespace tarsel
