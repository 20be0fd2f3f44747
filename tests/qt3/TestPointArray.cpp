#include "Q3PointArray.h"
#include "TestFont.h"

#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kSide = 200; // of a picture
constexpr quint32 kSeed = 20240611;

Q3PointArray curve(const QPoint& a, const QPoint& b, const QPoint& c, const QPoint& d)
{
    return Q3PointArray(QPolygon({a, b, c, d})).cubicBezier();
}

QPoint randomPoint(QRandomGenerator& aRandom, int aReach)
{
    const auto next = [&] { return int(qint64(aRandom.generate64() % (2 * quint64(aReach) + 1)) - aReach); };
    const int x = next();
    return QPoint(x, next());
}

QImage painted(const Q3PointArray& aControls, double aPenWidth)
{
    QImage picture(kSide, kSide, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::black, aPenWidth));
    QPainterPath curve(aControls.at(0));
    curve.cubicTo(aControls.at(1), aControls.at(2), aControls.at(3));
    painter.drawPath(curve);
    return picture;
}

double distanceToPiece(const QPointF& aPoint, const QPointF& aStart, const QPointF& aEnd)
{
    const QPointF way = aEnd - aStart;
    const double square = QPointF::dotProduct(way, way);
    const double along =
        square > 0.0 ? std::clamp(QPointF::dotProduct(aPoint - aStart, way) / square, 0.0, 1.0) : 0.0;
    const QPointF off = aPoint - (aStart + along * way);
    return std::hypot(off.x(), off.y());
}

double distanceTo(const Q3PointArray& aLine, const QPointF& aPoint)
{
    double least = std::numeric_limits<double>::max();
    for (qsizetype k = 1; k < aLine.size(); ++k)
        least = std::min(least, distanceToPiece(aPoint, aLine.at(k - 1), aLine.at(k)));
    return least;
}

} // namespace

class TestPointArray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fewerThanFourPointsGiveNothing();
    void onlyTheFirstFourPointsCount();
    void straightCurveIsALine();
    void curveOfOnePointHasBothEnds();
    void curveSmallerThanAPixelHasBothEnds();
    void loopBackToItsStartIsKept();
    void polylineKeepsItsEnds_data();
    void polylineKeepsItsEnds();
    void polylineLiesOnThePaintedCurve();
    void endsOfTheIntRangeStayInside();
};

void TestPointArray::fewerThanFourPointsGiveNothing()
{
    for (int count = 0; count < 4; ++count)
        QVERIFY(Q3PointArray(QPolygon(count)).cubicBezier().isEmpty());
}

void TestPointArray::onlyTheFirstFourPointsCount()
{
    Q3PointArray points;
    points << QPoint(0, 0) << QPoint(0, 40) << QPoint(60, 40) << QPoint(60, 0) << QPoint(500, 500);
    const Q3PointArray line = points.cubicBezier();
    QCOMPARE(line, curve(points.at(0), points.at(1), points.at(2), points.at(3)));
    QCOMPARE(line.constLast(), QPoint(60, 0));
    QVERIFY(line.size() > 4);
}

void TestPointArray::straightCurveIsALine()
{
    QCOMPARE(QPolygon(curve(QPoint(1, 2), QPoint(1, 2), QPoint(91, 32), QPoint(91, 32))),
             QPolygon({QPoint(1, 2), QPoint(91, 32)}));
}

void TestPointArray::curveOfOnePointHasBothEnds()
{
    for (const QPoint& point : {QPoint(0, 0), QPoint(-7, 9), QPoint(kMin, kMax), QPoint(kMax, kMax)})
        QCOMPARE(QPolygon(curve(point, point, point, point)), QPolygon({point, point}));
}

void TestPointArray::curveSmallerThanAPixelHasBothEnds()
{
    const QPoint point(5, 5);
    QCOMPARE(QPolygon(curve(point, point + QPoint(1, 0), point, point)), QPolygon({point, point}));
}

void TestPointArray::loopBackToItsStartIsKept()
{
    const QPoint start(50, 50);
    const Q3PointArray line = curve(start, QPoint(150, 50), QPoint(50, 150), start);
    QVERIFY(line.size() > 4);
    QCOMPARE(line.constFirst(), start);
    QCOMPARE(line.constLast(), start);
    // The middle of the curve is 3/8 of either control's way.
    QVERIFY(std::any_of(line.begin(), line.end(), [](const QPoint& aPoint) {
        return (aPoint - QPoint(87, 87)).manhattanLength() < 12;
    }));
}

void TestPointArray::polylineKeepsItsEnds_data()
{
    QTest::addColumn<int>("reach");
    for (const int reach : {1, 3, 20, 300, 5000, kMax})
        QTest::newRow(QByteArray::number(reach).constData()) << reach;
}

void TestPointArray::polylineKeepsItsEnds()
{
    QFETCH(int, reach);
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed + quint32(reach));
    for (int i = 0; i < 500; ++i) {
        Q3PointArray controls;
        for (int k = 0; k < 4; ++k)
            controls << randomPoint(random, reach);
        const Q3PointArray line = controls.cubicBezier();
        QVERIFY(line.size() >= 2);
        QCOMPARE(line.constFirst(), controls.at(0));
        QCOMPARE(line.constLast(), controls.at(3));
        QVERIFY(line.size() == 2 || std::adjacent_find(line.begin(), line.end()) == line.end());
    }
}

void TestPointArray::polylineLiesOnThePaintedCurve()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    for (int i = 0; i < 200; ++i) {
        Q3PointArray controls;
        for (int k = 0; k < 4; ++k)
            controls << QPoint(random.bounded(kSide), random.bounded(kSide));
        const Q3PointArray line = controls.cubicBezier();
        const QImage picture = painted(controls, i % 2);
        double most = 0.0;
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                if (picture.pixelColor(x, y) != Qt::white)
                    most = std::max(most, distanceTo(line, QPointF(x, y)));
        // Half a pixel of flattening and 0.71 of rounding both coordinates, for points and for pixels.
        QVERIFY2(most <= 0.5 + 2 * 0.71, qPrintable(QString::number(most)));
    }
}

void TestPointArray::endsOfTheIntRangeStayInside()
{
    const QPoint corners[] = {{kMin, kMin}, {kMax, kMax}, {kMin, kMax}, {kMax, kMin}, {0, 0}, {kMax, 0}};
    for (const QPoint& a : corners)
        for (const QPoint& b : corners)
            for (const QPoint& c : corners) {
                const Q3PointArray line = curve(a, b, c, QPoint(kMax, kMin));
                QCOMPARE(line.constFirst(), a);
                QCOMPARE(line.constLast(), QPoint(kMax, kMin));
                const Q3PointArray along =
                    curve(QPoint(kMax, a.y()), QPoint(kMax, b.y()), QPoint(kMax, c.y()), QPoint(kMax, 0));
                for (const QPoint& point : along)
                    QCOMPARE(point.x(), kMax);
            }
}

MEASURE_TEST_MAIN(TestPointArray)
#include "TestPointArray.moc"
