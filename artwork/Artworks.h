// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/Mask.h"
#include "artwork/Sheet.h"

/// The artwork, one file a frame or mask.
namespace tarsel::artwork {

Painting walnut();
Painting goldLeaf();
Painting silver();
Painting passePartout();
Painting cherry();
Painting scroll();
Painting lacquer();
Painting film();

/// Of the shadow 8 to 15.
Painting shadow(int number);

MaskTone vignette();
MaskTone oval();
MaskTone roundedCorners();
MaskTone tornPaper();
MaskTone mosaic();
MaskTone deckle();
MaskTone brush();
MaskTone heart();

} // namespace tarsel::artwork
