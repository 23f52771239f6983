#pragma once

#include <cmath>

namespace kestreleq::dsp
{

/** The polynomial f (x) = x + a x^2 + b x^3 + c x^4 with second-order antiderivative anti-aliasing, after Bilbao,
    Esqueda, Parker and Valimaki, "Antiderivative antialiasing for memoryless nonlinearities" (2017). F1 and F2 are the
    first and second antiderivatives of f. Double precision throughout: the second differences cancel. */
class Waveshaper
{
public:
    constexpr Waveshaper (double square, double cube, double fourth)
        : a (square),
          b (cube),
          c (fourth)
    {
    }

    void reset() { x1 = x2 = previousDifference = f1AtX1 = f2AtX1 = 0.0; }

    double process (double x)
    {
        const auto f1 = firstAntiderivative (x);
        const auto f2 = secondAntiderivative (x);
        const auto step1 = x - x1;
        const auto step2 = x - x2;
        const bool moved = std::abs (step1) >= smallestStep;

        const auto difference = moved ? (f2 - f2AtX1) / step1 : f1;
        double y;

        if (std::abs (step2) >= smallestStep)
            y = 2.0 * (difference - previousDifference) / step2;
        else if (moved)
            y = (f1 - f1AtX1) / step1;
        else
            y = x * (1.0 + x * (a + x * (b + x * c)));

        previousDifference = difference;
        x2 = x1;
        x1 = x;
        f1AtX1 = f1;
        f2AtX1 = f2;
        return y;
    }

private:
    static constexpr double smallestStep = 1e-5;

    double firstAntiderivative (double x) const
    {
        return x * x * (1.0 / 2.0 + x * (a / 3.0 + x * (b / 4.0 + x * (c / 5.0))));
    }

    double secondAntiderivative (double x) const
    {
        return x * x * x * (1.0 / 6.0 + x * (a / 12.0 + x * (b / 20.0 + x * (c / 30.0))));
    }

    double a, b, c;
    double x1 = 0.0;
    double x2 = 0.0;
    double previousDifference = 0.0;
    double f1AtX1 = 0.0;
    double f2AtX1 = 0.0;
};

} // namespace kestreleq::dsp
