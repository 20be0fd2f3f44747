#include "RegionValuesFixture.h"
#include "TestFont.h"

#include <limits>
#include <memory>

using RegionShapes::corners;
using RegionShapes::rectangle;

namespace {

using Animation = RegionValuesFixture::Animation;

constexpr int kPoints = RegionValuesFixture::kPoints;
constexpr int kPos = RegionValuesFixture::kPos;
const QString kPosition = QStringLiteral("Position");
const QString kWay = QStringLiteral("Way dist.");
const QString kWidth = QStringLiteral("Width");
const QString kHeight = QStringLiteral("Height");
const QString kLength = QStringLiteral("Length/Perim.");
const QString kArea = QStringLiteral("Area");
const QString kMillimetre = QStringLiteral("mm");

} // namespace

class TestRegionAnimation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void thereAreSixAnimatedNames();
    void positionIsTheDistanceFromTheStartAndWayThePathTravelled_data();
    void positionIsTheDistanceFromTheStartAndWayThePathTravelled();
    void outlineValuesAreThoseOfEachKeyframe();
    void openRegionHasItsLengthsOnly();
    void stepDividesAllValues();
    void unitsAreThoseOfTheValues();
    void imageValuesAreNotAnimated();
    void unknownNameOrObjectHasNoAnimation();
    void withoutKeyframesThereIsNoAnimation();
    void oneKeyframeIsOneEntry();
    void frameWithAKeyframeOfAnyParameterHasAnEntry();
    void changedNodeCountIsMeasuredFrameByFrame();
    void distancesAcrossTheIntRange();

private:
    void setPath(const QList<QPoint>& aPath);
    static Animation at(const QList<long long>& aFrames, const QList<double>& aValues);

    std::unique_ptr<RegionValuesFixture> theFixture;
    LmKernelObjectData* theRecord = nullptr; // region 1, the kernel's
};

void TestRegionAnimation::init()
{
    theFixture = std::make_unique<RegionValuesFixture>();
    theRecord = theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    theRecord->theAnimated = true;
}

/// Positions at the frames 0, 10, 20 ...
void TestRegionAnimation::setPath(const QList<QPoint>& aPath)
{
    for (qsizetype i = 0; i < aPath.size(); ++i)
        theRecord->storeValue(kPos, 10 * i, aPath[i]);
}

Animation TestRegionAnimation::at(const QList<long long>& aFrames, const QList<double>& aValues)
{
    Animation expected;
    for (qsizetype i = 0; i < aFrames.size(); ++i)
        expected.append(LmParamKeyframe(aFrames[i], aValues[i]));
    return expected;
}

void TestRegionAnimation::thereAreSixAnimatedNames()
{
    QCOMPARE(theFixture->theTool.getAnimatedValueNames(),
             (QStringList{kPosition, kWay, kWidth, kHeight, kLength, kArea}));
}

void TestRegionAnimation::positionIsTheDistanceFromTheStartAndWayThePathTravelled_data()
{
    QTest::addColumn<QList<QPoint>>("path");
    QTest::addColumn<QList<double>>("positions");
    QTest::addColumn<QList<double>>("ways");
    QTest::newRow("there and stay") << QList<QPoint>{QPoint(0, 0), QPoint(3, 4), QPoint(3, 4)}
                                    << QList<double>{0.0, 5.0, 5.0} << QList<double>{0.0, 5.0, 5.0};
    QTest::newRow("there and back") << QList<QPoint>{QPoint(0, 0), QPoint(3, 4), QPoint(0, 0)}
                                    << QList<double>{0.0, 5.0, 0.0} << QList<double>{0.0, 5.0, 10.0};
    QTest::newRow("elsewhere") << QList<QPoint>{QPoint(50, 60), QPoint(50, 40), QPoint(35, 40)}
                               << QList<double>{0.0, 20.0, 25.0} << QList<double>{0.0, 20.0, 35.0};
}

void TestRegionAnimation::positionIsTheDistanceFromTheStartAndWayThePathTravelled()
{
    QFETCH(QList<QPoint>, path);
    QFETCH(QList<double>, positions);
    QFETCH(QList<double>, ways);
    setPath(path);
    QCOMPARE(theFixture->animation(kPosition), at({0, 10, 20}, positions));
    QCOMPARE(theFixture->animation(kWay), at({0, 10, 20}, ways));
}

void TestRegionAnimation::outlineValuesAreThoseOfEachKeyframe()
{
    theRecord->storeValue(kPoints, 0, rectangle(QRect(0, 0, 101, 51)));
    theRecord->storeValue(kPoints, 7, rectangle(QRect(-9, -9, 21, 11)));
    QCOMPARE(theFixture->animation(kWidth), at({0, 7}, {101.0, 21.0}));
    QCOMPARE(theFixture->animation(kHeight), at({0, 7}, {51.0, 11.0}));
    QCOMPARE(theFixture->animation(kLength), at({0, 7}, {300.0, 60.0}));
    QCOMPARE(theFixture->animation(kArea), at({0, 7}, {5000.0, 200.0}));
    for (const LmParamKeyframe& keyframe : theFixture->animation(kArea))
        QCOMPARE(keyframe.getValue().typeId(), int(QMetaType::Double));
}

void TestRegionAnimation::openRegionHasItsLengthsOnly()
{
    theRecord->storeValue(RegionValuesFixture::kClosed, -1, false);
    theRecord->storeValue(kPoints, 0, rectangle(QRect(0, 0, 101, 51)));
    theRecord->storeValue(kPoints, 7, rectangle(QRect(-9, -9, 21, 11)));
    QCOMPARE(theFixture->animation(kLength), at({0, 7}, {250.0, 50.0}));
    for (const QString& name : {kWidth, kHeight, kArea})
        QCOMPARE(theFixture->animation(name), at({0, 7}, {0.0, 0.0}));
}

void TestRegionAnimation::stepDividesAllValues()
{
    theFixture->calibrate(200.0, kMillimetre); // two pixels each
    theRecord->storeValue(kPoints, 0, rectangle(QRect(0, 0, 101, 51)));
    setPath({QPoint(0, 0), QPoint(6, 8), QPoint(0, 0)});
    QCOMPARE(theFixture->animation(kPosition), at({0, 10, 20}, {0.0, 5.0, 0.0}));
    QCOMPARE(theFixture->animation(kWay), at({0, 10, 20}, {0.0, 5.0, 10.0}));
    QCOMPARE(theFixture->animation(kWidth), at({0, 10, 20}, {50.5, 50.5, 50.5}));
    QCOMPARE(theFixture->animation(kArea), at({0, 10, 20}, {1250.0, 1250.0, 1250.0}));
}

void TestRegionAnimation::unitsAreThoseOfTheValues()
{
    setPath({QPoint(0, 0)});
    theFixture->animation(kArea);
    QCOMPARE(theFixture->theUnit, QStringLiteral("\u00b2"));
    theFixture->animation(kWay);
    QCOMPARE(theFixture->theUnit, QString());
    theFixture->calibrate(200.0, kMillimetre);
    theFixture->animation(kArea);
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm\u00b2"));
    for (const QString& name : {kPosition, kWay, kWidth, kHeight, kLength}) {
        theFixture->animation(name);
        QCOMPARE(theFixture->theUnit, kMillimetre);
    }
}

void TestRegionAnimation::imageValuesAreNotAnimated()
{
    theFixture->calibrate(200.0, kMillimetre);
    setPath({QPoint(0, 0), QPoint(3, 4)});
    for (const QString& name : {QStringLiteral("Avg. lightness"), QStringLiteral("Avg. saturation")}) {
        QVERIFY(theFixture->animation(name).isEmpty());
        QCOMPARE(theFixture->theUnit, QString());
    }
}

void TestRegionAnimation::unknownNameOrObjectHasNoAnimation()
{
    theFixture->calibrate(200.0, kMillimetre);
    setPath({QPoint(0, 0), QPoint(3, 4)});
    for (const QString& name : {QString(), QStringLiteral("area")}) {
        QVERIFY(theFixture->animation(name).isEmpty());
        QCOMPARE(theFixture->theUnit, QString());
    }
    QString unit = QStringLiteral("untouched");
    QVERIFY(theFixture->theTool.getAnimation(kArea, 42, unit).isEmpty());
    QCOMPARE(unit, QString());
}

void TestRegionAnimation::withoutKeyframesThereIsNoAnimation()
{
    theFixture->calibrate(200.0, kMillimetre);
    QVERIFY(theFixture->animation(kArea).isEmpty());
    QCOMPARE(theFixture->theUnit, QString());
}

void TestRegionAnimation::oneKeyframeIsOneEntry()
{
    theRecord->storeValue(kPos, 12, QPoint(70, 80));
    QCOMPARE(theFixture->animation(kPosition), at({12}, {0.0}));
    QCOMPARE(theFixture->animation(kWay), at({12}, {0.0}));
    QCOMPARE(theFixture->animation(kWidth), at({12}, {100.0}));
}

void TestRegionAnimation::frameWithAKeyframeOfAnyParameterHasAnEntry()
{
    theRecord->storeValue(kPos, 0, QPoint(0, 0));
    theRecord->storeValue(kPos, 10, QPoint(30, 40));
    theRecord->storeValue(kPoints, 5, rectangle(QRect(0, 0, 80, 30)));
    QCOMPARE(theFixture->animation(kPosition), at({0, 5, 10}, {0.0, 25.0, 50.0}));
    QCOMPARE(theFixture->animation(kWidth), at({0, 5, 10}, {80.0, 80.0, 80.0}));
}

void TestRegionAnimation::changedNodeCountIsMeasuredFrameByFrame()
{
    theRecord->storeValue(kPoints, 0, rectangle(QRect(0, 0, 101, 51)));
    theRecord->storeValue(kPoints, 1, corners(QPolygon({QPoint(0, 0), QPoint(0, 250), QPoint(500, 0)})));
    theRecord->storeValue(kPoints, 2, corners(QPolygon({QPoint(4, 4)})));
    QCOMPARE(theFixture->animation(kArea), at({0, 1, 2}, {5000.0, 62500.0, 0.0}));
    QCOMPARE(theFixture->animation(kWidth), at({0, 1, 2}, {101.0, 501.0, 1.0}));
}

void TestRegionAnimation::distancesAcrossTheIntRange()
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kGreatest = std::numeric_limits<int>::max();
    setPath({QPoint(kLeast, 0), QPoint(kGreatest, 0), QPoint(kLeast, 0)});
    constexpr double kWhole = 4294967295.0;
    QCOMPARE(theFixture->animation(kPosition), at({0, 10, 20}, {0.0, kWhole, 0.0}));
    QCOMPARE(theFixture->animation(kWay), at({0, 10, 20}, {0.0, kWhole, 2.0 * kWhole}));
}

MEASURE_TEST_MAIN(TestRegionAnimation)
#include "TestRegionAnimation.moc"
