#include "KernelFixture.h"
#include "TestFont.h"

#include <QPolygon>

#include <climits>

namespace {

using Fixture = KernelFixture;

QVariant polygon(const QPolygon& aPoints)
{
    return QVariant::fromValue<QPolygon>(aPoints);
}

} // namespace

class TestLmKernelObjectData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theData.reset(Fixture::makeRecord()); }

    void newRecordIsNotAnimatedAndHoldsTheDefaults();
    void frameMinusOneGivesTheDefaultKeyframes();
    void plainRecordGivesTheSameVectorAtEveryFrame();
    void vectorCarriesTheAskedFrame();
    void withoutKeyframesTheDefaultCounts();
    void nearestKeyframeHoldsOutsideTheKeyframes();
    void pointsRunLinearlyBetweenKeyframes();
    void halvesAreRoundedAwayFromZero_data();
    void halvesAreRoundedAwayFromZero();
    void coordinatesAtTheLimitsAreBlended();
    void pointListsAreBlendedPointByPoint();
    void pointListsOfUnequalLengthHoldTheEarlierOne();
    void heldValuesStayUntilTheNextKeyframe();
    void oneKeyframeCountsAtAllFrames();
    void valueForTheWholeObjectIgnoresTheFrame();
    void keyframesStayInOrderHoweverTheyCome();
    void lookupAgreesWithAScanInAnyOrder();
    void invalidValueTakesAKeyframeAway();
    void storedValueIsExactlyTheOneThatStands();
    void keyframedFramesAreAscendingAndUnique();
    void updateWritesValidValuesAtItsFrame();
    void updateOfAFrameIsStoredInAPlainRecordToo();
    void singleKeyframeIsTheOneOfTheVector();
    void singleKeyframeOfAPlainRecordFollowsTheKeyframes();
    void singleKeyframeIsTheDefaultWhereNoKeyframeCounts();
    void unknownParametersAreHarmless();
    void pointListsOfOtherTypesAreStoredAsPolygons();
    void listsAreBroughtInOrder();

private:
    QPoint posAt(long long aFrame) const
    {
        return theData->getKeyframesAt(aFrame)[Fixture::kPos].getValue().toPoint();
    }
    QPolygon ptsAt(long long aFrame) const
    {
        return theData->getKeyframesAt(aFrame)[Fixture::kPts].getValue().value<QPolygon>();
    }

    std::unique_ptr<LmKernelObjectData> theData;
};

void TestLmKernelObjectData::newRecordIsNotAnimatedAndHoldsTheDefaults()
{
    QVERIFY(!theData->theAnimated);
    QCOMPARE(theData->count(), 8);
    const LmParamKeyframeVector values = theData->getDefaultKeyframes();
    QCOMPARE(values.getFrameNumber(), -1LL);
    QCOMPARE(values[Fixture::kVis].getValue(), QVariant(true));
    QCOMPARE(values[Fixture::kDispv].getValue(), QVariant(QStringLiteral("Distance")));
    QCOMPARE(values[Fixture::kPos].getValue(), QVariant(QPoint(100, 200)));
    QVERIFY(theData->getKeyframedFrames().isEmpty());
}

void TestLmKernelObjectData::frameMinusOneGivesTheDefaultKeyframes()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 0, QPoint(7, 7));
    theData->storeValue(Fixture::kNst, 3, QByteArray("xyz"));
    QCOMPARE(theData->getKeyframesAt(-1), theData->getDefaultKeyframes());
    QCOMPARE(posAt(-1), QPoint(100, 200));
    QCOMPARE(posAt(0), QPoint(7, 7));
}

void TestLmKernelObjectData::plainRecordGivesTheSameVectorAtEveryFrame()
{
    theData->storeValue(Fixture::kPos, 0, QPoint(7, 7));
    theData->storeValue(Fixture::kPos, 10, QPoint(70, 70));
    const LmParamKeyframeVector defaults = theData->getDefaultKeyframes();
    for (const long long frame : {0LL, 5LL, 10LL, 1000LL, LLONG_MAX}) {
        LmParamKeyframeVector values = theData->getKeyframesAt(frame);
        values.setFrameNumber(kDefaultFrame);
        QCOMPARE(values, defaults);
    }
    theData->theAnimated = true;
    QCOMPARE(posAt(5), QPoint(39, 39)); // 38.5
}

void TestLmKernelObjectData::vectorCarriesTheAskedFrame()
{
    const LmParamKeyframeVector values = theData->getKeyframesAt(42);
    QCOMPARE(values.getFrameNumber(), 42LL);
    for (int i = 0; i < values.size(); ++i)
        QCOMPARE(values[i].getFrame(), 42LL);
}

void TestLmKernelObjectData::withoutKeyframesTheDefaultCounts()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPts, 4, polygon({{5, 5}}));
    QCOMPARE(posAt(4), QPoint(100, 200));
}

void TestLmKernelObjectData::nearestKeyframeHoldsOutsideTheKeyframes()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 10, QPoint(1, 2));
    theData->storeValue(Fixture::kPos, 20, QPoint(3, 4));
    QCOMPARE(posAt(0), QPoint(1, 2));
    QCOMPARE(posAt(9), QPoint(1, 2));
    QCOMPARE(posAt(21), QPoint(3, 4));
    QCOMPARE(posAt(LLONG_MAX), QPoint(3, 4));
}

void TestLmKernelObjectData::pointsRunLinearlyBetweenKeyframes()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 10, QPoint(0, 100));
    theData->storeValue(Fixture::kPos, 14, QPoint(10, 0));
    QCOMPARE(posAt(10), QPoint(0, 100));
    QCOMPARE(posAt(11), QPoint(3, 75)); // 2.5
    QCOMPARE(posAt(12), QPoint(5, 50));
    QCOMPARE(posAt(13), QPoint(8, 25)); // 7.5
    QCOMPARE(posAt(14), QPoint(10, 0));
}

void TestLmKernelObjectData::halvesAreRoundedAwayFromZero_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("middle");
    QTest::newRow("0.5") << 0 << 1 << 1;
    QTest::newRow("-0.5") << 0 << -1 << -1;
    QTest::newRow("-2.5") << -3 << -2 << -3;
    QTest::newRow("2.5") << 3 << 2 << 3;
    QTest::newRow("0") << -5 << 5 << 0;
}

void TestLmKernelObjectData::halvesAreRoundedAwayFromZero()
{
    QFETCH(int, from);
    QFETCH(int, to);
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 0, QPoint(from, to));
    theData->storeValue(Fixture::kPos, 2, QPoint(to, from));
    QFETCH(int, middle);
    QCOMPARE(posAt(1), QPoint(middle, middle));
}

void TestLmKernelObjectData::coordinatesAtTheLimitsAreBlended()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 0, QPoint(INT_MIN, INT_MAX));
    theData->storeValue(Fixture::kPos, 2, QPoint(INT_MAX, INT_MAX));
    QCOMPARE(posAt(1), QPoint(-1, INT_MAX)); // -0.5
    theData->storeValue(Fixture::kPos, LLONG_MAX, QPoint(INT_MIN, INT_MIN));
    QCOMPARE(posAt(LLONG_MAX), QPoint(INT_MIN, INT_MIN));
    QCOMPARE(posAt(3), QPoint(INT_MAX, INT_MAX));
}

void TestLmKernelObjectData::pointListsAreBlendedPointByPoint()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPts, 0, polygon({{0, 0}, {10, 10}}));
    theData->storeValue(Fixture::kPts, 10, polygon({{100, -100}, {20, 0}}));
    QCOMPARE(ptsAt(3), QPolygon(QList<QPoint>{{30, -30}, {13, 7}}));
}

void TestLmKernelObjectData::pointListsOfUnequalLengthHoldTheEarlierOne()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPts, 0, polygon({{0, 0}, {10, 10}}));
    theData->storeValue(Fixture::kPts, 10, polygon({{100, 100}}));
    QCOMPARE(ptsAt(9), QPolygon(QList<QPoint>{{0, 0}, {10, 10}}));
    QCOMPARE(ptsAt(10), QPolygon(QList<QPoint>{{100, 100}}));
}

void TestLmKernelObjectData::heldValuesStayUntilTheNextKeyframe()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kMarks, 2, polygon({{0, 0}}));
    theData->storeValue(Fixture::kMarks, 6, polygon({{40, 40}}));
    const auto marksAt = [&](long long aFrame) {
        return theData->getKeyframe(Fixture::kMarks, aFrame).getValue().value<QPolygon>();
    };
    QCOMPARE(marksAt(0), QPolygon(QList<QPoint>{{0, 0}}));
    QCOMPARE(marksAt(5), QPolygon(QList<QPoint>{{0, 0}}));
    QCOMPARE(marksAt(6), QPolygon(QList<QPoint>{{40, 40}}));
    QCOMPARE(marksAt(60), QPolygon(QList<QPoint>{{40, 40}}));
}

void TestLmKernelObjectData::oneKeyframeCountsAtAllFrames()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 5, QPoint(9, 9));
    QCOMPARE(posAt(0), QPoint(9, 9));
    QCOMPARE(posAt(5), QPoint(9, 9));
    QCOMPARE(posAt(50), QPoint(9, 9));
    QCOMPARE(posAt(-1), QPoint(100, 200));
}

void TestLmKernelObjectData::valueForTheWholeObjectIgnoresTheFrame()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kCol, 8, QColor(Qt::red));
    QVERIFY(theData->getAnimationKeyframes(Fixture::kCol).isEmpty());
    QCOMPARE(theData->getKeyframe(Fixture::kCol, 3).getValue().value<QColor>(), QColor(Qt::red));
    QCOMPARE(theData->storedValue(Fixture::kCol, 77).value<QColor>(), QColor(Qt::red));
}

void TestLmKernelObjectData::keyframesStayInOrderHoweverTheyCome()
{
    for (const long long frame : {5LL, 1LL, 9LL, 0LL, 5LL, 7LL})
        theData->storeValue(Fixture::kPos, frame, QPoint(int(frame), 0));
    QList<long long> frames;
    for (const LmParamKeyframe& keyframe : std::as_const(*theData).getAnimationKeyframes(Fixture::kPos))
        frames.append(keyframe.getFrame());
    QCOMPARE(frames, QList<long long>({0, 1, 5, 7, 9}));
}

void TestLmKernelObjectData::lookupAgreesWithAScanInAnyOrder()
{
    const unsigned int seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    QMap<long long, QByteArray> reference;
    theData->theAnimated = true;
    for (int i = 0; i < 60; ++i) {
        const long long frame = random.bounded(1000);
        reference[frame] = QByteArray::number(i);
        theData->storeValue(Fixture::kNst, frame, reference[frame]);
    }
    for (int i = 0; i < 2000; ++i) {
        const long long frame = random.bounded(1100);
        auto behind = reference.upperBound(frame);
        const QByteArray expected = behind == reference.begin() ? reference.first() : *std::prev(behind);
        QCOMPARE(theData->getKeyframe(Fixture::kNst, frame).getValue().toByteArray(), expected);
        QCOMPARE(theData->storedValue(Fixture::kNst, frame).toByteArray(), reference.value(frame));
    }
}

void TestLmKernelObjectData::invalidValueTakesAKeyframeAway()
{
    const QStringList before = Fixture::dump(theData.get());
    theData->storeValue(Fixture::kPos, 5, QPoint(1, 1));
    theData->storeValue(Fixture::kPos, 4, QVariant());
    QVERIFY(Fixture::dump(theData.get()) != before);
    theData->storeValue(Fixture::kPos, 5, QVariant());
    QCOMPARE(Fixture::dump(theData.get()), before);
    theData->storeValue(Fixture::kPos, kDefaultFrame, QVariant());
    QVERIFY(!theData->storedValue(Fixture::kPos, kDefaultFrame).isValid());
}

void TestLmKernelObjectData::storedValueIsExactlyTheOneThatStands()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 5, QPoint(1, 1));
    QVERIFY(!theData->storedValue(Fixture::kPos, 4).isValid());
    QVERIFY(!theData->storedValue(Fixture::kPos, 6).isValid());
    QCOMPARE(theData->storedValue(Fixture::kPos, 5), QVariant(QPoint(1, 1)));
    QCOMPARE(theData->storedValue(Fixture::kPos, -1), QVariant(QPoint(100, 200)));
}

void TestLmKernelObjectData::keyframedFramesAreAscendingAndUnique()
{
    theData->storeValue(Fixture::kPos, 5, QPoint());
    theData->storeValue(Fixture::kPts, 5, polygon({}));
    theData->storeValue(Fixture::kNst, 2, QByteArray());
    theData->storeValue(Fixture::kPos, 9, QPoint());
    QCOMPARE(theData->getKeyframedFrames(), QList<long long>({2, 5, 9}));
}

void TestLmKernelObjectData::updateWritesValidValuesAtItsFrame()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 5, QPoint(1, 1));
    theData->update(Fixture::vectorWith(Fixture::kPos, QPoint(50, 60)));
    QCOMPARE(posAt(-1), QPoint(50, 60));
    QCOMPARE(posAt(5), QPoint(1, 1));
    QCOMPARE(ptsAt(-1).size(), 3); // no value in the vector
}

void TestLmKernelObjectData::updateOfAFrameIsStoredInAPlainRecordToo()
{
    theData->update(Fixture::vectorWith(Fixture::kPos, QPoint(50, 60), 12));
    QCOMPARE(posAt(12), QPoint(100, 200));
    QCOMPARE(theData->storedValue(Fixture::kPos, 12), QVariant(QPoint(50, 60)));
    theData->theAnimated = true;
    QCOMPARE(posAt(12), QPoint(50, 60));
}

void TestLmKernelObjectData::singleKeyframeIsTheOneOfTheVector()
{
    theData->theAnimated = true;
    theData->storeValue(Fixture::kPos, 0, QPoint(0, 0));
    theData->storeValue(Fixture::kPos, 8, QPoint(8, 8));
    for (long long frame = -1; frame < 10; ++frame) {
        const LmParamKeyframeVector values = theData->getKeyframesAt(frame);
        for (int i = 0; i < values.size(); ++i)
            QCOMPARE(theData->getKeyframe(unsigned(i), frame), values[i]);
    }
}

void TestLmKernelObjectData::singleKeyframeOfAPlainRecordFollowsTheKeyframes()
{
    theData->storeValue(Fixture::kPos, 2, QPoint(0, 40));
    theData->storeValue(Fixture::kPos, 6, QPoint(8, 0));
    theData->storeValue(Fixture::kMarks, 4, polygon({{1, 1}}));
    const auto keyframesAt = [&](long long aFrame) {
        return QList<LmParamKeyframe>(
            {theData->getKeyframe(Fixture::kPos, aFrame), theData->getKeyframe(Fixture::kMarks, aFrame)});
    };
    QCOMPARE(theData->getKeyframe(Fixture::kPos, 0).getValue(), QVariant(QPoint(0, 40)));
    QCOMPARE(theData->getKeyframe(Fixture::kPos, 3).getValue(), QVariant(QPoint(2, 30)));
    QCOMPARE(theData->getKeyframe(Fixture::kPos, 6).getValue(), QVariant(QPoint(8, 0)));
    QCOMPARE(theData->getKeyframe(Fixture::kPos, LLONG_MAX).getValue(), QVariant(QPoint(8, 0)));
    QCOMPARE(posAt(3), QPoint(100, 200)); // the vector of a plain record has the defaults
    QList<QList<LmParamKeyframe>> plain;
    for (long long frame = -1; frame < 9; ++frame)
        plain.append(keyframesAt(frame));
    theData->theAnimated = true;
    for (long long frame = -1; frame < 9; ++frame)
        QCOMPARE(keyframesAt(frame), plain[int(frame) + 1]);
}

void TestLmKernelObjectData::singleKeyframeIsTheDefaultWhereNoKeyframeCounts()
{
    theData->storeValue(Fixture::kPos, 2, QPoint(7, 7));
    theData->storeValue(Fixture::kCol, 2, QColor(Qt::red)); // of the whole object
    for (const bool animated : {false, true}) {
        theData->theAnimated = animated;
        for (const long long frame : {-1LL, -2LL, LLONG_MIN})
            QCOMPARE(theData->getKeyframe(Fixture::kPos, frame).getValue(), QVariant(QPoint(100, 200)));
        QCOMPARE(theData->getKeyframe(Fixture::kCol, 9).getValue().value<QColor>(), QColor(Qt::red));
        QCOMPARE(theData->getKeyframe(Fixture::kPts, 2).getValue(),
                 theData->storedValue(Fixture::kPts, kDefaultFrame)); // without keyframes
        QCOMPARE(theData->getKeyframe(Fixture::kPos, 2).getFrame(), 2LL);
    }
}

void TestLmKernelObjectData::unknownParametersAreHarmless()
{
    const QStringList before = Fixture::dump(theData.get());
    QVERIFY(!theData->getKeyframe(8, 0).hasValue());
    QVERIFY(!theData->storedValue(-1, 0).isValid());
    theData->storeValue(8, 0, 5);
    theData->getAnimationKeyframes(8).append(LmParamKeyframe(0, 5));
    QVERIFY(theData->getAnimationKeyframes(-1).isEmpty());
    QCOMPARE(Fixture::dump(theData.get()), before);
}

void TestLmKernelObjectData::pointListsOfOtherTypesAreStoredAsPolygons()
{
    const QVariant list = QVariant::fromValue(QPolygon() << QPoint(1, 2) << QPoint(3, 4));
    QVERIFY(list.metaType() != QMetaType::fromType<QPolygon>());
    theData->storeValue(Fixture::kPts, kDefaultFrame, list);
    QCOMPARE(ptsAt(-1), QPolygon(QList<QPoint>{{1, 2}, {3, 4}}));
    LmParamKeyframeVector values(1);
    values.setValue(0, list);
    const LmKernelObjectData other(values, {ParamDescr::kBlended}, 0);
    QVERIFY(other.storedValue(0, -1).metaType() == QMetaType::fromType<QPolygon>());
}

void TestLmKernelObjectData::listsAreBroughtInOrder()
{
    QLinkedList<LmParamKeyframe> list;
    list << LmParamKeyframe(5, QPoint(1, 1)) << LmParamKeyframe(2, QPoint(2, 2))
         << LmParamKeyframe(-1, QPoint()) << LmParamKeyframe(3, QVariant())
         << LmParamKeyframe(5, QPoint(3, 3));
    QLinkedList<LmParamKeyframe> expected;
    expected << LmParamKeyframe(2, QPoint(2, 2)) << LmParamKeyframe(5, QPoint(3, 3));
    QVERIFY(LmKernelObjectData::inOrder(list) == expected);
}

MEASURE_TEST_MAIN(TestLmKernelObjectData)
#include "TestLmKernelObjectData.moc"
