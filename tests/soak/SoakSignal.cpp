#include "tests/soak/SoakSignal.h"

#include <limits>

namespace kestreleq::test
{

void SoakSignal::fill (std::span<float> samples)
{
    for (auto& sample : samples)
        sample = next();
}

float SoakSignal::next()
{
    using Limits = std::numeric_limits<float>;

    switch (kind)
    {
        case Kind::noise:
            return noise();

        case Kind::quietNoise:
            return noise() * 1e-4f;

        case Kind::square:
            squarePosition = (squarePosition + 1) % 331;
            return squarePosition < 165 ? 1.0f : -1.0f;

        case Kind::silence:
            return 0.0f;

        case Kind::denormal:
            return noise() * Limits::min();

        case Kind::notFinite:
            switch (random() % 4096)
            {
                case 0:
                    return Limits::quiet_NaN();
                case 1:
                    return Limits::infinity();
                case 2:
                    return -Limits::infinity();
                default:
                    return noise();
            }

        case Kind::huge:
            return noise() * Limits::max();
    }

    return 0.0f;
}

} // namespace kestreleq::test
