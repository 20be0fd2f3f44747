#include "DimensionFixture.h"
#include "TestFont.h"

#include <memory>

/// Which names the tool knows, with which units, from the record and from the item.
class TestDimensionValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<DimensionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void lastDigitOfAnyNameCounts_data();
    void lastDigitOfAnyNameCounts();
    void calibrationDividesByTheStep();
    void pixelsKeepTheUnitWithoutCalibration();
    void emptyNameGivesOneInvalidValue();
    void listsStayParallel();
    void liveHeightAndAverageAreInvalid();
    void liveWidthsComeFromTheItem();
    void liveValueOfAForeignItemIsInvalid();
    void itemAndRecordWithoutPointsHaveNoValues();
    void recordOfAnotherTypeOfPointsHasNoValues();
    void recordValuesComeFromTheCurrentFrame();

private:
    std::unique_ptr<DimensionFixture> theFixture;
};

void TestDimensionValues::lastDigitOfAnyNameCounts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("foreign name") << QStringLiteral("EP2") << QVariant(50.0);
    QTest::newRow("digit alone") << QStringLiteral("1") << QVariant(30.0);
    QTest::newRow("last of two") << QStringLiteral("Width12") << QVariant(50.0);
    QTest::newRow("0 is the height") << QStringLiteral("Width0") << QVariant(90.0);
    QTest::newRow("none of that number") << QStringLiteral("Width9") << QVariant(0.0);
    QTest::newRow("letter") << QStringLiteral("Distance") << QVariant();
    QTest::newRow("case counts") << QStringLiteral("height") << QVariant();
    QTest::newRow("blank") << QStringLiteral("Width2 ") << QVariant();
    QTest::newRow("sign") << QStringLiteral("Width-") << QVariant();
}

void TestDimensionValues::lastDigitOfAnyNameCounts()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    theFixture->drawLevel(90, {30, 50});
    theFixture->calibrate(400.0, QStringLiteral("mm")); // one pixel each
    QCOMPARE(theFixture->fromRecord(name), value);
    QCOMPARE(theFixture->theUnit, value.isValid() ? QStringLiteral("mm") : QString());
    QCOMPARE(theFixture->live(name), value);
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
}

void TestDimensionValues::calibrationDividesByTheStep()
{
    theFixture->drawLevel(90, {30, 50});
    theFixture->calibrate(160.0, QStringLiteral("mm")); // 400 / 160 = 2.5 pixels each
    QCOMPARE(theFixture->fromRecord(kHeight), QVariant(36.0));
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
    QCOMPARE(theFixture->fromRecord(width(2)), QVariant(20.0));
    QCOMPARE(theFixture->fromRecord(kAverage), QVariant(16.0));
    QCOMPARE(theFixture->live(width(2)), QVariant(20.0));
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
    QCOMPARE(theFixture->live(kLiveAverage), QVariant(16.0));
}

void TestDimensionValues::pixelsKeepTheUnitWithoutCalibration()
{
    theFixture->drawLevel(90, {30});
    theFixture->calibrate(0.001, QStringLiteral("mm")); // too small to count
    QCOMPARE(theFixture->fromRecord(kHeight), QVariant(90.0));
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
    QCOMPARE(theFixture->live(width(1)), QVariant(30.0));
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
    theFixture->show(1, width(1));
    QCOMPARE(theFixture->shown(1), QStringLiteral("W1: 30.00mm"));
}

void TestDimensionValues::emptyNameGivesOneInvalidValue()
{
    theFixture->drawLevel(90, {30});
    for (const QStringList& names : {QStringList(), QStringList{QString()}}) {
        QStringList units{QStringLiteral("old"), QStringLiteral("older")};
        const QLinkedList<QVariant> values =
            theFixture->theTool.getValues(names, theFixture->record(1), units);
        QCOMPARE(values, QLinkedList<QVariant>{QVariant()});
        QCOMPARE(units, QStringList{QString()});
    }
    QVERIFY(!theFixture->live(QString()).isValid());
}

void TestDimensionValues::listsStayParallel()
{
    theFixture->drawLevel(90, {30, 50});
    theFixture->calibrate(400.0, QStringLiteral("mm"));
    QStringList units{QStringLiteral("old")};
    const QStringList names{kAverage, QStringLiteral("Area"), QString(), kHeight, width(3), width(1)};
    const QLinkedList<QVariant> values = theFixture->theTool.getValues(names, theFixture->record(1), units);
    QCOMPARE(values, (QLinkedList<QVariant>{40.0, QVariant(), QVariant(), 90.0, 0.0, 30.0}));
    const QString mm = QStringLiteral("mm");
    QCOMPARE(units, (QStringList{mm, QString(), QString(), mm, mm, mm}));
}

void TestDimensionValues::liveHeightAndAverageAreInvalid()
{
    theFixture->drawLevel(90, {30, 50});
    theFixture->calibrate(400.0, QStringLiteral("mm"));
    QVERIFY(!theFixture->live(kHeight).isValid());
    QCOMPARE(theFixture->theUnit, QStringLiteral("mm"));
    QVERIFY(!theFixture->live(kAverage).isValid());
    QCOMPARE(theFixture->live(kLiveAverage), QVariant(40.0));
    // And the other way round in the record.
    QVERIFY(!theFixture->fromRecord(kLiveAverage).isValid());
}

void TestDimensionValues::liveWidthsComeFromTheItem()
{
    theFixture->drawLevel(90, {30, 50});
    theFixture->item(1)->setPoints(
        Q3PointArray(QList<QPoint>{{0, 0}, {0, 10}, {0, 0}, {0, 20}, {0, 0}, {30, 40}}));
    QCOMPARE(theFixture->live(width(1)), QVariant(20.0));
    QCOMPARE(theFixture->live(width(2)), QVariant(50.0));
    QCOMPARE(theFixture->fromRecord(width(2)), QVariant(50.0));
    QCOMPARE(theFixture->fromRecord(width(1)), QVariant(30.0));
}

void TestDimensionValues::liveValueOfAForeignItemIsInvalid()
{
    struct Foreign : LmCvDimension
    {
        using LmCvDimension::LmCvDimension;
        int rtti() const override { return 1102; }
    };
    theFixture->calibrate(100.0, QStringLiteral("mm"));
    Foreign foreign(nullptr, theFixture->theEditor.canvas(), QString(), nullptr);
    foreign.setPoints(Q3PointArray() << QPoint(0, 0) << QPoint(9, 9));
    const Foreign* items[] = {&foreign, nullptr};
    for (const Foreign* item : items) {
        theFixture->theUnit = QStringLiteral("old");
        QVERIFY(!theFixture->theTool.getValue(QStringLiteral("Width0"), item, theFixture->theUnit).isValid());
        QCOMPARE(theFixture->theUnit, QString());
    }
}

void TestDimensionValues::itemAndRecordWithoutPointsHaveNoValues()
{
    theFixture->drawLevel(90, {});
    for (const QPolygon& points : {QPolygon(), QPolygon({QPoint(3, 4)})}) {
        theFixture->storePoints(1, -1, points);
        theFixture->item(1)->setPoints(Q3PointArray(points));
        for (const QString& name : theFixture->theTool.theValueNames) {
            QVERIFY(!theFixture->fromRecord(name).isValid());
            QCOMPARE(theFixture->theUnit, QString());
            QVERIFY(!theFixture->live(name).isValid());
        }
    }
}

void TestDimensionValues::recordOfAnotherTypeOfPointsHasNoValues()
{
    theFixture->drawLevel(90, {});
    theFixture->record(1)->storeValue(DimensionFixture::kPoints, -1, QStringLiteral("no points"));
    QVERIFY(!theFixture->fromRecord(kHeight).isValid());
    LmCvManipulator::theCurrentViewAnimated = true;
    theFixture->theKernel.showFrame(0, false);
    QVERIFY(theFixture->item(1)->thePoints.isEmpty());
}

void TestDimensionValues::recordValuesComeFromTheCurrentFrame()
{
    DimensionFixture& f = *theFixture;
    f.drawLevel(90, {});
    f.record(1)->theAnimated = true;
    f.storePoints(1, 0, QPolygon({QPoint(0, 0), QPoint(0, 10)}));
    f.storePoints(1, 10, QPolygon({QPoint(0, 0), QPoint(0, 30)}));
    f.theKernel.theCurrentFrame = 5;
    QCOMPARE(theFixture->fromRecord(kHeight), QVariant(20.0));
    f.theKernel.theCurrentFrame = 10;
    QCOMPARE(theFixture->fromRecord(kHeight), QVariant(30.0));
}

MEASURE_TEST_MAIN(TestDimensionValues)
#include "TestDimensionValues.moc"
