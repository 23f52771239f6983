#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace kestreleq::analysis
{

/** The power spectrum of a real frame of N samples, by the framework's complex FFT of N / 2: half the time of its real
    one where it runs on its own code, and no scratch memory per call at any size. */
class RealFft
{
public:
    RealFft();
    ~RealFft();

    /** N: a power of two, 8 or more. Allocates; the tables of an N are shared. */
    void prepare (std::size_t frameLength);

    /** Where the N samples go before a transform. */
    std::span<float> input();

    /** Writes |X(k)|^2 of the bins k = 0..N / 2, unscaled, into as many places. */
    void transform (std::span<float> power);

private:
    struct Tables;

    std::shared_ptr<const Tables> tables;
    std::vector<std::complex<float>> packed;
    std::vector<std::complex<float>> transformed;
};

} // namespace kestreleq::analysis
