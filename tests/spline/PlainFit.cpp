#include "PlainFit.h"

#include <algorithm>
#include <array>

using Points = std::vector<Point2D>;
using Numbers = std::vector<double>;
using Cubic = std::array<Point2D, 4>;

namespace {

double power(double aBase, unsigned aExponent)
{
    double result = 1.0;
    for (unsigned i = 0; i < aExponent; ++i)
        result *= aBase;
    return result;
}

double squared(Point2D aPoint)
{
    return aPoint.x * aPoint.x + aPoint.y * aPoint.y;
}

bool isUnset(Point2D aTangent)
{
    return 1e-6 >= std::fabs(aTangent.x) && 1e-6 >= std::fabs(aTangent.y);
}

Numbers chordParameters(const Points& aSamples)
{
    Numbers u(aSamples.size(), 0.0);
    for (std::size_t i = 1; i < u.size(); ++i)
        u[i] = u[i - 1] + lenPower(aSamples[i] - aSamples[i - 1]);
    const double total = u.back();
    if (total == 0.0)
        return u;
    for (std::size_t i = 1; i < u.size(); ++i) {
        if (std::isfinite(total))
            u[i] = u[i] / total;
        else
            u[i] = double(i) / double(u.size() - 1);
    }
    u.back() = 1.0;
    return u;
}

Point2D firstDirection(const Points& aSamples, double aSquaredTolerance)
{
    Point2D t;
    for (std::size_t i = 1; i < aSamples.size(); ++i) {
        t = aSamples[i] - aSamples[0];
        if (squared(t) > aSquaredTolerance)
            break;
    }
    return squared(t) == 0.0 ? unitVector(aSamples[1] - aSamples[0]) : unitVector(t);
}

std::array<double, 4> weights(double u)
{
    const double s = 1.0 - u;
    return {power(s, 3), 3.0 * u * s * s, 3.0 * u * u * s, power(u, 3)};
}

void lengths(Cubic& aCubic, const Points& d, const Numbers& u, Point2D aLeft, Point2D aRight)
{
    const std::size_t n = d.size();
    double c[2][2] = {{0.0, 0.0}, {0.0, 0.0}};
    double x[2] = {0.0, 0.0};
    for (std::size_t i = 0; i < n; ++i) {
        const std::array<double, 4> b = weights(u[i]);
        const Point2D a[2] = {b[1] * aLeft, b[2] * aRight};
        const Point2D shortfall = d[i] - (b[0] + b[1]) * d[0] - (b[2] + b[3]) * d[n - 1];
        for (int row = 0; row < 2; ++row) {
            for (int column = 0; column < 2; ++column)
                c[row][column] += dot(a[row], a[column]);
            x[row] += dot(a[row], shortfall);
        }
    }
    const double det = c[0][0] * c[1][1] - c[0][1] * c[0][1];
    double alphaLeft = 0.0;
    double alphaRight = 0.0;
    if (det != 0.0) {
        alphaLeft = (x[0] * c[1][1] - x[1] * c[0][1]) / det;
        alphaRight = (c[0][0] * x[1] - x[0] * c[0][1]) / det;
    } else if (c[0][0] + c[0][1] != 0.0) {
        alphaLeft = alphaRight = x[0] / (c[0][0] + c[0][1]);
    } else if (c[1][1] + c[0][1] != 0.0) {
        alphaLeft = alphaRight = x[1] / (c[1][1] + c[0][1]);
    }
    // Where nothing was solved both are 0 and take the way of those that are too short.
    if (alphaLeft < 1e-6 || alphaRight < 1e-6)
        alphaLeft = alphaRight = lenPower(d[n - 1] - d[0]) / 3.0;
    aCubic = {d[0], alphaLeft * aLeft + d[0], alphaRight * aRight + d[n - 1], d[n - 1]};
}

void freeFirstControl(Cubic& aCubic, const Points& d, const Numbers& u)
{
    Point2D sum;
    double den = 0.0;
    for (std::size_t i = 0; i < d.size(); ++i) {
        const std::array<double, 4> b = weights(u[i]);
        sum.x += b[1] * (b[0] * aCubic[0].x + b[2] * aCubic[2].x + b[3] * aCubic[3].x - d[i].x);
        sum.y += b[1] * (b[0] * aCubic[0].y + b[2] * aCubic[2].y + b[3] * aCubic[3].y - d[i].y);
        den -= b[1] * b[1];
    }
    aCubic[1] = den != 0.0 ? sum / den : (2.0 * aCubic[0] + 1.0 * aCubic[3]) / 3.0;
}

void cubicFor(Cubic& aCubic, const Points& d, const Numbers& u, Point2D aLeft, Point2D aRight, double aError)
{
    const Points backwards(d.rbegin(), d.rend());
    Point2D left = isUnset(aLeft) ? firstDirection(d, aError) : aLeft;
    const Point2D right = isUnset(aRight) ? firstDirection(backwards, aError) : aRight;
    lengths(aCubic, d, u, left, right);
    if (isUnset(aLeft)) {
        freeFirstControl(aCubic, d, u);
        if (aCubic[1] != aCubic[0])
            left = unitVector(aCubic[1] - aCubic[0]);
        lengths(aCubic, d, u, left, right);
    }
}

double worst(const Points& d, const Numbers& u, const Cubic& aCubic, double aTolerance, unsigned& aSplit)
{
    double farthest = 0.0;
    double hook = 0.0;
    unsigned hookAt = 0;
    for (unsigned i = 1; i < d.size(); ++i) {
        const Point2D before = i == 1 ? aCubic[0] : PlainFit::bezier(3, aCubic.data(), u[i - 1]);
        const Point2D here = PlainFit::bezier(3, aCubic.data(), u[i]);
        const Point2D between = PlainFit::bezier(3, aCubic.data(), 0.5 * (u[i - 1] + u[i]));
        if (squared(here - d[i]) > farthest) {
            farthest = squared(here - d[i]);
            aSplit = i;
        }
        const double bulge = lenPower(0.5 * (before + here) - between);
        const double ratio = aTolerance > bulge ? 0.0 : bulge / (aTolerance + lenPower(here - before));
        if (ratio > hook) {
            hook = ratio;
            hookAt = i;
        }
    }
    if (std::sqrt(farthest) / aTolerance >= hook)
        return std::sqrt(farthest) / aTolerance;
    aSplit = hookAt - 1;
    return -hook;
}

} // namespace

Point2D PlainFit::bezier(unsigned aDegree, const Point2D* aControls, double aT)
{
    const double binomials[4][4] = {{1, 0, 0, 0}, {1, 1, 0, 0}, {1, 2, 1, 0}, {1, 3, 3, 1}};
    Point2D sum = power(1.0 - aT, aDegree) * aControls[0];
    for (unsigned i = 1; i <= aDegree; ++i)
        sum = sum + binomials[aDegree][i] * power(1.0 - aT, aDegree - i) * power(aT, i) * aControls[i];
    return sum;
}

double PlainFit::newton(const Point2D* aCubic, Point2D aSample, double aU)
{
    Point2D first[3];
    for (unsigned i = 0; i < 3; ++i)
        first[i] = 3.0 * (aCubic[i + 1] - aCubic[i]);
    Point2D second[2];
    for (unsigned i = 0; i < 2; ++i)
        second[i] = 2.0 * (first[i + 1] - first[i]);
    const Point2D gap = bezier(3, aCubic, aU) - aSample;
    const Point2D slope = bezier(2, first, aU);
    const double numerator = dot(gap, slope);
    const double denominator = dot(slope, slope) + dot(gap, bezier(1, second, aU));
    double u = aU;
    if (denominator > 0.0)
        u = aU - numerator / denominator;
    else if (numerator > 0.0)
        u = aU * 0.98 - 0.01;
    else if (numerator < 0.0)
        u = aU * 0.98 + 0.031;
    if (!std::isfinite(u))
        u = aU;
    if (u < 0.0)
        u = 0.0;
    if (u > 1.0)
        u = 1.0;
    double proportion = 0.125;
    while (squared(bezier(3, aCubic, u) - aSample) > squared(gap)) {
        if (proportion > 1.0)
            return aU;
        u = u * (1.0 - proportion) + proportion * aU;
        proportion += 0.125;
    }
    return u;
}

int PlainFit::full(const Points& aSamples, Point2D aLeft, Point2D aRight, double aError,
                   unsigned aMaxSegments)
{
    *this = PlainFit();
    theError = aError;
    if (aSamples.empty() || aMaxSegments == 0 || aError < 0.0)
        return -1;
    return fit({aSamples, aLeft, aRight, aMaxSegments, 0, 1});
}

int PlainFit::accept(const Job& aJob, const Point2D* aCubic, const Numbers& aParams)
{
    theSegments.insert(theSegments.end(), aCubic, aCubic + 4);
    theLeaves.push_back({aJob.start, unsigned(aJob.d.size()), aParams});
    return 1;
}

int PlainFit::fit(const Job& aJob)
{
    const Points& d = aJob.d;
    theDeepest = std::max(theDeepest, aJob.depth);
    if (d.size() == 1)
        return 0;
    if (d.size() == 2) {
        Cubic line = {d[0], d[0], d[1], d[1]};
        const double third = lenPower(d[1] - d[0]) / 3.0;
        if (!std::isnan(third)) {
            line[1] = isUnset(aJob.left) ? (2.0 * d[0] + d[1]) / 3.0 : d[0] + third * aJob.left;
            line[2] = isUnset(aJob.right) ? (d[0] + 2.0 * d[1]) / 3.0 : d[1] + third * aJob.right;
        }
        return accept(aJob, line.data(), {});
    }
    Numbers u = chordParameters(d);
    if (u.back() == 0.0)
        return 0;
    const double tolerance = std::sqrt(theError + 1e-9);
    double ratio = 0.0;
    unsigned splitAt = 0;
    for (int pass = 0; pass < 5; ++pass) {
        Cubic cubic;
        cubicFor(cubic, d, u, aJob.left, aJob.right, theError);
        for (std::size_t i = 1; i + 1 < d.size(); ++i)
            u[i] = newton(cubic.data(), d[i], u[i]);
        ratio = worst(d, u, cubic, tolerance, splitAt);
        if (std::fabs(ratio) <= 1.0)
            return accept(aJob, cubic.data(), u);
        if (pass == 0 && !(0.0 <= ratio && ratio <= 3.0))
            break;
    }
    return split(aJob, ratio, splitAt);
}

int PlainFit::split(const Job& aJob, double aRatio, unsigned aSplit)
{
    const Points& d = aJob.d;
    const bool hook = aRatio < 0.0;
    if (hook && aSplit == 0 && !isUnset(aJob.left)) {
        ++theRestarts;
        Job again = aJob;
        again.left = {};
        return fit(again);
    }
    if (hook && aSplit == 0)
        aSplit = 1;
    if (hook && aSplit == d.size() - 1 && !isUnset(aJob.right)) {
        ++theRestarts;
        Job again = aJob;
        again.right = {};
        return fit(again);
    }
    if (hook && aSplit == d.size() - 1)
        aSplit = unsigned(d.size()) - 2;
    if (aJob.budget == 1)
        return -1;
    Point2D arriving;
    if (!hook) {
        const bool turnsBack = d[aSplit - 1] == d[aSplit + 1];
        arriving = unitVector(turnsBack ? rot90(d[aSplit] - d[aSplit - 1]) : d[aSplit - 1] - d[aSplit + 1]);
    }
    const Point2D leaving = hook ? Point2D() : -arriving;
    const auto middle = d.begin() + aSplit;
    const int leftCount = fit(
        {Points(d.begin(), middle + 1), aJob.left, arriving, aJob.budget - 1, aJob.start, aJob.depth + 1});
    if (leftCount < 0)
        return -1;
    theJoints.push_back({aJob.start, unsigned(d.size()), aSplit});
    const int rightCount = fit({Points(middle, d.end()), leaving, aJob.right,
                                aJob.budget - unsigned(leftCount), aJob.start + aSplit, aJob.depth + 1});
    return rightCount < 0 ? -1 : leftCount + rightCount;
}
