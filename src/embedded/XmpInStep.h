// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace tarsel {

class MetadataStore;

/// What became of an XMP packet after a change of EXIF or IPTC data.
struct XmpInStep {
    QByteArray xmp;
    /// The packet still says something else of a property that was changed: it is damaged or in UTF-16,
    /// states the property as a structure or in its extension, or has no room for the new value.
    bool contradicts = false;
    bool lacks = false; ///< a changed property that the packet could state, and doesn't
};

/// The packet of `after` with the new values of the properties in which the EXIF and IPTC data of both
/// differ, as far as the packet states them; a property that is in neither any more goes. The pairs are those
/// of the guidelines of the Metadata Working Group; attributes beyond these are compared under their own name
/// in the namespaces of TIFF and EXIF.
XmpInStep xmpInStep(const MetadataStore& before, const MetadataStore& after);

} // namespace tarsel
