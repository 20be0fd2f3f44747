#include "CmdChangeObject.h"
#include "KernelFixture.h"
#include "LmValueChange.h"
#include "TestFont.h"

#include <QPolygon>
#include <QUndoStack>

namespace {

QVariant polygon(const QPolygon& aPoints)
{
    return QVariant::fromValue<QPolygon>(aPoints);
}

QPolygon randomPolygon(QRandomGenerator& aRandom)
{
    QPolygon points; // few different points, so that stretches are alike by chance
    for (int i = aRandom.bounded(9); i > 0; --i)
        points.append(QPoint(aRandom.bounded(2), 0));
    return points;
}

} // namespace

class TestLmValueChange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plainValuesAreKeptWhole();
    void equalValuesAreNoChange();
    void fromNoValueAndBack();
    void anyTwoListsAreReachedFromEachOther();
    void anyTwoByteArraysAreReachedFromEachOther();
    void onlyTheDifferentStretchIsKept();
    void listThatWasRewrittenMeanwhileIsNoDanger();
    void tenThousandAdditionsCostLinearMemory();
};

void TestLmValueChange::plainValuesAreKeptWhole()
{
    const LmValueChange change(QPoint(1, 2), QPoint(3, 4));
    QVERIFY(!change.isEmpty());
    QCOMPARE(change.forward(QPoint(1, 2)), QVariant(QPoint(3, 4)));
    QCOMPARE(change.backward(QPoint(3, 4)), QVariant(QPoint(1, 2)));
}

void TestLmValueChange::equalValuesAreNoChange()
{
    QVERIFY(LmValueChange(true, true).isEmpty());
    QVERIFY(LmValueChange(QVariant(), QVariant()).isEmpty());
    QVERIFY(LmValueChange(polygon({{1, 1}}), polygon({{1, 1}})).isEmpty());
    QVERIFY(!LmValueChange(true, false).isEmpty());
    QCOMPARE(LmValueChange(QPoint(1, 2), QPoint(1, 2)).forward(QPoint(1, 2)), QVariant(QPoint(1, 2)));
}

void TestLmValueChange::fromNoValueAndBack()
{
    const LmValueChange change(QVariant(), polygon({{1, 1}, {2, 2}}));
    QCOMPARE(change.forward(QVariant()), polygon({{1, 1}, {2, 2}}));
    QVERIFY(!change.backward(polygon({{1, 1}, {2, 2}})).isValid());
}

void TestLmValueChange::anyTwoListsAreReachedFromEachOther()
{
    const unsigned int seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 5000; ++round) {
        const QVariant before = polygon(randomPolygon(random));
        const QVariant after = polygon(randomPolygon(random));
        const LmValueChange change(before, after);
        QCOMPARE(change.forward(before), after);
        QCOMPARE(change.backward(after), before);
        QVERIFY(change.forward(before).metaType() == QMetaType::fromType<QPolygon>());
        QCOMPARE(change.isEmpty(), before == after);
    }
}

void TestLmValueChange::anyTwoByteArraysAreReachedFromEachOther()
{
    const QByteArray arrays[] = {"", "a", "aa", "ab", "aba", "abba", "bab", "aaaa"};
    for (const QByteArray& before : arrays)
        for (const QByteArray& after : arrays) {
            const LmValueChange change(before, after);
            QCOMPARE(change.forward(before), QVariant(after));
            QCOMPARE(change.backward(after), QVariant(before));
        }
}

void TestLmValueChange::onlyTheDifferentStretchIsKept()
{
    QPolygon before;
    for (int i = 0; i < 1000; ++i)
        before.append(QPoint(i, i));
    const qsizetype onePoint = sizeof(QPoint);
    QPolygon moved = before;
    moved[500] = QPoint(-1, -1);
    QCOMPARE(LmValueChange(polygon(before), polygon(moved)).storedSize(), 2 * onePoint);
    QPolygon longer = before;
    longer.insert(3, QPoint(-1, -1));
    QCOMPARE(LmValueChange(polygon(before), polygon(longer)).storedSize(), onePoint);
    QCOMPARE(LmValueChange(polygon(longer), polygon(before)).storedSize(), onePoint);
}

void TestLmValueChange::listThatWasRewrittenMeanwhileIsNoDanger()
{
    const LmValueChange change(polygon({{0, 0}, {1, 1}, {2, 2}}), polygon({{0, 0}, {1, 1}, {3, 3}}));
    QCOMPARE(change.forward(polygon({{9, 9}})), polygon({{9, 9}, {3, 3}}));
    QCOMPARE(change.backward(polygon({})), polygon({{2, 2}}));
    QCOMPARE(change.forward(QVariant()), polygon({{3, 3}}));
}

void TestLmValueChange::tenThousandAdditionsCostLinearMemory()
{
    constexpr int kAdditions = 10000;
    const KernelFixture fixture;
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QVERIFY(kernel->insertObject(KernelFixture::kType, 1, KernelFixture::makeRecord()));
    QUndoStack stack;
    QPolygon points({{0, 0}, {10, 0}, {10, 10}});
    QByteArray states("abc");
    for (int i = 0; i < kAdditions; ++i) {
        points.append(QPoint(i, -i));
        states.append(char(i));
        LmParamKeyframeVector values = KernelFixture::vectorWith(KernelFixture::kPts, polygon(points));
        values.setValue(KernelFixture::kNst, states);
        stack.push(new CmdChangeObject(KernelFixture::kType, 1, values, false));
    }
    QCOMPARE(stack.count(), kAdditions);
    qsizetype stored = 0;
    for (int i = 0; i < stack.count(); ++i)
        stored += dynamic_cast<const CmdChangeObject&>(*stack.command(i)).storedSize();
    QCOMPARE(stored, kAdditions * qsizetype(sizeof(QPoint) + 1));

    const LmKernelObjectData* data = kernel->getObject(KernelFixture::kType, 1);
    QCOMPARE(data->storedValue(KernelFixture::kPts, -1).value<QPolygon>(), points);
    stack.setIndex(0);
    QCOMPARE(data->storedValue(KernelFixture::kPts, -1).value<QPolygon>().size(), 3);
    QCOMPARE(data->storedValue(KernelFixture::kNst, -1).toByteArray(), QByteArray("abc"));
    stack.setIndex(kAdditions);
    QCOMPARE(data->storedValue(KernelFixture::kPts, -1).value<QPolygon>(), points);
}

MEASURE_TEST_MAIN(TestLmValueChange)
#include "TestLmValueChange.moc"
