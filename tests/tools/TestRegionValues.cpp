#include "RegionValuesFixture.h"
#include "TestFont.h"

#include <limits>
#include <memory>

using RegionShapes::corners;
using RegionShapes::rectangle;

namespace {

const QString kWidth = QStringLiteral("Width");
const QString kHeight = QStringLiteral("Height");
const QString kLength = QStringLiteral("Length/Perim.");
const QString kArea = QStringLiteral("Area");
const QString kLightness = QStringLiteral("Avg. lightness");
const QString kSaturation = QStringLiteral("Avg. saturation");
const QStringList kNames{kWidth, kHeight, kLength, kArea, kLightness, kSaturation};
const QString kMillimetre = QStringLiteral("mm");
const QString kPercent = QStringLiteral("%");
const QString kSquare = QStringLiteral("\u00b2");

} // namespace

class TestRegionValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void thereAreSixNames();
    void emptyNameGivesOneNullValueAndOneEmptyUnit();
    void openRegionReportsItsLengthOnly();
    void closedRegionOf100By50CountsBothBorderPixels();
    void stepOf2DividesAreaBy4AndWidthBy2();
    void unitOfAreaIsFollowedByTheSquare();
    void uncalibratedValuesArePixels();
    void unknownNamesKeepTheListsParallel();
    void valuesComeFromTheCurrentFrame();
    void valuesNeedNoItem();
    void valuesByIndex();
    void oneNodeHasTheExtentOfAPixel();
    void noNodesGiveZeros();
    void damagedRecordsGiveDefinedValues();
    void hugeRegionsKeepTheirExtents();

private:
    using Values = QLinkedList<QVariant>;

    Values all(const LmKernelObjectData* aRecord);

    std::unique_ptr<RegionValuesFixture> theFixture;
    QStringList theUnits;
};

void TestRegionValues::init()
{
    theFixture = std::make_unique<RegionValuesFixture>();
}

void TestRegionValues::cleanup()
{
    theFixture.reset();
}

TestRegionValues::Values TestRegionValues::all(const LmKernelObjectData* aRecord)
{
    return theFixture->theTool.getValues(kNames, aRecord, theUnits);
}

void TestRegionValues::thereAreSixNames()
{
    QCOMPARE(theFixture->theTool.theValueNames, kNames);
}

void TestRegionValues::emptyNameGivesOneNullValueAndOneEmptyUnit()
{
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    for (const QStringList& names : {QStringList{QString()}, QStringList()}) {
        theUnits = QStringList{QStringLiteral("old"), QStringLiteral("older")};
        QCOMPARE(theFixture->theTool.getValues(names, record, theUnits), Values{QVariant()});
        QCOMPARE(theUnits, QStringList{QString()});
    }
}

void TestRegionValues::openRegionReportsItsLengthOnly()
{
    theFixture->paint(theFixture->theImage, QRect(0, 0, 400, 300), 200, 100, 100);
    theFixture->calibrate(200.0, kMillimetre);
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), false, QPoint(100, 100));
    QCOMPARE(all(record), (Values{0.0, 0.0, (99.0 + 49.0 + 99.0) / 2.0, 0.0, 0.0, 0.0}));
    QCOMPARE(theUnits,
             (QStringList{kMillimetre, kMillimetre, kMillimetre, kMillimetre + kSquare, kPercent, kPercent}));
}

void TestRegionValues::closedRegionOf100By50CountsBothBorderPixels()
{
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    for (const double width : {0.0, 400.0}) { // not calibrated, and one pixel a unit
        theFixture->calibrate(width, kMillimetre);
        QCOMPARE(theFixture->number(kWidth, record), 100.0);
        QCOMPARE(theFixture->number(kHeight, record), 50.0);
        QCOMPARE(theFixture->number(kArea, record), 99.0 * 49.0);
        QCOMPARE(theFixture->number(kLength, record), 2.0 * (99.0 + 49.0));
    }
}

void TestRegionValues::stepOf2DividesAreaBy4AndWidthBy2()
{
    theFixture->calibrate(200.0, kMillimetre);
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 101, 51)), true, QPoint(100, 100));
    QCOMPARE(theFixture->number(kArea, record), 100.0 * 50.0 / 4.0);
    QCOMPARE(theFixture->number(kWidth, record), 101.0 / 2.0);
    QCOMPARE(theFixture->number(kHeight, record), 51.0 / 2.0);
    QCOMPARE(theFixture->number(kLength, record), 300.0 / 2.0);
}

void TestRegionValues::unitOfAreaIsFollowedByTheSquare()
{
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    theFixture->number(kArea, record);
    QCOMPARE(theFixture->theUnit, kSquare);
    theFixture->calibrate(200.0, kMillimetre);
    theFixture->number(kArea, record);
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm\u00b2"));
    theFixture->number(kWidth, record);
    QCOMPARE(theFixture->theUnit, kMillimetre);
}

void TestRegionValues::uncalibratedValuesArePixels()
{
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    theFixture->calibrate(0.0005, kMillimetre); // too small a width counts as none, but keeps its unit
    QCOMPARE(theFixture->number(kWidth, record), 100.0);
    QCOMPARE(theFixture->theUnit, kMillimetre);
    QCOMPARE(theFixture->number(kArea, record), 99.0 * 49.0);
    QCOMPARE(theFixture->theUnit, kMillimetre + kSquare);
}

void TestRegionValues::unknownNamesKeepTheListsParallel()
{
    theFixture->calibrate(400.0, kMillimetre);
    const LmKernelObjectData* record =
        theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    const QStringList names{kHeight, QStringLiteral("area"), QString(), QStringLiteral("Position"), kArea};
    QCOMPARE(theFixture->theTool.getValues(names, record, theUnits),
             (Values{50.0, QVariant(), QVariant(), QVariant(), 99.0 * 49.0}));
    QCOMPARE(theUnits, (QStringList{kMillimetre, QString(), QString(), QString(), kMillimetre + kSquare}));
}

void TestRegionValues::valuesComeFromTheCurrentFrame()
{
    theFixture->paint(theFixture->theImage, QRect(200, 0, 200, 300), 255, 255, 255);
    LmKernelObjectData* record = theFixture->insert(1, rectangle(QRect(0, 0, 51, 21)), true, QPoint(10, 50));
    record->theAnimated = true;
    record->storeValue(RegionValuesFixture::kPoints, 0, rectangle(QRect(0, 0, 51, 21)));
    record->storeValue(RegionValuesFixture::kPoints, 10, rectangle(QRect(0, 0, 71, 21)));
    record->storeValue(RegionValuesFixture::kPos, 0, QPoint(100, 50));
    record->storeValue(RegionValuesFixture::kPos, 10, QPoint(300, 50));
    const double widths[] = {51.0, 61.0, 71.0};
    const double means[] = {0.0, 100.0, 100.0};
    for (int i = 0; i < 3; ++i) {
        theFixture->theKernel.theCurrentFrame = quint32(5 * i);
        QCOMPARE(theFixture->number(kWidth, record), widths[i]);
        QCOMPARE(theFixture->number(kLightness, record), means[i]);
    }
}

void TestRegionValues::valuesNeedNoItem()
{
    const std::unique_ptr<LmKernelObjectData> record(
        theFixture->newRecord(rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100)));
    QCOMPARE(theFixture->itemCount(), 0);
    QCOMPARE(theFixture->number(kWidth, record.get()), 100.0);
}

void TestRegionValues::valuesByIndex()
{
    theFixture->insert(1, rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100));
    QCOMPARE(theFixture->theTool.getValues(QStringList{kHeight}, 1, theUnits), Values{50.0});
    QVERIFY(theFixture->theTool.getValues(QStringList{kHeight}, 42, theUnits).isEmpty());
}

void TestRegionValues::oneNodeHasTheExtentOfAPixel()
{
    theFixture->paint(theFixture->theImage, QRect(100, 100, 1, 1), 51, 51, 51);
    const QPolygon node = corners(QPolygon({QPoint(0, 0)}));
    QCOMPARE(all(theFixture->insert(1, node, true, QPoint(100, 100))),
             (Values{1.0, 1.0, 0.0, 0.0, 20.0, 0.0}));
    QCOMPARE(all(theFixture->insert(2, node, false, QPoint(100, 100))),
             (Values{0.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
}

void TestRegionValues::noNodesGiveZeros()
{
    theFixture->paint(theFixture->theImage, QRect(0, 0, 400, 300), 51, 51, 51);
    for (const bool closed : {false, true}) {
        const std::unique_ptr<LmKernelObjectData> record(
            theFixture->newRecord(QPolygon(), closed, QPoint(100, 100)));
        QCOMPARE(all(record.get()), (Values{0.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
    }
}

void TestRegionValues::damagedRecordsGiveDefinedValues()
{
    const auto record = [this] {
        return std::unique_ptr<LmKernelObjectData>(
            theFixture->newRecord(rectangle(QRect(0, 0, 100, 50)), true, QPoint(100, 100)));
    };
    const Values zeros{0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    const auto noPoints = record();
    noPoints->storeValue(RegionValuesFixture::kPoints, -1, QStringLiteral("no points"));
    QCOMPARE(all(noPoints.get()), zeros);
    const auto missing = record();
    for (const int param : {RegionValuesFixture::kClosed, RegionValuesFixture::kPoints,
                            RegionValuesFixture::kStates, RegionValuesFixture::kPos})
        missing->storeValue(param, -1, QVariant());
    QCOMPARE(all(missing.get()), zeros);
    const auto halfNode = record();
    halfNode->storeValue(RegionValuesFixture::kPoints, -1,
                         QVariant::fromValue<QPolygon>(rectangle(QRect(0, 0, 100, 50)) +
                                                       QPolygon({QPoint(900, 900), QPoint(901, 901)})));
    QCOMPARE(all(halfNode.get()), all(record().get()));
    const auto states = record();
    states->storeValue(RegionValuesFixture::kStates, -1, QByteArray("x"));
    QCOMPARE(all(states.get()), all(record().get()));
}

void TestRegionValues::hugeRegionsKeepTheirExtents()
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kGreatest = std::numeric_limits<int>::max();
    theFixture->paint(theFixture->theImage, QRect(0, 0, 400, 300), 51, 51, 51);
    const QPolygon points = rectangle(QRect(QPoint(kLeast, kLeast), QPoint(kGreatest, kGreatest)));
    constexpr double kExtent = 4294967296.0;
    for (const QPoint& pos : {QPoint(0, 0), QPoint(kGreatest, kGreatest)}) {
        const std::unique_ptr<LmKernelObjectData> record(theFixture->newRecord(points, true, pos));
        QCOMPARE(all(record.get()), (Values{kExtent, kExtent, 4.0 * (kExtent - 1.0),
                                            (kExtent - 1.0) * (kExtent - 1.0), 20.0, 0.0}));
    }
    const std::unique_ptr<LmKernelObjectData> away(theFixture->newRecord(points, true, QPoint(kLeast, 0)));
    QCOMPARE(theFixture->number(kLightness, away.get()), 0.0);
}

MEASURE_TEST_MAIN(TestRegionValues)
#include "TestRegionValues.moc"
