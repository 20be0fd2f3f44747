#ifndef FITCHECKER_H
#define FITCHECKER_H

#include "PlainFit.h"

#include <QString>

/// A fit and everything that it is asked with.
struct FitCase
{
    std::vector<Point2D> theSamples; // without repeated ones or NaN, at least two
    Point2D theLeft;
    Point2D theRight;
    double theError = 0.5;
    unsigned theMaxSegments = 1;
};

/// Runs a fit twice and holds it against every promise and the plain fit.
class FitChecker
{
public:
    explicit FitChecker(const FitCase& aCase);

    /// What the fit breaks, empty when it keeps all.
    QString problem();

    const PlainFit& plain() const { return thePlain; }
    int count() const { return theCount; }

private:
    void run(std::vector<Point2D>& aOut, std::vector<int>& aSplits, double aFill);
    QString problemWithCount() const;
    QString problemWithPlainFit() const;
    QString problemWithJoints() const;
    QString problemWithSplits() const;
    QString problemWithSegment(int aIndex) const;
    bool isModest() const;

    const FitCase theCase;
    PlainFit thePlain;
    std::vector<Point2D> theOut;
    std::vector<int> theSplits;
    int theCount = 0;
    int thePlainCount = 0;
};

/// Equal to the bit, or both NaN.
bool sameNumbers(const Point2D& a, const Point2D& b);

#endif
