#include "tools/kestrel-shot/gallery/Gallery.h"

namespace kestreleq::shot
{

std::unique_ptr<GallerySheet> makeGallery()
{
    auto sheet = std::make_unique<GallerySheet>();
    addPrimitives (*sheet);
    addControls (*sheet);
    addPresets (*sheet);
    addHeaderTools (*sheet);
    addSupport (*sheet);
    addMeters (*sheet);
    addCharts (*sheet);
    addFooter (*sheet);
    addPanels (*sheet);
    return sheet;
}

} // namespace kestreleq::shot
