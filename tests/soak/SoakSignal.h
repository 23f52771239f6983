#pragma once

#include <cstdint>
#include <iterator>
#include <limits>
#include <random>

namespace kestreleq::test
{

/** What goes into a soak: seeded, and the same on every platform. Everything but the huge kind stays within full
    scale. */
class SoakSignal
{
public:
    enum class Kind
    {
        noise,
        quietNoise,
        square, // full scale
        silence,
        denormal,
        notFinite, // noise with infinities and NaN in it
        huge       // up to the greatest float
    };

    explicit SoakSignal (std::uint32_t seed)
        : random (seed)
    {
    }

    void setKind (Kind newKind) { kind = newKind; }

    Kind getKind() const { return kind; }

    float next()
    {
        using Limits = std::numeric_limits<float>;
        constexpr float bad[] { Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity() };

        switch (kind)
        {
            case Kind::square:
                squarePosition = (squarePosition + 1) % 331;
                return squarePosition < 165 ? 1.0f : -1.0f;

            case Kind::silence:
                return 0.0f;

            case Kind::notFinite:
                if (const auto i = random() % 4096; i < std::size (bad))
                    return bad[i];

                break;

            default:
                break;
        }

        const auto level = kind == Kind::quietNoise ? 1e-4f
            : kind == Kind::denormal                ? Limits::min()
            : kind == Kind::huge                    ? Limits::max()
                                                    : 1.0f;
        return level * (static_cast<float> (static_cast<std::int32_t> (random())) / 2147483648.0f);
    }

private:
    std::mt19937 random;
    Kind kind = Kind::noise;
    int squarePosition = 0;
};

} // namespace kestreleq::test
