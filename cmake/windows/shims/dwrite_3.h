#pragma once
#pragma GCC system_header
#include_next <dwrite_3.h>

// the Windows SDK has DEFINE_ENUM_FLAG_OPERATORS (DWRITE_GLYPH_IMAGE_FORMATS); mingw-w64 12 does not
constexpr DWRITE_GLYPH_IMAGE_FORMATS operator| (DWRITE_GLYPH_IMAGE_FORMATS a, DWRITE_GLYPH_IMAGE_FORMATS b) noexcept
{
    return (DWRITE_GLYPH_IMAGE_FORMATS)((unsigned int)a | (unsigned int)b);
}
