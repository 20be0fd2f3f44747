// How far a smoothed outline lies from its stroke.

#include "FitStrokes.h"
#include "OutlineDeviation.h"
#include "SplineOptymizeInternal.h"
#include "TestFont.h"

#include <limits>

namespace {

constexpr int kSlowSteps = 4000; // of each segment

/// Three points per node, the handles on the anchor.
Q3PointArray polygon(const QPolygon& aAnchors)
{
    Q3PointArray points;
    for (const QPoint& anchor : aAnchors)
        points << anchor << anchor << anchor;
    return points;
}

Q3PointArray rounded(const std::vector<Point2D>& aStroke)
{
    Q3PointArray points;
    for (const Point2D& point : aStroke)
        points << QPoint(qRound(point.x), qRound(point.y));
    return points;
}

/// The outline of a fit, rounded as a canvas keeps it.
Q3PointArray outlineOf(const Q3PointArray& aStroke, double aError)
{
    std::vector<Point2D> samples;
    for (const QPoint& point : aStroke)
        samples.push_back({double(point.x()), double(point.y())});
    std::vector<Point2D> out(4 * samples.size());
    SplineOptymizeInternal maths;
    const int count = maths.bezierFitCubicR(out.data(), samples.data(), int(samples.size()), aError,
                                            unsigned(samples.size()));
    Q3PointArray outline;
    for (int node = 0; node <= count; ++node) {
        for (int k = -1; k <= 1; ++k) {
            const int index = qBound(0, 4 * node + (k < 0 ? -2 : k), 4 * count - 1);
            const Point2D& point = out[std::size_t(index)];
            outline << QPoint(qRound(point.x), qRound(point.y));
        }
    }
    return outline;
}

/// No point of the slow measure is farther from its neighbour: three times the longest leg of the controls,
/// by the number of steps.
double longestStep(const Q3PointArray& aOutline)
{
    double longest = 0.0;
    for (qsizetype i = 0; i < aOutline.size(); ++i) {
        const QPoint leg = aOutline[(i + 1) % aOutline.size()] - aOutline[i];
        longest = std::max(longest, lenPower({double(leg.x()), double(leg.y())}));
    }
    return 3.0 * longest / kSlowSteps;
}

/// Every sample against many points of every segment.
double slowly(const Q3PointArray& aSamples, const Q3PointArray& aOutline, bool aClosed)
{
    SplineOptymizeInternal maths;
    const int nodes = int(aOutline.size() / 3);
    double largest = 0.0;
    for (const QPoint& sample : aSamples) {
        double nearest = std::numeric_limits<double>::infinity();
        for (int i = 0; i < (aClosed ? nodes : nodes - 1); ++i) {
            Point2D cubic[4];
            for (int k = 0; k < 4; ++k) {
                const QPoint control = aOutline[(3 * i + 1 + k) % (3 * nodes)];
                cubic[k] = {double(control.x()), double(control.y())};
            }
            for (int step = 0; step <= kSlowSteps; ++step) {
                const Point2D gap = maths.bezierPnt(3, cubic, double(step) / kSlowSteps) -
                                    Point2D(double(sample.x()), double(sample.y()));
                nearest = std::min(nearest, maths.lensq(gap));
            }
        }
        largest = std::max(largest, nearest);
    }
    return std::sqrt(largest);
}

} // namespace

class TestOutlineDeviation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingToMeasureIsZero();
    void outlineThroughItsSamplesHasNone();
    void distanceToASegmentIsSquareToIt();
    void distanceBeyondAnEndIsToTheEnd();
    void closingSegmentCountsOnlyWhenClosed();
    void curveIsMeasuredNotItsHandles();
    void singleNodeIsItsAnchor();
    void nearestSegmentMayBeAnyOne();
    void wholeIntRange();
    void agreesWithTheSlowMeasure();
};

void TestOutlineDeviation::nothingToMeasureIsZero()
{
    const Q3PointArray outline = polygon({{0, 0}, {100, 0}});
    QCOMPARE(OutlineDeviation::largest({}, outline, false), 0.0);
    QCOMPARE(OutlineDeviation::largest(QPolygon{{5, 5}}, {}, false), 0.0);
    QCOMPARE(OutlineDeviation::largest(QPolygon{{5, 5}}, QPolygon{{0, 0}, {1, 1}}, true), 0.0);
    QCOMPARE(OutlineDeviation::largest({}, {}, true), 0.0);
}

void TestOutlineDeviation::outlineThroughItsSamplesHasNone()
{
    const QPolygon stroke{{0, 0}, {30, 40}, {-10, 70}, {5, 5}};
    QVERIFY(OutlineDeviation::largest(stroke, polygon(stroke), false) < 1e-9);
    QVERIFY(OutlineDeviation::largest(stroke, polygon(stroke), true) < 1e-9);
}

void TestOutlineDeviation::distanceToASegmentIsSquareToIt()
{
    const Q3PointArray outline = polygon({{0, 0}, {30, 40}}); // direction (0.6, 0.8)
    QCOMPARE(OutlineDeviation::largest(QPolygon{{15 - 8, 20 + 6}}, outline, false), 10.0);
    // The largest of all, wherever it stands.
    const QPolygon samples{{0, 0}, {15 + 8, 20 - 6}, {15 - 4, 20 + 3}, {30, 40}};
    QCOMPARE(OutlineDeviation::largest(samples, outline, false), 10.0);
}

void TestOutlineDeviation::distanceBeyondAnEndIsToTheEnd()
{
    const Q3PointArray outline = polygon({{0, 0}, {100, 0}});
    QCOMPARE(OutlineDeviation::largest(QPolygon{{103, 4}}, outline, false), 5.0);
    QCOMPARE(OutlineDeviation::largest(QPolygon{{-6, -8}}, outline, false), 10.0);
}

void TestOutlineDeviation::closingSegmentCountsOnlyWhenClosed()
{
    const Q3PointArray outline = polygon({{0, 0}, {100, 0}, {100, 100}, {0, 100}});
    const QPolygon onTheLeft{{0, 40}};
    QCOMPARE(OutlineDeviation::largest(onTheLeft, outline, false), 40.0);
    QVERIFY(OutlineDeviation::largest(onTheLeft, outline, true) < 1e-9);
}

void TestOutlineDeviation::curveIsMeasuredNotItsHandles()
{
    // An arch 300 high from handles 400 high.
    const Q3PointArray outline = QPolygon{{0, 0}, {0, 0}, {0, 400}, {400, 400}, {400, 0}, {400, 0}};
    const double atTheTop = OutlineDeviation::largest(QPolygon{{200, 300}}, outline, false);
    QVERIFY(atTheTop < 0.011);
    QVERIFY(std::abs(OutlineDeviation::largest(QPolygon{{200, 400}}, outline, false) - 100.0) < 0.011);
}

void TestOutlineDeviation::singleNodeIsItsAnchor()
{
    const Q3PointArray node = QPolygon{{50, 50}, {10, 20}, {90, 90}};
    QCOMPARE(OutlineDeviation::largest(QPolygon{{13, 24}}, node, false), 5.0);
}

void TestOutlineDeviation::nearestSegmentMayBeAnyOne()
{
    // Back to the first segment and to the last one in turn, with a growing distance.
    QPolygon anchors;
    QPolygon samples;
    for (int i = 0; i < 60; ++i)
        anchors << QPoint(100 * i, 0) << QPoint(100 * i + 50, 0);
    for (int i = 0; i < 20; ++i)
        samples << QPoint(10, i) << QPoint(5940, -i);
    samples << QPoint(3000, 25);
    QCOMPARE(OutlineDeviation::largest(samples, polygon(anchors), false), 25.0);
}

void TestOutlineDeviation::wholeIntRange()
{
    const int low = std::numeric_limits<int>::min();
    const int high = std::numeric_limits<int>::max();
    const Q3PointArray outline = polygon({{low, low}, {high, low}});
    QCOMPARE(OutlineDeviation::largest(QPolygon{{0, high}}, outline, false), 4294967295.0);
    const Q3PointArray wild =
        QPolygon{{low, high}, {low, low}, {high, low}, {low, high}, {high, high}, {low, low}};
    const double far = OutlineDeviation::largest(QPolygon{{high, low}, {low, high}}, wild, true);
    QVERIFY(far > 0.0 && far < 6.1e9);
}

void TestOutlineDeviation::agreesWithTheSlowMeasure()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    int apart = 0;
    for (int round = 0; round < 40; ++round) {
        const int kind = random.bounded(int(FitStrokes::kKindCount));
        const Q3PointArray stroke = rounded(FitStrokes::make(FitStrokes::Kind(kind), 25, random));
        const bool closed = random.bounded(2) == 0;
        const Q3PointArray outline = outlineOf(stroke, 20.0);
        if (outline.isEmpty())
            continue;
        const double slow = slowly(stroke, outline, closed);
        const double quick = OutlineDeviation::largest(stroke, outline, closed);
        // A flattened segment lies a hundredth of a pixel off, the nearest of the slow points half a step.
        QVERIFY(quick <= slow + 0.011);
        QVERIFY(quick >= slow - longestStep(outline) / 2.0 - 0.011);
        apart += int(slow > 1.0);
    }
    QVERIFY(apart > 5);
}

MEASURE_TEST_MAIN(TestOutlineDeviation)
#include "TestOutlineDeviation.moc"
