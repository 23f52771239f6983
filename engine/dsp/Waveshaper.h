#pragma once

#include <cmath>

namespace kestreleq::dsp
{

/** The polynomial f (x) = x + a x^2 + b x^3 + c x^4 with second-order antiderivative anti-aliasing, after Bilbao,
    Esqueda, Parker and Valimaki, "Antiderivative antialiasing for memoryless nonlinearities" (2017).

    The method divides differences of f's second antiderivative F2 by the steps between three samples. For a polynomial
    that division comes out even: the n-th divided difference of x^k is the sum of all products of k - n of its points.
    The sums have no cancellation and need no division; only where a step is too small for the method, and it takes
    first differences of values instead, is there anything to divide. */
class Waveshaper
{
public:
    /** A step below this is none. */
    static constexpr double smallestStep = 1e-5;

    constexpr Waveshaper (double square, double cube, double fourth)
        : a (square),
          b (cube),
          c (fourth)
    {
    }

    void reset() { x1 = x2 = 0.0; }

    double process (double x)
    {
        const auto y = shape (x, x1, x2);
        x2 = x1;
        x1 = x;
        return y;
    }

    /** The output for an input and the two before it, the latest first. */
    double shape (double x, double before, double beforeThat) const
    {
        const bool moved = isStep (x - before);
        const bool movedBefore = isStep (before - beforeThat);
        const auto step = x - beforeThat;

        if (! isStep (step))
            return moved ? firstDifference (x, before) : x * (1.0 + x * (a + x * (b + x * c)));

        if (moved && movedBefore)
            return secondDifference (x, before, beforeThat);

        const auto late = moved ? differenceOfSecond (x, before) : firstAntiderivative (x);
        const auto early = movedBefore ? differenceOfSecond (before, beforeThat) : firstAntiderivative (before);
        return 2.0 * (late - early) / step;
    }

private:
    static bool isStep (double difference) { return std::abs (difference) >= smallestStep; }

    /** Sums of the products of two points, by degree: p + q, p^2 + p q + q^2, and so on. */
    struct Sums
    {
        Sums (double p, double q)
        {
            const auto q2 = q * q;
            const auto q3 = q2 * q;
            const auto q4 = q3 * q;
            one = p + q;
            two = p * one + q2;
            three = p * two + q3;
            four = p * three + q4;
            five = p * four + q4 * q;
        }

        double one, two, three, four, five;
    };

    /** F1, the first antiderivative of f. */
    double firstAntiderivative (double x) const
    {
        return x * x * (1.0 / 2.0 + x * (a * (1.0 / 3.0) + x * (b * (1.0 / 4.0) + x * (c * (1.0 / 5.0)))));
    }

    /** (F1 (p) - F1 (q)) / (p - q). */
    double firstDifference (double p, double q) const
    {
        const Sums sum (p, q);
        return sum.one * (1.0 / 2.0) +
            (a * (1.0 / 3.0) * sum.two + (b * (1.0 / 4.0) * sum.three + c * (1.0 / 5.0) * sum.four));
    }

    /** (F2 (p) - F2 (q)) / (p - q). */
    double differenceOfSecond (double p, double q) const
    {
        const Sums sum (p, q);
        return sum.two * (1.0 / 6.0) +
            (a * (1.0 / 12.0) * sum.three + (b * (1.0 / 20.0) * sum.four + c * (1.0 / 30.0) * sum.five));
    }

    /** Twice the second divided difference of F2 over three points. */
    double secondDifference (double p, double q, double r) const
    {
        const Sums early (q, r);
        const auto one = (p + q) + r;
        const auto two = p * one + early.two;
        const auto three = p * two + early.three;
        const auto four = p * three + early.four;
        return one * (1.0 / 3.0) + (a * (1.0 / 6.0) * two + (b * (1.0 / 10.0) * three + c * (1.0 / 15.0) * four));
    }

    double a, b, c;
    double x1 = 0.0;
    double x2 = 0.0;
};

} // namespace kestreleq::dsp
