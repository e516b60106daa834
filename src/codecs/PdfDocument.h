// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// A document with the picture as its only page. `title` is the document's; it may be empty. The same
/// arguments give the same bytes.
QByteArray newPdf(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata,
                  const QString& title);

/// The document with the picture as one more page at the end; its title stays. Error 0x8000FFFF for a
/// document that is damaged or can't be opened without a password; `name` is for the message.
QByteArray withPdfPage(const QByteArray& document, const QString& name, const Picture& picture,
                       const SaveSettings& settings, const EmbeddedMetadata& metadata);

} // namespace tarsel
