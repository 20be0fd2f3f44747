#ifndef DEVIATIONCOUNTER_H
#define DEVIATIONCOUNTER_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

/// The standard deviation of values about 0, told from their median so that a minority of far ones has no
/// say.
class DeviationCounter
{
public:
    void add(int aDeviation)
    {
        const int distance = std::min(std::abs(aDeviation), int(kDistances) - 1);
        ++theCounts[std::size_t(distance)];
        ++theTotal;
    }

    /// 0 without values. Whole numbers stand for all that round to them, so it is right below 1 as well.
    double sigma() const
    {
        constexpr double kSigmaPerMedian = 1.4826; // of a normal distribution
        int nearer = 0;
        for (std::size_t distance = 0; distance < kDistances; ++distance) {
            const int here = theCounts[distance];
            if (here > 0 && 2 * (nearer + here) >= theTotal) {
                const double part = (0.5 * theTotal - nearer) / here;
                return kSigmaPerMedian * (distance == 0 ? 0.5 * part : double(distance) - 0.5 + part);
            }
            nearer += here;
        }
        return 0.0;
    }

    /// What independent noise of 1 makes of a - 2b + c; the picture's own slopes cancel out in it.
    static constexpr double kSecondDifference = 2.449489743;

private:
    static constexpr std::size_t kDistances = 1024;
    std::array<int, kDistances> theCounts{};
    int theTotal = 0;
};

#endif
