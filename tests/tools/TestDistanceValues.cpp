#include "DistanceFixture.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr quint32 kSeed = 99;
const QStringList kNames{QStringLiteral("Distance"), QStringLiteral("DX"), QStringLiteral("DY"),
                         QStringLiteral("Angle")};
const QString kDegree = QStringLiteral("\u00b0");

} // namespace

class TestDistanceValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void valuesOfKnownLines_data();
    void valuesOfKnownLines();
    void angleAgreesWithAnotherFormula();
    void angleOfLengthZeroIsNotANumber();
    void calibrationDividesLengthsByTheStep();
    void stepNeedsAWidthAboveTheLimit_data();
    void stepNeedsAWidthAboveTheLimit();
    void scaleOfTheCalibrationMultipliesTheStep();
    void uncalibratedValuesArePixels();
    void liveValueOfAForeignItemIsInvalid();
    void unknownNamesKeepTheListsParallel();
    void emptyNameGivesOneInvalidValue();
    void recordAndItemDifferByTheRoundedMiddle();
    void recordValuesComeFromTheCurrentFrame();
    void valuesByIndex();
    void hugeLinesKeepTheirSign();

private:
    void setLine(const QPoint& aWay);
    QVariant live(const QString& aName);
    QVariant fromRecord(const QString& aName);

    std::unique_ptr<DistanceFixture> theFixture;
    QString theUnit;
};

void TestDistanceValues::init()
{
    theFixture = std::make_unique<DistanceFixture>();
    theFixture->drag(QPoint(20, 50), QPoint(120, 50));
    theUnit = QStringLiteral("untouched");
}

// Item and record with that extent; even ones, so that both agree.
void TestDistanceValues::setLine(const QPoint& aWay)
{
    theFixture->item(1)->setPoints(QPoint(100, 100), QPoint(100, 100) + aWay);
    theFixture->record(1)->storeValue(DistanceFixture::kPos, -1, QPoint(140, 130) + aWay / 2);
    theFixture->record(1)->storeValue(DistanceFixture::kEp, -1, aWay / 2);
}

QVariant TestDistanceValues::live(const QString& aName)
{
    return theFixture->theTool.getValue(aName, theFixture->item(1), theUnit);
}

QVariant TestDistanceValues::fromRecord(const QString& aName)
{
    QStringList units;
    const QLinkedList<QVariant> values =
        theFixture->theTool.getValues(QStringList{aName}, theFixture->record(1), units);
    theUnit = units.value(0);
    return values.size() == 1 && units.size() == 1 ? values.first()
                                                   : QVariant(QStringLiteral("lists differ"));
}

void TestDistanceValues::valuesOfKnownLines_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("degrees");
    // The angle is cut downward to tenths after a tenth of a tenth was added: asin 0.6 = 36.870 degrees.
    QTest::newRow("right") << QPoint(100, 0) << 100.0 << 0.0;
    QTest::newRow("left") << QPoint(-100, 0) << 100.0 << 0.0;
    QTest::newRow("up") << QPoint(0, -100) << 100.0 << 90.0;
    QTest::newRow("down") << QPoint(0, 100) << 100.0 << -90.0;
    QTest::newRow("rising to the right") << QPoint(80, -60) << 100.0 << 36.8;
    QTest::newRow("rising to the left") << QPoint(-80, -60) << 100.0 << 36.8;
    QTest::newRow("falling to the right") << QPoint(80, 60) << 100.0 << -36.9;
    QTest::newRow("falling to the left") << QPoint(-80, 60) << 100.0 << -36.9;
    QTest::newRow("45 degrees") << QPoint(70, -70) << 70.0 * std::sqrt(2.0) << 45.0;
    QTest::newRow("-45 degrees") << QPoint(70, 70) << 70.0 * std::sqrt(2.0) << -45.0;
    QTest::newRow("53.13 degrees") << QPoint(60, -80) << 100.0 << 53.1;
    // 61.19 degrees and so little more that a factor with further digits would give 61.2.
    QTest::newRow("a hair below 61.2") << QPoint(3048, -5542) << std::hypot(3048.0, 5542.0) << 61.1;
    QTest::newRow("half as long, up") << QPoint(0, -50) << 50.0 << 90.0;
}

void TestDistanceValues::valuesOfKnownLines()
{
    QFETCH(QPoint, way);
    QFETCH(double, length);
    QFETCH(double, degrees);
    setLine(way);
    const double expected[] = {length, std::abs(double(way.x())), std::abs(double(way.y())), degrees};
    for (int i = 0; i < 4; ++i) {
        for (const QVariant& value : {live(kNames[i]), fromRecord(kNames[i])}) {
            QCOMPARE(value.typeId(), int(QMetaType::Double));
            QCOMPARE(value.toDouble(), expected[i]);
        }
    }
}

void TestDistanceValues::angleAgreesWithAnotherFormula()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    int checked = 0;
    for (int i = 0; i < 3000; ++i) {
        const QPoint way = QPoint(random.bounded(-200, 201), random.bounded(-200, 201)) * 2;
        if (way.isNull())
            continue;
        setLine(way);
        // Tenths by the arc tangent in long doubles.
        const long double tenths =
            std::atan2(-static_cast<long double>(way.y()), std::abs(static_cast<long double>(way.x()))) *
                1800.0L / std::acos(-1.0L) +
            0.1L;
        if (std::abs(tenths - std::round(tenths)) < 1e-5L)
            continue; // the short factor of the formula decides there
        ++checked;
        QCOMPARE(live(QStringLiteral("Angle")).toDouble(), double(std::floor(tenths)) / 10.0);
        QCOMPARE(fromRecord(QStringLiteral("Angle")).toDouble(), double(std::floor(tenths)) / 10.0);
    }
    QVERIFY(checked > 2500);
}

void TestDistanceValues::angleOfLengthZeroIsNotANumber()
{
    setLine(QPoint(0, 0));
    QVERIFY(std::isnan(live(QStringLiteral("Angle")).toDouble()));
    QCOMPARE(live(QStringLiteral("Distance")).toDouble(), 0.0);
    QVERIFY(std::isnan(fromRecord(QStringLiteral("Angle")).toDouble()));
}

void TestDistanceValues::calibrationDividesLengthsByTheStep()
{
    setLine(QPoint(80, -60));
    theFixture->calibrate(160.0, QStringLiteral("mm")); // 400 / 160 = 2.5 pixels each
    QCOMPARE(live(QStringLiteral("Distance")).toDouble(), 40.0);
    QCOMPARE(theUnit, QStringLiteral("mm"));
    QCOMPARE(live(QStringLiteral("DX")).toDouble(), 32.0);
    QCOMPARE(live(QStringLiteral("DY")).toDouble(), 24.0);
    QCOMPARE(theUnit, QStringLiteral("mm"));
    QCOMPARE(live(QStringLiteral("Angle")).toDouble(), 36.8);
    QCOMPARE(theUnit, kDegree);
    QStringList units;
    const QLinkedList<QVariant> values = theFixture->theTool.getValues(kNames, theFixture->record(1), units);
    QCOMPARE(values, (QLinkedList<QVariant>{40.0, 32.0, 24.0, 36.8}));
    QCOMPARE(units, (QStringList{QStringLiteral("mm"), QStringLiteral("mm"), QStringLiteral("mm"), kDegree}));
}

void TestDistanceValues::stepNeedsAWidthAboveTheLimit_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("distance");
    QTest::newRow("the limit") << 0.001 << 100.0;
    QTest::newRow("below") << 0.0005 << 100.0;
    QTest::newRow("negative") << -5.0 << 100.0;
    QTest::newRow("just above") << 0.002 << 100.0 / (400.0 / 0.002);
}

void TestDistanceValues::stepNeedsAWidthAboveTheLimit()
{
    QFETCH(double, width);
    QFETCH(double, distance);
    setLine(QPoint(80, -60));
    theFixture->calibrate(width, QStringLiteral("mm"));
    QCOMPARE(live(QStringLiteral("Distance")).toDouble(), distance);
    QCOMPARE(theUnit, QStringLiteral("mm"));
    QCOMPARE(fromRecord(QStringLiteral("Distance")).toDouble(), distance);
    QCOMPARE(theUnit, QStringLiteral("mm"));
}

void TestDistanceValues::scaleOfTheCalibrationMultipliesTheStep()
{
    setLine(QPoint(80, -60));
    theFixture->theKernel.theCalibScale = 0.5;
    theFixture->calibrate(100.0, QStringLiteral("cm")); // 400 * 0.5 / 100 = 2
    QCOMPARE(live(QStringLiteral("Distance")).toDouble(), 50.0);
    theFixture->theKernel.theCurrentImage = nullptr; // without a width there is no step
    QCOMPARE(live(QStringLiteral("Distance")).toDouble(), 100.0);
    QCOMPARE(theUnit, QStringLiteral("cm"));
}

void TestDistanceValues::uncalibratedValuesArePixels()
{
    setLine(QPoint(80, -60));
    QCOMPARE(live(QStringLiteral("DY")).toDouble(), 60.0);
    QCOMPARE(theUnit, QString());
    QCOMPARE(live(QStringLiteral("Angle")).toDouble(), 36.8);
    QCOMPARE(theUnit, kDegree);
}

void TestDistanceValues::liveValueOfAForeignItemIsInvalid()
{
    struct Foreign : LmCvDistance
    {
        using LmCvDistance::LmCvDistance;
        int rtti() const override { return 1106; }
    };
    theFixture->calibrate(100.0, QStringLiteral("mm"));
    Foreign foreign(nullptr, theFixture->theEditor.canvas(), QString(), nullptr);
    QVERIFY(!theFixture->theTool.getValue(QStringLiteral("Distance"), &foreign, theUnit).isValid());
    QCOMPARE(theUnit, QString());
    theUnit = QStringLiteral("untouched");
    QVERIFY(!theFixture->theTool.getValue(QStringLiteral("Distance"), nullptr, theUnit).isValid());
    QCOMPARE(theUnit, QString());
}

void TestDistanceValues::unknownNamesKeepTheListsParallel()
{
    theFixture->calibrate(400.0, QStringLiteral("mm"));
    setLine(QPoint(80, -60));
    QVERIFY(!live(QStringLiteral("distance")).isValid()); // the case counts
    QCOMPARE(theUnit, QStringLiteral("mm"));
    QStringList units{QStringLiteral("old")};
    const QStringList names{QStringLiteral("DY"), QStringLiteral("Area"), QString(), QStringLiteral("DX"),
                            QStringLiteral("DX")};
    const QLinkedList<QVariant> values = theFixture->theTool.getValues(names, theFixture->record(1), units);
    QCOMPARE(values, (QLinkedList<QVariant>{60.0, QVariant(), QVariant(), 80.0, 80.0}));
    const QString mm = QStringLiteral("mm");
    QCOMPARE(units, (QStringList{mm, QString(), QString(), mm, mm}));
}

void TestDistanceValues::emptyNameGivesOneInvalidValue()
{
    for (const QStringList& names : {QStringList(), QStringList{QString()}}) {
        QStringList units{QStringLiteral("old"), QStringLiteral("older")};
        const QLinkedList<QVariant> values =
            theFixture->theTool.getValues(names, theFixture->record(1), units);
        QCOMPARE(values, QLinkedList<QVariant>{QVariant()});
        QCOMPARE(units, QStringList{QString()});
    }
}

void TestDistanceValues::recordAndItemDifferByTheRoundedMiddle()
{
    theFixture->drag(QPoint(20, 150), QPoint(51, 150)); // 31 wide: the middle 35.5 is stored as 36
    LmCvDistance* odd = theFixture->item(2);
    QCOMPARE(theFixture->theTool.getValue(QStringLiteral("DX"), odd, theUnit).toDouble(), 31.0);
    QStringList units;
    QCOMPARE(theFixture->theTool.getValues({QStringLiteral("DX")}, theFixture->record(2), units)
                 .first()
                 .toDouble(),
             30.0);
}

void TestDistanceValues::recordValuesComeFromTheCurrentFrame()
{
    theFixture->record(1)->theAnimated = true;
    theFixture->setKeyframe(1, 0, QPoint(100, 100), QPoint(10, 0));
    theFixture->setKeyframe(1, 10, QPoint(100, 100), QPoint(30, 0));
    theFixture->theKernel.theCurrentFrame = 5;
    QCOMPARE(fromRecord(QStringLiteral("DX")).toDouble(), 40.0);
    theFixture->theKernel.theCurrentFrame = 10;
    QCOMPARE(fromRecord(QStringLiteral("DX")).toDouble(), 60.0);
}

void TestDistanceValues::valuesByIndex()
{
    QStringList units;
    QCOMPARE(theFixture->theTool.getValues(QStringList{QStringLiteral("DX")}, 1, units).first().toDouble(),
             100.0);
    QVERIFY(theFixture->theTool.getValues(QStringList{QStringLiteral("DX")}, 42, units).isEmpty());
}

void TestDistanceValues::hugeLinesKeepTheirSign()
{
    constexpr int kHuge = std::numeric_limits<int>::max();
    theFixture->item(1)->setPoints(QPoint(-kHuge, 0), QPoint(kHuge, 0));
    QVERIFY(live(QStringLiteral("DX")).toDouble() >= double(kHuge));
    QVERIFY(live(QStringLiteral("Distance")).toDouble() >= double(kHuge));
    QCOMPARE(live(QStringLiteral("Angle")).toDouble(), 0.0);
}

MEASURE_TEST_MAIN(TestDistanceValues)
#include "TestDistanceValues.moc"
