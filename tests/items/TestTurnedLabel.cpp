#include "TestFont.h"
#include "TurnedLabel.h"

#include <limits>

class TestTurnedLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void angleFollowsTheSlope_data();
    void angleFollowsTheSlope();
    void boxStandsAboveItsPoint();
};

void TestTurnedLabel::angleFollowsTheSlope_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<double>("degrees");
    // Clockwise, as y points down. A line gives the angle of its other direction too, save straight up and
    // down.
    QTest::newRow("point") << QPoint(0, 0) << 0.0;
    QTest::newRow("right") << QPoint(160, 0) << 0.0;
    QTest::newRow("left") << QPoint(-160, 0) << 0.0;
    QTest::newRow("down") << QPoint(0, 160) << 90.0;
    QTest::newRow("up") << QPoint(0, -160) << -90.0;
    QTest::newRow("down to the right") << QPoint(120, 120) << 45.0;
    QTest::newRow("up to the left") << QPoint(-120, -120) << 45.0;
    QTest::newRow("up to the right") << QPoint(120, -120) << -45.0;
    QTest::newRow("down to the left") << QPoint(-120, 120) << -45.0;
    QTest::newRow("3 4 5") << QPoint(40, 30) << 36.86989764584402;
    constexpr int kMax = std::numeric_limits<int>::max();
    QTest::newRow("huge") << QPoint(kMax, kMax) << 45.0;
    QTest::newRow("huge, down") << QPoint(0, kMax) << 90.0;
}

void TestTurnedLabel::angleFollowsTheSlope()
{
    QFETCH(QPoint, end);
    QFETCH(double, degrees);
    const auto isNear = [](double aFound, double aExpected) { return qAbs(aFound - aExpected) < 1e-6; };
    QVERIFY(isNear(TurnedLabel::angleOf(QPoint(0, 0), end), degrees));
    if (end.x() > std::numeric_limits<int>::max() / 2 || end.y() > std::numeric_limits<int>::max() / 2)
        return;
    const QPoint anchor(-70, 31);
    QVERIFY(isNear(TurnedLabel::angleOf(anchor, anchor + end), degrees));
}

void TestTurnedLabel::boxStandsAboveItsPoint()
{
    QRect box(3, 4, 41, 15);
    TurnedLabel::place(box, QPoint(200, 100), 2);
    QCOMPARE(box.size(), QSize(41, 15));
    QCOMPARE(box.bottom(), 98);
    QCOMPARE(box.center().x(), 200);
    TurnedLabel::place(box, QPoint(200, 100), 0);
    QCOMPARE(box.bottom(), 100);
}

MEASURE_TEST_MAIN(TestTurnedLabel)
#include "TestTurnedLabel.moc"
