// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumTemplate.h"

#include "publishing/ExactAlbum.h"
#include "publishing/ModernAlbum.h"

namespace tarsel {

std::unique_ptr<AlbumTemplate> albumTemplate(const AlbumOptions& options, const AlbumNames& names) {
    if (options.settings.ModernTemplate == 1)
        return std::make_unique<ModernAlbum>(options, names);
    return std::make_unique<ExactAlbum>(options, names);
}

} // namespace tarsel
