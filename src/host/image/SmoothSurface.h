#ifndef SMOOTHSURFACE_H
#define SMOOTHSURFACE_H

#include <array>
#include <cstddef>
#include <vector>

/// A polynomial of two variables through most of a field of values, laid so that values of another kind, up
/// to more than half of them, don't bend it.
class SmoothSurface
{
public:
    /// The field's values row by row, at least one, with noise of the given standard deviation.
    SmoothSurface(const std::vector<float>& aField, int aColumns, int aRows, double aNoise);

    /// The surface at every place of the field.
    std::vector<float> values() const;
    /// How far the values that the surface explains lie from it, as a standard deviation; not 0.
    double spread() const { return theFit.theSpread; }

private:
    static constexpr int kDegree = 4;
    static constexpr size_t kTerms = (kDegree + 1) * (kDegree + 2) / 2;
    using Terms = std::array<double, kTerms>;

    struct Sample
    {
        Terms theTerms;
        double theValue;
        double theWeight; // all samples' weights sum up to 1
    };

    struct Fit
    {
        Terms theTerms{};
        double theSpread = 0.0;
        double theScore = 0.0;
    };

    static Terms termsAt(double aX, double aY);
    void takeSamples(const std::vector<float>& aField);
    Fit startAt(int aDegree, double aShare) const;
    double middleDistance(const Fit& aFit) const;
    Fit bestFrom(Fit aFit, int aDegree) const;
    void bend();
    void improve(Fit& aFit, int aDegree, const std::vector<double>& aWeights) const;
    void improveWithin(Fit& aFit, int aDegree, double aReach) const;
    void rate(Fit& aFit, double aReach) const;

    int theColumns;
    int theRows;
    double theNoise;
    std::vector<Sample> theSamples;
    Fit theFit;
};

#endif
