#include "tests/support/ReferenceParameters.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace kestreleq::test
{
namespace
{

// clang-format off
constexpr std::array<std::pair<std::string_view, std::string_view>, 10> linkedPairs { {
    { "sub", "subR" }, { "40hz", "40hzR" }, { "160hz", "160hzR" }, { "650hz", "650hzR" }, { "2500hz", "2500hzR" },
    { "airGain", "airGainR" }, { "airBand", "airBandR" }, { "inGain1", "inGain2" }, { "outGain1", "outGain2" },
    { "laneABypass", "laneBBypass" },
} };

// clang-format on

std::size_t indexOf (std::string_view id)
{
    const auto* const found =
        std::find_if (parameterTable.begin(), parameterTable.end(), [id] (const auto& info) { return info.id == id; });

    if (found == parameterTable.end())
        throw std::out_of_range ("no parameter '" + std::string (id) + "'");

    return static_cast<std::size_t> (found - parameterTable.begin());
}

} // namespace

ReferenceParameters::ReferenceParameters()
{
    std::transform (parameterTable.begin(), parameterTable.end(), values.begin(),
        [] (const auto& info) { return info.defaultValue; });
}

float ReferenceParameters::get (std::string_view id) const
{
    return values[indexOf (id)];
}

float ReferenceParameters::laneValue (int lane, int control) const
{
    return values.at (static_cast<std::size_t> (control + (isOn ("link") ? 0 : lane * 7)));
}

void ReferenceParameters::store (std::string_view id, float value)
{
    const auto index = indexOf (id);
    const auto clamped = std::clamp (value, 0.0f, 1.0f);
    values[index] = parameterTable[index].stepped ? std::floor (clamped + 0.5f) : clamped;
}

void ReferenceParameters::set (std::string_view id, float value)
{
    store (id, value);

    // A copy only stores: it is never answered by further copies.
    for (const auto& [linkId, first, second] :
        { std::array { "inGainLink", "inGain1", "inGain2" }, std::array { "outGainLink", "outGain1", "outGain2" } })
    {
        if (id == linkId && isOn (id))
            return copy (first, second);

        if (isOn (linkId) && (id == first || id == second))
            return copy (id, id == first ? second : first);
    }

    if (! isOn ("link"))
        return;

    for (const auto& [first, second] : linkedPairs)
    {
        if (id == "link" || id == first)
            copy (first, second);
        else if (id == second)
            copy (second, first);
    }
}

} // namespace kestreleq::test
