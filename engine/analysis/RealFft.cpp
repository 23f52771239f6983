#include "engine/analysis/RealFft.h"

#include <juce_dsp/juce_dsp.h>

#include <bit>
#include <numbers>

namespace kestreleq::analysis
{

RealFft::RealFft() = default;
RealFft::~RealFft() = default;

void RealFft::prepare (std::size_t frameLength)
{
    const auto half = frameLength / 2;
    halfFft = std::make_unique<juce::dsp::FFT> (std::countr_zero (half));
    packed.assign (half, {});
    transformed.assign (half, {});
    twiddles.resize (half / 2 + 1);

    for (std::size_t k = 0; k < twiddles.size(); ++k)
    {
        const auto angle = -2.0 * std::numbers::pi * static_cast<double> (k) / static_cast<double> (frameLength);
        twiddles[k] = std::complex<float> (std::polar (1.0, angle));
    }
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
    halfFft->perform (packed.data(), transformed.data(), false);

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
        const auto w = twiddles[k];
        const auto real = w.real() * oddReal - w.imag() * oddImaginary;
        const auto imaginary = w.real() * oddImaginary + w.imag() * oddReal;
        const auto powerOf = [] (float x, float y) { return x * x + y * y; };
        power[k] = powerOf (evenReal + real, evenImaginary + imaginary);
        power[half - k] = powerOf (evenReal - real, evenImaginary - imaginary);
    }
}

} // namespace kestreleq::analysis
