#pragma once

#include "tools/kestrel-shot/gallery/GallerySheet.h"

#include <array>

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

struct GalleryPage
{
    const char* name;
    void (*add) (GallerySheet& sheet);
};

/** Every family, in the order of the gallery. */
inline constexpr std::array<GalleryPage, 9> galleryPages { {
    { "primitives", addPrimitives },
    { "controls", addControls },
    { "presets", addPresets },
    { "header-tools", addHeaderTools },
    { "support", addSupport },
    { "meters", addMeters },
    { "charts", addCharts },
    { "footer", addFooter },
    { "panels", addPanels },
} };

/** The sheet with every family on it. */
std::unique_ptr<GallerySheet> makeGallery();

} // namespace kestreleq::shot
