#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kestreleq
{

/** Whether bytes are UTF-8 throughout (RFC 3629). The framework's own check takes any byte for one that continues a
    character, and what it then walks over is not the text that it has checked: it leaves it at the end. */
inline bool isValidUtf8 (std::string_view bytes)
{
    constexpr std::array<std::uint32_t, 4> least { 0, 0x80, 0x800, 0x10000 }; // by the number of continuing bytes

    for (std::size_t i = 0; i < bytes.size();)
    {
        const auto lead = static_cast<unsigned char> (bytes[i++]);

        if (lead < 0x80)
            continue;

        const auto numMore = lead < 0xc2 || lead > 0xf4 ? 0u : lead < 0xe0 ? 1u : lead < 0xf0 ? 2u : 3u;

        if (numMore == 0 || bytes.size() - i < numMore)
            return false;

        std::uint32_t character = lead & (0x3fu >> numMore);

        for (auto n = numMore; n > 0; --n)
        {
            const auto next = static_cast<unsigned char> (bytes[i++]);

            if ((next & 0xc0) != 0x80)
                return false;

            character = (character << 6) | (next & 0x3fu);
        }

        const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;

        if (character < least[numMore] || character > 0x10ffff || isSurrogate)
            return false;
    }

    return true;
}

} // namespace kestreleq
