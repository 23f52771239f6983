#include "tools/kestrel-shot/gallery/Gallery.h"

namespace kestreleq::shot
{

std::unique_ptr<GallerySheet> makeGallery()
{
    auto sheet = std::make_unique<GallerySheet>();

    for (const auto& page : galleryPages)
        page.add (*sheet);

    return sheet;
}

} // namespace kestreleq::shot
