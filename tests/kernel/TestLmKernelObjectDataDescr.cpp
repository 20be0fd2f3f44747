#include "KernelFixture.h"
#include "TestFont.h"

#include <QPolygon>

namespace {

using Fixture = KernelFixture;

/// A point list of another type, as a plug-in might register one.
class OtherPointArray : public QPolygon
{
public:
    using QPolygon::QPolygon;
};

} // namespace

Q_DECLARE_METATYPE(OtherPointArray)

class TestLmKernelObjectDataDescr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theDescriptor.reset(Fixture::makeDescriptor()); }

    void newVectorHasOneEmptyKeyframePerParameter();
    void keyframeTypesComeInParameterOrder();
    void parametersOutsideTheCountAreIgnored();
    void valuesAreSetAndReadByName();
    void unknownNamesAreRefused();
    void shortVectorsAreRefused();
    void valuesOfOtherTypesAreRefused_data();
    void valuesOfOtherTypesAreRefused();
    void everyKindOfPointListBecomesAPolygon();
    void settingAFrameMovesAllKeyframes();

private:
    std::unique_ptr<LmKernelObjectDataDescr> theDescriptor;
};

void TestLmKernelObjectDataDescr::newVectorHasOneEmptyKeyframePerParameter()
{
    const LmParamKeyframeVector values = theDescriptor->createKeyframeVector();
    QCOMPARE(values.size(), 8);
    QCOMPARE(values.getFrameNumber(), -1LL);
    for (int i = 0; i < values.size(); ++i) {
        QVERIFY(!values[i].hasValue());
        QCOMPARE(values[i].getFrame(), -1LL);
    }
}

void TestLmKernelObjectDataDescr::keyframeTypesComeInParameterOrder()
{
    const QVector<ParamDescr::KeyframeType> expected = {
        ParamDescr::kWhole,   ParamDescr::kWhole, ParamDescr::kWhole, ParamDescr::kBlended,
        ParamDescr::kBlended, ParamDescr::kHeld,  ParamDescr::kHeld,  ParamDescr::kWhole};
    QCOMPARE(theDescriptor->getKeyframeTypes(), expected);
}

void TestLmKernelObjectDataDescr::parametersOutsideTheCountAreIgnored()
{
    theDescriptor->addParamDescr(8, QStringLiteral("more"), QMetaType::Bool, ParamDescr::kWhole);
    QCOMPARE(theDescriptor->count(), 8);
    QCOMPARE(theDescriptor->indexOf(QStringLiteral("more")), -1);
    QCOMPARE(LmKernelObjectDataDescr(5, -3).count(), 0);
}

void TestLmKernelObjectDataDescr::valuesAreSetAndReadByName()
{
    LmParamKeyframeVector values = theDescriptor->createKeyframeVector();
    values.setFrameNumber(12);
    QVERIFY(theDescriptor->setValue(values, QStringLiteral("pos"), QPoint(3, 4)));
    QCOMPARE(theDescriptor->getValue(values, QStringLiteral("pos")), QVariant(QPoint(3, 4)));
    QCOMPARE(values[Fixture::kPos].getValue(), QVariant(QPoint(3, 4)));
    QCOMPARE(values[Fixture::kPos].getFrame(), 12LL);
    QVERIFY(!theDescriptor->getValue(values, QStringLiteral("col")).isValid());
}

void TestLmKernelObjectDataDescr::unknownNamesAreRefused()
{
    LmParamKeyframeVector values = theDescriptor->createKeyframeVector();
    QVERIFY(!theDescriptor->setValue(values, QStringLiteral("Pos"), QPoint(3, 4)));
    QVERIFY(!theDescriptor->setValue(values, QString(), QPoint(3, 4)));
    QVERIFY(!theDescriptor->getValue(values, QStringLiteral("Pos")).isValid());
    QCOMPARE(values, theDescriptor->createKeyframeVector());
}

void TestLmKernelObjectDataDescr::shortVectorsAreRefused()
{
    LmParamKeyframeVector values(2);
    QVERIFY(!theDescriptor->setValue(values, QStringLiteral("pos"), QPoint(3, 4)));
    QVERIFY(!theDescriptor->getValue(values, QStringLiteral("pos")).isValid());
    QVERIFY(theDescriptor->setValue(values, QStringLiteral("vis"), false));
}

void TestLmKernelObjectDataDescr::valuesOfOtherTypesAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("int for bool") << "vis" << QVariant(1);
    QTest::newRow("text for bool") << "vis" << QVariant("true");
    QTest::newRow("text for colour") << "col" << QVariant("red");
    QTest::newRow("int for text") << "dispv" << QVariant(5);
    QTest::newRow("text for bytes") << "nst" << QVariant("abc");
    QTest::newRow("real point for point") << "pos" << QVariant(QPointF(1, 2));
    QTest::newRow("point for points") << "pts" << QVariant(QPoint(1, 2));
    QTest::newRow("real points for points") << "pts" << QVariant(QPolygonF({{1, 2}}));
    QTest::newRow("points for point")
        << "pos" << QVariant::fromValue<QPolygon>(QPolygon(QList<QPoint>{{1, 2}}));
    QTest::newRow("texts for points") << "pts" << QVariant(QStringList({"1", "2"}));
    QTest::newRow("no value") << "vis" << QVariant();
}

void TestLmKernelObjectDataDescr::valuesOfOtherTypesAreRefused()
{
    QFETCH(QString, name);
    QFETCH(QVariant, value);
    LmParamKeyframeVector values = theDescriptor->createKeyframeVector();
    QVERIFY(!theDescriptor->setValue(values, name, value));
    QCOMPARE(values, theDescriptor->createKeyframeVector());
}

void TestLmKernelObjectDataDescr::everyKindOfPointListBecomesAPolygon()
{
    if (!QMetaType::hasRegisteredConverterFunction<OtherPointArray, QPolygon>())
        QVERIFY((QMetaType::registerConverter<OtherPointArray, QPolygon>(
            [](const OtherPointArray& aList) { return QPolygon(aList); })));
    const QPolygon expected(QList<QPoint>{{1, 2}, {3, 4}});
    OtherPointArray other;
    other << QPoint(1, 2) << QPoint(3, 4);
    const QVariant lists[] = {QVariant::fromValue<QPolygon>(expected), QVariant::fromValue(other),
                              QVariant::fromValue(QPolygon() << QPoint(1, 2) << QPoint(3, 4))};
    for (const QVariant& list : lists) {
        LmParamKeyframeVector values = theDescriptor->createKeyframeVector();
        QVERIFY(theDescriptor->setValue(values, QStringLiteral("pts"), list));
        const QVariant& stored = theDescriptor->getValue(values, QStringLiteral("pts"));
        QCOMPARE(stored.typeId(), int(QMetaType::QPolygon));
        QCOMPARE(stored.value<QPolygon>(), expected);
        QVERIFY(!theDescriptor->setValue(values, QStringLiteral("pos"), list));
    }
}

void TestLmKernelObjectDataDescr::settingAFrameMovesAllKeyframes()
{
    LmParamKeyframeVector values = theDescriptor->createKeyframeVector();
    values.setValue(Fixture::kVis, true);
    values.setFrameNumber(77);
    QCOMPARE(values.getFrameNumber(), 77LL);
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(values[i].getFrame(), 77LL);
    QCOMPARE(values[Fixture::kVis].getValue(), QVariant(true));
}

MEASURE_TEST_MAIN(TestLmKernelObjectDataDescr)
#include "TestLmKernelObjectDataDescr.moc"
