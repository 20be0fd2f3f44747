#include "SmoothSurface.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// What no few terms describe, like the darkening toward the corners behind a lens, lies about so far from the
// best surface.
constexpr double kLeastSpread = 1.5;
// What lies within so many standard deviations belongs to a surface.
constexpr double kReach = 3.0;

size_t termsOf(int aDegree)
{
    return size_t((aDegree + 1) * (aDegree + 2) / 2);
}

template <class T>
double valueOf(const T& aTerms, const T& aAt)
{
    double sum = 0.0;
    for (size_t i = 0; i < aTerms.size(); ++i)
        sum += aTerms[i] * aAt[i];
    return sum;
}

double place(int aIndex, int aCount)
{
    return aCount > 1 ? 2.0 * aIndex / (aCount - 1) - 1.0 : 0.0;
}

} // namespace

SmoothSurface::SmoothSurface(const std::vector<float>& aField, int aColumns, int aRows, double aNoise)
    : theColumns(aColumns), theRows(aRows), theNoise(std::max(aNoise, kLeastSpread))
{
    takeSamples(aField);
    // What is ground may be the greater part, the darker or the brighter one, and under even or uneven light.
    bool first = true;
    for (const double share : {0.5, 0.15, 0.85})
        for (const int degree : {1, 2}) {
            const Fit fit = bestFrom(startAt(degree, share), degree);
            if (first || fit.theScore > theFit.theScore)
                theFit = fit;
            first = false;
        }
    bend();
}

/// The products of Legendre polynomials, by rising degree: nearly independent of each other over the field.
SmoothSurface::Terms SmoothSurface::termsAt(double aX, double aY)
{
    const auto legendre = [](double aT) {
        const double t2 = aT * aT;
        return std::array<double, kDegree + 1>{1.0, aT, 1.5 * t2 - 0.5, (2.5 * t2 - 1.5) * aT,
                                               (4.375 * t2 - 3.75) * t2 + 0.375};
    };
    const auto x = legendre(aX);
    const auto y = legendre(aY);
    Terms terms{};
    size_t next = 0;
    for (size_t degree = 0; degree <= kDegree; ++degree)
        for (size_t i = 0; i <= degree; ++i)
            terms[next++] = x[degree - i] * y[i];
    return terms;
}

void SmoothSurface::takeSamples(const std::vector<float>& aField)
{
    // Fifteen terms need no more places than this.
    constexpr int kMostPerSide = 36;
    // The field's frame counts three times as much as its area: it shows the ground between and beside things
    // that fill most of a closely drawn field.
    constexpr double kFrameShare = 0.75;
    // So do its corners up to this part of its shorter side, which round things leave free longest.
    constexpr double kCorner = 0.15;
    const int longer = std::max(theColumns, theRows);
    const int step = std::max(1, longer / kMostPerSide);
    const int lastColumn = (theColumns - 1) / step * step;
    const int lastRow = (theRows - 1) / step * step;
    double frameCount = 0.0;
    std::vector<bool> inFrame;
    for (int y = 0; y < theRows; y += step)
        for (int x = 0; x < theColumns; x += step) {
            const double value = double(aField[size_t(y) * size_t(theColumns) + size_t(x)]);
            theSamples.push_back({termsAt(place(x, theColumns), place(y, theRows)), value, 0.0});
            const int fromSide = std::min(x, lastColumn - x);
            const int fromEnd = std::min(y, lastRow - y);
            inFrame.push_back(fromSide == 0 || fromEnd == 0 ||
                              fromSide + fromEnd < kCorner * std::min(lastColumn, lastRow));
            frameCount += inFrame.back() ? 1.0 : 0.0;
        }
    const double areaWeight = (1.0 - kFrameShare) / double(theSamples.size());
    for (size_t i = 0; i < theSamples.size(); ++i)
        theSamples[i].theWeight = areaWeight + (inFrame[i] ? kFrameShare / frameCount : 0.0);
}

/// Least squares with weights.
void SmoothSurface::improve(Fit& aFit, int aDegree, const std::vector<double>& aWeights) const
{
    const int count = int(termsOf(aDegree));
    cv::Mat products = cv::Mat::zeros(count, count, CV_64F);
    cv::Mat right = cv::Mat::zeros(count, 1, CV_64F);
    for (size_t s = 0; s < theSamples.size(); ++s) {
        if (aWeights[s] <= 0.0)
            continue;
        const Terms& at = theSamples[s].theTerms;
        for (int i = 0; i < count; ++i) {
            const double weighted = aWeights[s] * at[size_t(i)];
            right.at<double>(i) += weighted * theSamples[s].theValue;
            auto* row = products.ptr<double>(i);
            for (int j = 0; j <= i; ++j)
                row[j] += weighted * at[size_t(j)];
        }
    }
    cv::completeSymm(products, true);
    // Where no sample holds a term it stays near 0 instead of running away.
    const double pull = 1e-3 * products.at<double>(0, 0) + 1e-9;
    for (int i = 0; i < count; ++i)
        products.at<double>(i, i) += i < 3 ? 1e-3 * pull : pull;
    cv::Mat terms;
    cv::solve(products, right, terms, cv::DECOMP_CHOLESKY);
    aFit.theTerms.fill(0.0);
    std::copy(terms.begin<double>(), terms.end<double>(), aFit.theTerms.begin());
}

/// A surface with about the wanted share of the values below it.
SmoothSurface::Fit SmoothSurface::startAt(int aDegree, double aShare) const
{
    Fit fit;
    std::vector<double> weights(theSamples.size(), 1.0);
    improve(fit, 1, weights);
    for (int round = 0; round < 8; ++round) {
        for (size_t i = 0; i < weights.size(); ++i) {
            const double rest = theSamples[i].theValue - valueOf(fit.theTerms, theSamples[i].theTerms);
            weights[i] = theSamples[i].theWeight * (rest > 0.0 ? aShare : 1.0 - aShare) /
                         std::max(std::abs(rest), 1.0);
        }
        improve(fit, round < 3 ? 1 : aDegree, weights);
    }
    return fit;
}

void SmoothSurface::improveWithin(Fit& aFit, int aDegree, double aReach) const
{
    std::vector<double> weights(theSamples.size());
    for (size_t i = 0; i < weights.size(); ++i) {
        const double part =
            (theSamples[i].theValue - valueOf(aFit.theTerms, theSamples[i].theTerms)) / aReach;
        const double nearness = std::max(0.0, 1.0 - part * part);
        weights[i] = theSamples[i].theWeight * nearness * nearness;
    }
    improve(aFit, aDegree, weights);
}

/// The distance from the surface within which half of all weight lies.
double SmoothSurface::middleDistance(const Fit& aFit) const
{
    std::vector<std::pair<double, double>> distances; // with weights
    for (const Sample& sample : theSamples)
        distances.emplace_back(std::abs(sample.theValue - valueOf(aFit.theTerms, sample.theTerms)),
                               sample.theWeight);
    std::sort(distances.begin(), distances.end());
    double nearer = 0.0;
    double middle = 0.0;
    for (const auto& [distance, weight] : distances) {
        if (nearer >= 0.5)
            break;
        nearer += weight;
        middle = distance;
    }
    return middle;
}

/// Narrows the reach of the surface step by step; the best of all steps explains most values best.
SmoothSurface::Fit SmoothSurface::bestFrom(Fit aFit, int aDegree) const
{
    constexpr double kNarrowing = 0.7;
    constexpr int kRounds = 3;
    const double least = kReach * theNoise;
    double reach = std::max(2.0 * kReach * middleDistance(aFit), least);
    Fit best;
    for (bool first = true; first || reach >= least; first = false, reach *= kNarrowing) {
        for (int round = 0; round < kRounds; ++round)
            improveWithin(aFit, aDegree, reach);
        rate(aFit, reach);
        if (first || aFit.theScore > best.theScore)
            best = aFit;
    }
    return best;
}

/// Bends the surface as far as more terms explain the values better.
void SmoothSurface::bend()
{
    for (const int degree : {2, kDegree})
        for (const double widening : {1.0, 2.0, 4.0}) {
            Fit fit = theFit;
            for (int round = 0; round < 6; ++round)
                improveWithin(fit, degree, widening * kReach * theFit.theSpread);
            for (int round = 0; round < 3; ++round)
                improveWithin(fit, degree, kReach * theFit.theSpread);
            fit = bestFrom(fit, degree);
            if (fit.theScore > theFit.theScore)
                theFit = fit;
        }
}

/// The mean logarithm of the likelihood of the values, where those within reach vary about the surface by its
/// spread and all others lie anywhere in their range; less for rough ground.
void SmoothSurface::rate(Fit& aFit, double aReach) const
{
    // Ground is smoother than things, and rather looks plain than fits all.
    constexpr double kRoughness = 0.4;
    constexpr double kRootTwoPi = 2.506628;
    double share = 0.0;
    double squares = 0.0;
    double least = 0.0;
    double greatest = 0.0;
    for (const Sample& sample : theSamples) {
        const double rest = sample.theValue - valueOf(aFit.theTerms, sample.theTerms);
        least = std::min(least, rest);
        greatest = std::max(greatest, rest);
        if (std::abs(rest) < aReach) {
            share += sample.theWeight;
            squares += sample.theWeight * rest * rest;
        }
    }
    const double range = std::max(greatest - least, 2.0 * aReach);
    aFit.theSpread = std::max(theNoise, share > 0.0 ? std::sqrt(squares / share) : 0.0);
    const double others = 1.0 - share;
    aFit.theScore = share > 0.0 ? share * (std::log(share / (aFit.theSpread * kRootTwoPi)) - 0.5) : -1e9;
    aFit.theScore += others > 1e-9 ? others * std::log(others / range) : 0.0;
    aFit.theScore -= kRoughness * std::log(aFit.theSpread / theNoise);
}

std::vector<float> SmoothSurface::values() const
{
    std::vector<float> result;
    result.reserve(size_t(theColumns) * size_t(theRows));
    for (int y = 0; y < theRows; ++y)
        for (int x = 0; x < theColumns; ++x)
            result.push_back(
                float(valueOf(theFit.theTerms, termsAt(place(x, theColumns), place(y, theRows)))));
    return result;
}
