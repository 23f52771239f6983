#pragma once

#include <cstdint>
#include <random>
#include <span>

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

    void fill (std::span<float> samples);

private:
    float noise() { return static_cast<float> (static_cast<std::int32_t> (random())) / 2147483648.0f; }

    float next();

    std::mt19937 random;
    Kind kind = Kind::noise;
    int squarePosition = 0;
};

} // namespace kestreleq::test
