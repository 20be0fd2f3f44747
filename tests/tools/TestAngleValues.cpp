#include "AngleFixture.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr quint32 kSeed = 30330;
const QString kAngle = QStringLiteral("Angle");

} // namespace

class TestAngleValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void valuesOfKnownAngles_data();
    void valuesOfKnownAngles();
    void swappedArmsGiveTheRestOfTheTurn();
    void tenthsAreCutDownwardAfterATenthOfATenth();
    void angleAgreesWithAnotherFormula();
    void valueUsesTheTrueAngleNotTheArcs();
    void calibrationPlaysNoPart();
    void liveValueOfAForeignItemOrNameIsInvalid();
    void unknownNamesKeepTheListsParallel();
    void emptyNameGivesOneInvalidValue();
    void recordValuesComeFromTheCurrentFrame();
    void armsOfLengthZeroHaveANumber();
    void hugeAnglesHaveANumber();

private:
    void set(const QPoint& aWay1, const QPoint& aWay2);
    double live();
    double fromRecord();

    std::unique_ptr<AngleFixture> theFixture;
};

void TestAngleValues::init()
{
    theFixture = std::make_unique<AngleFixture>();
    theFixture->draw(QPoint(100, 150), QPoint(100, 70), QPoint(180, 150));
}

// Item and record with these arms.
void TestAngleValues::set(const QPoint& aWay1, const QPoint& aWay2)
{
    const QPoint vertex(1000, 1000);
    theFixture->item(1)->setPoints(vertex, vertex + aWay1, vertex + aWay2);
    theFixture->record(1)->storeValue(AngleFixture::kPos, -1, QPoint(1040, 1030));
    theFixture->record(1)->storeValue(AngleFixture::kEp1, -1, aWay1);
    theFixture->record(1)->storeValue(AngleFixture::kEp2, -1, aWay2);
}

double TestAngleValues::live()
{
    QString unit = QStringLiteral("untouched");
    const QVariant value = theFixture->theTool.getValue(kAngle, theFixture->item(1), unit);
    return value.typeId() == QMetaType::Double && unit == QStringLiteral("°") ? value.toDouble() : -1.0;
}

double TestAngleValues::fromRecord()
{
    QStringList units{QStringLiteral("untouched")};
    const QLinkedList<QVariant> values =
        theFixture->theTool.getValues(QStringList{kAngle}, theFixture->record(1), units);
    const bool isOne = values.size() == 1 && units == QStringList{QStringLiteral("°")} &&
                       values.first().typeId() == QMetaType::Double;
    return isOne ? values.first().toDouble() : -1.0;
}

void TestAngleValues::valuesOfKnownAngles_data()
{
    QTest::addColumn<QPoint>("way1");
    QTest::addColumn<QPoint>("way2");
    QTest::addColumn<double>("degrees");
    const QPoint right(80, 0);
    // Counter-clockwise from the second arm to the first.
    QTest::newRow("up from right") << QPoint(0, -80) << right << 90.0;
    QTest::newRow("left from right") << QPoint(-80, 0) << right << 180.0;
    QTest::newRow("down from right") << QPoint(0, 80) << right << 270.0;
    QTest::newRow("right from up") << right << QPoint(0, -80) << 270.0;
    QTest::newRow("right from down") << right << QPoint(0, 80) << 90.0;
    QTest::newRow("identical") << QPoint(37, -61) << QPoint(37, -61) << 0.0;
    QTest::newRow("one line, one direction") << right << QPoint(20, 0) << 0.0;
    QTest::newRow("diagonals, above") << QPoint(-50, -50) << QPoint(50, -50) << 90.0;
    QTest::newRow("diagonals, below") << QPoint(50, 50) << QPoint(-50, 50) << 90.0;
    QTest::newRow("over the right") << QPoint(50, -50) << QPoint(50, 50) << 90.0;
    QTest::newRow("135") << QPoint(-50, -50) << right << 135.0;
    // atan(3 / 4) = 36.8699, cut to tenths
    QTest::newRow("36.87") << QPoint(40, -30) << right << 36.8;
    QTest::newRow("323.13") << QPoint(40, 30) << right << 323.1;
    // atan(1 / 60) = 0.95484
    QTest::newRow("0.95") << QPoint(60, -1) << right << 0.9;
}

void TestAngleValues::valuesOfKnownAngles()
{
    QFETCH(QPoint, way1);
    QFETCH(QPoint, way2);
    QFETCH(double, degrees);
    set(way1, way2);
    QCOMPARE(live(), degrees);
    QCOMPARE(fromRecord(), degrees);
}

void TestAngleValues::swappedArmsGiveTheRestOfTheTurn()
{
    set(QPoint(9701, -5601), QPoint(80, 0)); // 30.0005 degrees
    QCOMPARE(live(), 30.0);
    set(QPoint(80, 0), QPoint(9701, -5601)); // 329.9995, and a tenth of a tenth lifts it
    QCOMPARE(live(), 330.0);
    QCOMPARE(fromRecord(), 330.0);
}

void TestAngleValues::tenthsAreCutDownwardAfterATenthOfATenth()
{
    // atan(0.5770) = 29.9849, atan(0.5772) = 29.9935 degrees: a tenth of a tenth below 30 is 29.99.
    set(QPoint(10000, -5770), QPoint(1, 0));
    QCOMPARE(live(), 29.9);
    set(QPoint(10000, -5772), QPoint(1, 0));
    QCOMPARE(live(), 30.0);
    QCOMPARE(fromRecord(), 30.0);
}

void TestAngleValues::angleAgreesWithAnotherFormula()
{
    qInfo("seed %u", kSeed);
    QRandomGenerator random(kSeed);
    const auto way = [&random] { return QPoint(random.bounded(-300, 301), random.bounded(-300, 301)); };
    for (int i = 0; i < 3000; ++i) {
        const QPoint way1 = way();
        const QPoint way2 = way();
        if (way1.isNull() || way2.isNull())
            continue;
        // The turn from the second to the first arm, by cross and dot product; y points down.
        const double cross = double(way1.x()) * way2.y() - double(way1.y()) * way2.x();
        const double dot = double(way1.x()) * way2.x() + double(way1.y()) * way2.y();
        double turn = std::atan2(cross, dot);
        if (turn < 0.0)
            turn += 2.0 * kPi;
        const QPoint vertex(20, 700);
        const double radians = LmCvManipAngle::calcAngle(vertex, vertex + way1, vertex + way2);
        QVERIFY(radians >= 0.0 && radians < 2.0 * kPi);
        // A full turn may come out of a rounding error below 0.
        QVERIFY(std::abs(std::remainder(radians - turn, 2.0 * kPi)) < 1e-6);
        set(way1, way2);
        QVERIFY(live() <= radians * 180.0 / kPi + 0.0101);
        QVERIFY(live() > radians * 180.0 / kPi - 0.1);
        QCOMPARE(fromRecord(), live());
    }
}

void TestAngleValues::valueUsesTheTrueAngleNotTheArcs()
{
    set(QPoint(0, -80), QPoint(80, 0));
    QVERIFY(std::abs(-theFixture->item(1)->getAngle() - 89.535) < 1e-3);
    QCOMPARE(live(), 90.0);
}

void TestAngleValues::calibrationPlaysNoPart()
{
    theFixture->calibrate(100.0, QStringLiteral("mm"));
    QCOMPARE(live(), 90.0);
    QCOMPARE(fromRecord(), 90.0);
}

void TestAngleValues::liveValueOfAForeignItemOrNameIsInvalid()
{
    AngleFixture& f = *theFixture;
    struct Foreign : LmCvAngle
    {
        using LmCvAngle::LmCvAngle;
        int rtti() const override { return 1102; }
    };
    Foreign foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    for (const LmCvObject* object :
         {static_cast<const LmCvObject*>(nullptr), static_cast<const LmCvObject*>(&foreign)}) {
        QString unit = QStringLiteral("mm");
        QVERIFY(!f.theTool.getValue(kAngle, object, unit).isValid());
        QCOMPARE(unit, QString());
    }
    for (const char* name : {"", "angle", "Distance"}) {
        QString unit = QStringLiteral("mm");
        QVERIFY(!f.theTool.getValue(QString::fromLatin1(name), f.item(1), unit).isValid());
        QCOMPARE(unit, QString());
    }
}

void TestAngleValues::unknownNamesKeepTheListsParallel()
{
    QStringList units;
    const QLinkedList<QVariant> values = theFixture->theTool.getValues(
        {QStringLiteral("DX"), kAngle, QString(), kAngle}, theFixture->record(1), units);
    QCOMPARE(values.toStdList(), (std::list<QVariant>{QVariant(), 90.0, QVariant(), 90.0}));
    const QString degree = QStringLiteral("°");
    QCOMPARE(units, (QStringList{QString(), degree, QString(), degree}));
}

void TestAngleValues::emptyNameGivesOneInvalidValue()
{
    for (const QStringList& names : {QStringList(), QStringList{QString()}}) {
        QStringList units{QStringLiteral("old"), QStringLiteral("units")};
        const QLinkedList<QVariant> values =
            theFixture->theTool.getValues(names, theFixture->record(1), units);
        QCOMPARE(values.toStdList(), std::list<QVariant>{QVariant()});
        QCOMPARE(units, QStringList{QString()});
    }
}

void TestAngleValues::recordValuesComeFromTheCurrentFrame()
{
    AngleFixture& f = *theFixture;
    f.record(1)->theAnimated = true;
    f.setKeyframe(1, 0, QPoint(10, 10), QPoint(0, -20), QPoint(20, 0));
    f.setKeyframe(1, 10, QPoint(99, 99), QPoint(-20, 0), QPoint(20, 0));
    QCOMPARE(fromRecord(), 90.0);
    f.theKernel.theCurrentFrame = 5; // the first arm is (-10, -10) then
    QCOMPARE(fromRecord(), 135.0);
    f.theKernel.theCurrentFrame = 10;
    QCOMPARE(fromRecord(), 180.0);
}

void TestAngleValues::armsOfLengthZeroHaveANumber()
{
    // They point right.
    set(QPoint(0, 0), QPoint(0, 0));
    QCOMPARE(live(), 0.0);
    set(QPoint(0, -50), QPoint(0, 0));
    QCOMPARE(live(), 90.0);
    set(QPoint(0, 0), QPoint(0, -50));
    QCOMPARE(live(), 270.0);
    QCOMPARE(fromRecord(), 270.0);
}

void TestAngleValues::hugeAnglesHaveANumber()
{
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    LmCvAngle* item = theFixture->item(1);
    item->setPoints(QPoint(kMin, kMax), QPoint(kMin, kMin), QPoint(kMax, kMax));
    QCOMPARE(live(), 90.0);
    item->setPoints(QPoint(kMax, kMax), QPoint(kMin, kMax), QPoint(kMax, kMin));
    QCOMPARE(live(), 90.0);
    theFixture->record(1)->storeValue(AngleFixture::kPos, -1, QPoint(kMax, kMin));
    theFixture->record(1)->storeValue(AngleFixture::kEp1, -1, QPoint(kMax, kMax));
    theFixture->record(1)->storeValue(AngleFixture::kEp2, -1, QPoint(kMin, kMin));
    const double value = fromRecord();
    QVERIFY(value >= 0.0 && value < 360.0);
}

MEASURE_TEST_MAIN(TestAngleValues)
#include "TestAngleValues.moc"
