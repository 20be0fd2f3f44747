#include "CounterFixture.h"
#include "TestFont.h"

#include <memory>

class TestCounterValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void countIsHalfThePolygon();
    void oneCounterIsTheWhole();
    void shareOfSeveralCounters();
    void shareFollowsAllCounters();
    void shareOfNothingIsInvalid();
    void hiddenCountersCount();
    void valuesComeInTheOrderOfTheirNames();
    void unknownNamesAreInvalid();
    void countIsTheOneOfTheCurrentFrame();
    void polygonOfOddSizeCountsPairs();
    void indexWithoutARecordHasNoValues();

private:
    QVariant value(const QString& aName, int aIdx, QString* aUnit = nullptr)
    {
        QStringList units;
        const QLinkedList<QVariant> values = theFixture->theTool.getValues({aName}, aIdx, units);
        if (aUnit)
            *aUnit = units.value(0);
        return values.isEmpty() ? QVariant() : values.first();
    }

    std::unique_ptr<CounterFixture> theFixture;
    const QString theCount = QStringLiteral("Count");
    const QString theShare = QStringLiteral("% Of Total");
};

void TestCounterValues::countIsHalfThePolygon()
{
    theFixture->makeCounters({3});
    QString unit;
    const QVariant count = value(theCount, 1, &unit);
    QCOMPARE(count.typeId(), int(QMetaType::Int));
    QCOMPARE(count.toInt(), 3);
    QCOMPARE(unit, QStringLiteral("pcs"));
}

void TestCounterValues::oneCounterIsTheWhole()
{
    theFixture->makeCounters({5});
    QString unit;
    const QVariant share = value(theShare, 1, &unit);
    QCOMPARE(share.typeId(), int(QMetaType::Double));
    QCOMPARE(share.toDouble(), 100.0);
    QCOMPARE(unit, QStringLiteral("%"));
}

void TestCounterValues::shareOfSeveralCounters()
{
    theFixture->makeCounters({5, 15});
    QCOMPARE(value(theShare, 1).toDouble(), 25.0);
    QCOMPARE(value(theShare, 2).toDouble(), 75.0);
}

void TestCounterValues::shareFollowsAllCounters()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 2});
    QCOMPARE(value(theShare, 1).toDouble(), 1.0 / 3.0 * 100.0);
    f.theTool.removeCvObject(f.mark(2, 0));
    QCOMPARE(value(theShare, 1).toDouble(), 50.0);
    f.theTool.removeCounter(f.mark(2, 0));
    QCOMPARE(value(theShare, 1).toDouble(), 100.0);
}

void TestCounterValues::shareOfNothingIsInvalid()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {});
    QString unit;
    QVERIFY(!value(theShare, 3, &unit).isValid());
    QCOMPARE(unit, QStringLiteral("%"));
    QCOMPARE(value(theCount, 3), QVariant(0));
    // A record that is no longer in the kernel, with none left there.
    const std::unique_ptr<LmKernelObjectData> taken(f.theKernel.takeObject(f.kType, 3));
    QStringList units;
    QVERIFY(!f.theTool.getValues({theShare}, taken.get(), units).first().isValid());
}

void TestCounterValues::hiddenCountersCount()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(3, {QPoint(50, 50), QPoint(60, 60), QPoint(70, 70)}, false);
    f.makeCounters({1});
    QCOMPARE(value(theShare, 4).toDouble(), 25.0);
    QCOMPARE(value(theCount, 3).toInt(), 3);
}

void TestCounterValues::valuesComeInTheOrderOfTheirNames()
{
    theFixture->makeCounters({1, 3});
    QStringList units = {QStringLiteral("left over")};
    const QLinkedList<QVariant> values =
        theFixture->theTool.getValues({theShare, theCount, theShare}, 2, units);
    QCOMPARE(values, (QLinkedList<QVariant>{75.0, 3, 75.0}));
    QCOMPARE(units, (QStringList{"%", "pcs", "%"}));
    QVERIFY(theFixture->theTool.getValues(QStringList(), 2, units).isEmpty());
    QVERIFY(units.isEmpty());
}

void TestCounterValues::unknownNamesAreInvalid()
{
    theFixture->makeCounters({1});
    for (const QString& name : {QStringLiteral("Area"), QString(), QStringLiteral("count")}) {
        QString unit = QStringLiteral("left over");
        QVERIFY(!value(name, 1, &unit).isValid());
        QVERIFY(unit.isEmpty());
    }
    // A mark has no value of its own.
    QString unit = QStringLiteral("kept");
    QVERIFY(!theFixture->theTool.getValue(theCount, theFixture->mark(1, 0), unit).isValid());
    QCOMPARE(unit, QStringLiteral("kept"));
}

void TestCounterValues::countIsTheOneOfTheCurrentFrame()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({2, 2});
    f.record(1)->theAnimated = true;
    f.record(1)->storeValue(f.kPos, 0, QVariant::fromValue<QPolygon>(f.points(1)));
    f.record(1)->storeValue(f.kPos, 5,
                            QVariant::fromValue<QPolygon>(f.points(1) + f.points(1) + f.points(1)));
    QCOMPARE(value(theCount, 1).toInt(), 2);
    QCOMPARE(value(theShare, 2).toDouble(), 50.0);
    f.theKernel.showFrame(7, false);
    QCOMPARE(value(theCount, 1).toInt(), 6);
    QCOMPARE(value(theShare, 2).toDouble(), 25.0);
}

void TestCounterValues::polygonOfOddSizeCountsPairs()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1});
    f.record(1)->storeValue(f.kPos, -1, QVariant::fromValue<QPolygon>(QPolygon(5)));
    QCOMPARE(value(theCount, 1).toInt(), 2);
}

void TestCounterValues::indexWithoutARecordHasNoValues()
{
    QStringList units = {QStringLiteral("left over")};
    QVERIFY(theFixture->theTool.getValues({theCount}, 8, units).isEmpty());
    QVERIFY(units.isEmpty());
    const LmKernelObjectData* none = nullptr;
    QVERIFY(!theFixture->theTool.getValues({theCount}, none, units).first().isValid());
    QCOMPARE(units, QStringList{QString()});
}

MEASURE_TEST_MAIN(TestCounterValues)
#include "TestCounterValues.moc"
