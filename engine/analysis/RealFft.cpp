#include "engine/analysis/RealFft.h"

#include "engine/analysis/SharedTables.h"

#include <juce_dsp/juce_dsp.h>

#include <bit>
#include <numbers>

namespace kestreleq::analysis
{

/** What depends on the length alone. */
struct RealFft::Tables
{
    explicit Tables (std::size_t frameLength)
        : halfFft (std::countr_zero (frameLength / 2)),
          twiddles (frameLength / 4 + 1)
    {
        for (std::size_t k = 0; k < twiddles.size(); ++k)
        {
            const auto angle = -2.0 * std::numbers::pi * static_cast<double> (k) / static_cast<double> (frameLength);
            twiddles[k] = std::complex<float> (std::polar (1.0, angle));
        }
    }

    juce::dsp::FFT halfFft;
    std::vector<std::complex<float>> twiddles;
};

RealFft::RealFft() = default;
RealFft::~RealFft() = default;

void RealFft::prepare (std::size_t frameLength)
{
    static SharedTables<std::size_t, Tables> shared;
    tables = shared.get (frameLength, [=] { return Tables (frameLength); });
    packed.assign (frameLength / 2, {});
    transformed.assign (frameLength / 2, {});
}

std::span<float> RealFft::input()
{
    return { reinterpret_cast<float*> (packed.data()), 2 * packed.size() };
}

/*  Even samples are the real parts of z, odd ones the imaginary parts. With M = N / 2, W = exp (-2 pi i / N):
        E(k) = (Z(k) + conj Z(M - k)) / 2,  O(k) = (Z(k) - conj Z(M - k)) / 2i,
        X(k) = E(k) + W^k O(k),  X(M - k) = conj (E(k) - W^k O(k)).
    Press et al., Numerical Recipes, "FFT of Real Functions". */
void RealFft::transform (std::span<float> power)
{
    tables->halfFft.perform (packed.data(), transformed.data(), false);

    const auto half = transformed.size();
    const auto sum = transformed[0].real() + transformed[0].imag();
    const auto difference = transformed[0].real() - transformed[0].imag();
    power[0] = sum * sum;
    power[half] = difference * difference;

    for (std::size_t k = 1; k <= half / 2; ++k)
    {
        const auto a = transformed[k];
        const auto b = transformed[half - k];
        const auto evenReal = (a.real() + b.real()) * 0.5f;
        const auto evenImaginary = (a.imag() - b.imag()) * 0.5f;
        const auto oddReal = (a.imag() + b.imag()) * 0.5f;
        const auto oddImaginary = (b.real() - a.real()) * 0.5f;

        // Spelt out: the product of std::complex tests every result for NaN.
        const auto w = tables->twiddles[k];
        const auto real = w.real() * oddReal - w.imag() * oddImaginary;
        const auto imaginary = w.real() * oddImaginary + w.imag() * oddReal;
        const auto powerOf = [] (float x, float y) { return x * x + y * y; };
        power[k] = powerOf (evenReal + real, evenImaginary + imaginary);
        power[half - k] = powerOf (evenReal - real, evenImaginary - imaginary);
    }
}

} // namespace kestreleq::analysis
