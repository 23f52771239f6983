#pragma once

#include "tools/kestrel-shot/gallery/GallerySheet.h"

namespace kestreleq::shot
{

// Each adds the controls of one family in all their states.
void addCharts (GallerySheet& sheet);
void addControls (GallerySheet& sheet);
void addFooter (GallerySheet& sheet);
void addHeaderTools (GallerySheet& sheet);
void addMeters (GallerySheet& sheet);
void addPanels (GallerySheet& sheet);
void addPresets (GallerySheet& sheet);
void addPrimitives (GallerySheet& sheet);
void addSupport (GallerySheet& sheet);

/** The sheet with every family on it. */
std::unique_ptr<GallerySheet> makeGallery();

} // namespace kestreleq::shot
