// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "base/ListView.h"
#include "embedded/MetadataStore.h"

namespace tarsel {

/// Bring a list to what has changed from one state of a picture's metadata to the next. All other rows stay
/// as they are, in their place, with their wording and selection. `except` is the attribute whose row the
/// caller takes care of.
void showChangedExif(ListView& lvExif, const MetadataStore& before, const MetadataStore& now,
                     const QStringList& except = {});
void showChangedIptc(ListView& lvIPTC, const MetadataStore& before, const MetadataStore& now,
                     const DateForms& forms);

} // namespace tarsel
