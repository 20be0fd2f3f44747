#include "SegmentGeometry.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr quint32 kSeed = 20240817;

__extension__ typedef __int128 Wide;

struct Vector
{
    Vector(const QPoint& aFrom, const QPoint& aTo)
        : theX(Wide(aTo.x()) - aFrom.x()), theY(Wide(aTo.y()) - aFrom.y())
    {
    }
    Wide cross(const Vector& aOther) const { return theX * aOther.theY - theY * aOther.theX; }

    Wide theX;
    Wide theY;
};

// A fraction rounded to the nearest integer, halves away from zero.
Wide rounded(Wide aNumerator, Wide aDenominator)
{
    const bool negative = (aNumerator < 0) != (aDenominator < 0);
    const Wide n = aNumerator < 0 ? -aNumerator : aNumerator;
    const Wide d = aDenominator < 0 ? -aDenominator : aDenominator;
    const Wide whole = n / d;
    const Wide magnitude = 2 * (n % d) >= d ? whole + 1 : whole;
    return negative ? -magnitude : magnitude;
}

bool isBetweenZeroAndOne(Wide aNumerator, Wide aDenominator)
{
    return aDenominator > 0 ? aNumerator >= 0 && aNumerator <= aDenominator
                            : aNumerator <= 0 && aNumerator >= aDenominator;
}

// The slow way: solves a + s (b - a) = c + t (d - c) in fractions and looks at s and t. Only for directions
// that differ.
bool referenceMeets(const QPoint& a, const QPoint& b, const QPoint& c, const QPoint& d, QPoint& aOut)
{
    const Vector ab(a, b);
    const Vector cd(c, d);
    const Vector ac(a, c);
    const Wide denominator = ab.cross(cd);
    const Wide s = ac.cross(cd);
    const Wide t = ac.cross(ab);
    if (!isBetweenZeroAndOne(s, denominator) || !isBetweenZeroAndOne(t, denominator))
        return false;
    aOut = QPoint(int(rounded(a.x() * denominator + s * ab.theX, denominator)),
                  int(rounded(a.y() * denominator + s * ab.theY, denominator)));
    return true;
}

QPoint randomPoint(QRandomGenerator& aRandom, int aReach)
{
    const quint64 count = 2 * quint64(aReach) + 1;
    const auto next = [&] { return int(qint64(aRandom.generate64() % count) - aReach); };
    const int x = next();
    return QPoint(x, next());
}

QByteArray described(const QPoint& a, const QPoint& b, const QPoint& c, const QPoint& d)
{
    QString text;
    QDebug(&text) << a << b << c << d;
    return text.toUtf8();
}

} // namespace

class TestSegmentGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void crossingAgreesWithFractions_data();
    void crossingAgreesWithFractions();
    void knownCrossings_data();
    void knownCrossings();
    void segmentsOnOneLineGiveHalfTheVector_data();
    void segmentsOnOneLineGiveHalfTheVector();
    void missedSegmentLeavesTheResultAlone();
    void crossingAtTheEndsOfTheIntRange();
    void hitSquareHasTheToleranceAsItsSide_data();
    void hitSquareHasTheToleranceAsItsSide();
    void hitSquareStaysInTheIntRange();
};

void TestSegmentGeometry::crossingAgreesWithFractions_data()
{
    QTest::addColumn<int>("reach");
    QTest::newRow("many touches and shared ends") << 4;
    QTest::newRow("small") << 20;
    QTest::newRow("a screen") << 2000;
    QTest::newRow("huge") << kMax - 1;
}

void TestSegmentGeometry::crossingAgreesWithFractions()
{
    QFETCH(int, reach);
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    int hits = 0;
    int misses = 0;
    for (int i = 0; i < 20000; ++i) {
        const QPoint a = randomPoint(random, reach);
        const QPoint b = randomPoint(random, reach);
        const QPoint c = randomPoint(random, reach);
        const QPoint d = randomPoint(random, reach);
        if (Vector(a, b).cross(Vector(c, d)) == 0)
            continue;
        QPoint expected(7, 7);
        QPoint actual(7, 7);
        const bool meets = referenceMeets(a, b, c, d, expected);
        if (SegmentGeometry::intersect(a, b, c, d, actual) != meets || actual != expected)
            QFAIL(described(a, b, c, d));
        ++(meets ? hits : misses);
    }
    QVERIFY(hits > 1000);
    QVERIFY(misses > 1000);
}

void TestSegmentGeometry::knownCrossings_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("c");
    QTest::addColumn<QPoint>("d");
    QTest::addColumn<bool>("meets");
    QTest::addColumn<QPoint>("crossing");
    const auto row = [](const char* aName, QPoint a, QPoint b, QPoint c, QPoint d, bool aMeets,
                        QPoint aCrossing) {
        QTest::newRow(aName) << a << b << c << d << aMeets << aCrossing;
    };
    row("plain cross", {0, 0}, {10, 10}, {0, 10}, {10, 0}, true, {5, 5});
    row("shared end", {0, 0}, {10, 0}, {10, 0}, {10, 9}, true, {10, 0});
    row("end on the middle", {0, 0}, {10, 0}, {4, 0}, {4, 7}, true, {4, 0});
    row("a pixel short of touching", {0, 0}, {10, 0}, {4, 1}, {4, 7}, false, {});
    row("lines cross outside the second", {0, 0}, {10, 0}, {4, 2}, {4, 1}, false, {});
    row("parallel", {0, 0}, {10, 0}, {0, 1}, {10, 1}, false, {});
    // x = 1/2 and y = 1/2.
    row("half rounds up", {0, 0}, {1, 1}, {0, 1}, {1, 0}, true, {1, 1});
    row("negative half rounds down", {0, 0}, {-1, -1}, {0, -1}, {-1, 0}, true, {-1, -1});
    row("the same with the first turned round", {-1, -1}, {0, 0}, {0, -1}, {-1, 0}, true, {-1, -1});
    // y = x / 3 meets x + y = 1 at (3/4, 1/4).
    row("quarters", {0, 0}, {3, 1}, {0, 1}, {1, 0}, true, {1, 0});
    row("negative quarters", {0, 0}, {-3, -1}, {0, -1}, {-1, 0}, true, {-1, 0});
}

void TestSegmentGeometry::knownCrossings()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    QFETCH(QPoint, c);
    QFETCH(QPoint, d);
    QFETCH(bool, meets);
    QFETCH(QPoint, crossing);
    QPoint out;
    QCOMPARE(SegmentGeometry::intersect(a, b, c, d, out), meets);
    QCOMPARE(out, crossing);
}

void TestSegmentGeometry::segmentsOnOneLineGiveHalfTheVector_data()
{
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::addColumn<QPoint>("c");
    QTest::addColumn<QPoint>("d");
    QTest::addColumn<QPoint>("half");
    const auto row = [](const char* aName, QPoint a, QPoint b, QPoint c, QPoint d, QPoint aHalf) {
        QTest::newRow(aName) << a << b << c << d << aHalf;
    };
    row("overlapping", {100, 50}, {110, 50}, {105, 50}, {120, 50}, {5, 0});
    row("apart on one line", {0, 0}, {10, 20}, {100, 200}, {101, 202}, {5, 10});
    row("odd, cut toward zero", {0, 0}, {7, 7}, {3, 3}, {4, 4}, {3, 3});
    row("negative odd, cut toward zero", {7, 7}, {0, 0}, {3, 3}, {4, 4}, {-3, -3});
    row("first of length 0 on the second", {4, 4}, {4, 4}, {0, 0}, {9, 9}, {0, 0});
    row("second of length 0 on the first", {0, 0}, {9, 9}, {4, 4}, {4, 4}, {4, 4});
    row("first of length 0 beyond the second's end", {40, 40}, {40, 40}, {0, 0}, {9, 9}, {0, 0});
    row("both of length 0, apart", {1, 2}, {1, 2}, {30, 40}, {30, 40}, {0, 0});
    row("the whole int range", {kMin, kMin}, {kMax, kMax}, {0, 0}, {1, 1}, {kMax, kMax});
}

void TestSegmentGeometry::segmentsOnOneLineGiveHalfTheVector()
{
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    QFETCH(QPoint, c);
    QFETCH(QPoint, d);
    QFETCH(QPoint, half);
    QPoint out(-77, -77);
    QVERIFY(SegmentGeometry::intersect(a, b, c, d, out));
    QCOMPARE(out, half);
}

void TestSegmentGeometry::missedSegmentLeavesTheResultAlone()
{
    QPoint out(3, 4);
    QVERIFY(!SegmentGeometry::intersect({5, 5}, {5, 5}, {0, 0}, {10, 0}, out));
    QVERIFY(!SegmentGeometry::intersect({0, 0}, {10, 0}, {5, 5}, {5, 5}, out));
    QCOMPARE(out, QPoint(3, 4));
}

void TestSegmentGeometry::crossingAtTheEndsOfTheIntRange()
{
    QPoint out;
    // The diagonals of the whole plane meet at (-1/2, -1/2).
    QVERIFY(SegmentGeometry::intersect({kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {kMax, kMin}, out));
    QCOMPARE(out, QPoint(-1, -1));
    QVERIFY(SegmentGeometry::intersect({kMin, kMax}, {kMax, kMax}, {kMax, kMin}, {kMax, kMax}, out));
    QCOMPARE(out, QPoint(kMax, kMax));
    QVERIFY(SegmentGeometry::intersect({kMin, kMin}, {kMin, kMax}, {kMin, kMin}, {kMax, kMin}, out));
    QCOMPARE(out, QPoint(kMin, kMin));
    QVERIFY(!SegmentGeometry::intersect({kMin, kMin}, {kMax, kMin}, {kMin, kMin + 1}, {kMax, kMin + 1}, out));
}

void TestSegmentGeometry::hitSquareHasTheToleranceAsItsSide_data()
{
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<QPoint>("topLeft");
    QTest::addColumn<QPoint>("bottomRight");
    // Around (100, 50): half the side before it, the rest behind it.
    QTest::newRow("1") << 1 << QPoint(100, 50) << QPoint(100, 50);
    QTest::newRow("even") << 8 << QPoint(96, 46) << QPoint(103, 53);
    QTest::newRow("odd") << 7 << QPoint(97, 47) << QPoint(103, 53);
    QTest::newRow("2") << 2 << QPoint(99, 49) << QPoint(100, 50);
}

void TestSegmentGeometry::hitSquareHasTheToleranceAsItsSide()
{
    QFETCH(int, tolerance);
    QFETCH(QPoint, topLeft);
    QFETCH(QPoint, bottomRight);
    const HitSquare square(QPoint(100, 50), tolerance);
    QCOMPARE(square.theTopLeft, topLeft);
    QCOMPARE(square.theBottomRight, bottomRight);
    // The lines beside its left and right edge meet no diagonal, the edges themselves meet both.
    const int left = topLeft.x();
    const int right = bottomRight.x();
    QVERIFY(square.firstDiagonalMeets({left, 0}, {left, 99}));
    QVERIFY(square.secondDiagonalMeets({left, 0}, {left, 99}));
    QVERIFY(square.firstDiagonalMeets({right, 0}, {right, 99}));
    QVERIFY(square.secondDiagonalMeets({right, 0}, {right, 99}));
    QVERIFY(!square.anyDiagonalMeets({left - 1, 0}, {left - 1, 99}));
    QVERIFY(!square.anyDiagonalMeets({right + 1, 0}, {right + 1, 99}));
    if (tolerance >= 7) {
        // From the middle of the left edge up to the top edge: only the first diagonal is met.
        QVERIFY(square.firstDiagonalMeets({left, 50}, {100, topLeft.y()}));
        QVERIFY(!square.secondDiagonalMeets({left, 49}, {99, topLeft.y()}));
        QVERIFY(square.secondDiagonalMeets({left, 51}, {100, bottomRight.y()}));
        QVERIFY(!square.firstDiagonalMeets({left, 51}, {98, bottomRight.y()}));
    }
}

void TestSegmentGeometry::hitSquareStaysInTheIntRange()
{
    const HitSquare low(QPoint(kMin, kMin), 8);
    QCOMPARE(low.theTopLeft, QPoint(kMin, kMin));
    const HitSquare high(QPoint(kMax, kMax), 8);
    QCOMPARE(high.theTopLeft, QPoint(kMax - 4, kMax - 4));
    QCOMPARE(high.theBottomRight, QPoint(kMax, kMax));
}

MEASURE_TEST_MAIN(TestSegmentGeometry)
#include "TestSegmentGeometry.moc"
