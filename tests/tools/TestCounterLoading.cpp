#include "CounterFixture.h"
#include "LmCVSequence.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <QDomDocument>

#include <memory>

/// Counters that are loaded from a file, or made of contours found in the image.
class TestCounterLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<CounterFixture>(); }
    void cleanup() { theFixture.reset(); }

    void loadedCounterStandsOnTheCanvas();
    void loadedCounterIsOneUndoStep();
    void hiddenCounterStaysHidden();
    void savedIndexIsNotUsed();
    void loadedCounterFindsAPlaceInAGap();
    void everyParameterSurvivesSavingAndLoading();
    void brokenElementLoadsNothing();
    void contourBecomesAMarkAtItsCentre();
    void contoursGoOnInTheCurrentCounter();
    void contoursOfOneSearchUndoTogether();

private:
    QDomElement saved(int aIdx);
    static LmCVSequence contourAt(const QPoint& aCentre);

    std::unique_ptr<CounterFixture> theFixture;
    QDomDocument theDocument;
};

QDomElement TestCounterLoading::saved(int aIdx)
{
    CounterFixture& f = *theFixture;
    return f.theKernel.getDataDescriptor(f.kType)->createXML(theDocument, aIdx, *f.record(aIdx));
}

void TestCounterLoading::loadedCounterStandsOnTheCanvas()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(5, {QPoint(90, 90), QPoint(190, 190)});
    const QDomElement element = saved(5);
    delete f.theKernel.takeObject(f.kType, 5);
    f.theTool.constructDataObject(element, nullptr);
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{1});
    QCOMPARE(f.texts(1), (QStringList{"7 #1", "7 #2"})); // under the name that was saved
    QCOMPARE(f.tips(1), (QList<QPoint>{QPoint(50, 60), QPoint(150, 160)}));
    QCOMPARE(f.mark(1, 0)->getColor(), QColor(Qt::green));
    QCOMPARE(f.mark(1, 0)->theFont.family(), QStringLiteral("DejaVu Sans"));
    QVERIFY(f.mark(1, 1)->isVisible());
    QVERIFY(f.recordIsMarks(1));
}

void TestCounterLoading::loadedCounterIsOneUndoStep()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(5, {QPoint(90, 90), QPoint(190, 190)});
    f.theTool.constructDataObject(saved(5), nullptr);
    QCOMPARE(f.theStack.count(), 1);
    QCOMPARE(f.itemCount(), 4);
    f.theStack.undo();
    QCOMPARE(f.theTool.theCounters.keys(), QList<int>{5});
    QCOMPARE(f.itemCount(), 2);
    f.theStack.redo();
    QCOMPARE(f.texts(2), (QStringList{"7 #1", "7 #2"}));
}

void TestCounterLoading::hiddenCounterStaysHidden()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(5, {QPoint(90, 90)}, false);
    f.theTool.constructDataObject(saved(5), nullptr);
    QVERIFY(!f.mark(2, 0)->isVisible());
    f.theTool.showCvObject(f.mark(2, 0), true);
    QVERIFY(f.mark(2, 0)->isVisible());
}

void TestCounterLoading::savedIndexIsNotUsed()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 2});
    const QDomElement element = saved(1);
    for (const int expected : {3, 4}) {
        f.theTool.constructDataObject(element, nullptr);
        QCOMPARE(f.texts(expected), QStringList{QStringLiteral("1 #1")});
    }
}

void TestCounterLoading::loadedCounterFindsAPlaceInAGap()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 1, 1});
    const QDomElement element = saved(1);
    f.theTool.removeCounter(f.mark(2, 0));
    // Two counters make the third place the next one, and it is taken.
    f.theTool.constructDataObject(element, nullptr);
    QCOMPARE(f.theTool.theCounters.keys(), (QList<int>{1, 3, 4}));
    QCOMPARE(f.recordCount(), 3);
    f.theTool.removeCounter(f.mark(3, 0));
    f.theTool.constructDataObject(element, nullptr);
    QCOMPARE(f.theTool.theCounters.keys(), (QList<int>{1, 3, 4}));
}

void TestCounterLoading::everyParameterSurvivesSavingAndLoading()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(5, {QPoint(90, 90), QPoint(-190, 190)}, false, QStringLiteral(" <&> "));
    f.record(5)->theAnimated = true;
    f.record(5)->storeValue(f.kPos, 3, QVariant::fromValue<QPolygon>(QPolygon({QPoint(1, 2), QPoint(3, 4)})));
    f.theTool.constructDataObject(saved(5), nullptr);
    for (const int param : {0, 1, 2, 3, 4, 5})
        QCOMPARE(f.stored(f.kType, 2, param), f.stored(f.kType, 5, param));
    QVERIFY(f.record(2)->theAnimated);
    QCOMPARE(f.record(2)->getKeyframesAt(4)[f.kPos].getValue().value<QPolygon>(),
             QPolygon({QPoint(1, 2), QPoint(3, 4)}));
}

void TestCounterLoading::brokenElementLoadsNothing()
{
    CounterFixture& f = *theFixture;
    f.insertRecord(5, {QPoint(90, 90)});
    QDomElement element = saved(5);
    element.removeChild(element.lastChild());
    f.theTool.constructDataObject(element, nullptr);
    f.theTool.constructDataObject(QDomElement(), nullptr);
    QCOMPARE(f.theStack.count(), 0);
    QCOMPARE(f.recordCount(), 1);
}

LmCVSequence TestCounterLoading::contourAt(const QPoint& aCentre)
{
    LmCVSequence contour(0, 8);
    contour.theOffsetX = 30;
    contour.theOffsetY = 40;
    contour.theCoG = aCentre - QPoint(30, 40);
    return contour;
}

void TestCounterLoading::contourBecomesAMarkAtItsCentre()
{
    CounterFixture& f = *theFixture;
    QCOMPARE(f.theTool.createObjectFromContour(contourAt(QPoint(77, 88)), QStringLiteral("ignored")), 1);
    QCOMPARE(f.tips(1), QList<QPoint>{QPoint(77, 88)});
    QCOMPARE(f.points(1), QPolygon({QPoint(137, 98), QPoint(117, 118)}));
    QCOMPARE(f.current(), f.mark(1, 0));
}

void TestCounterLoading::contoursGoOnInTheCurrentCounter()
{
    CounterFixture& f = *theFixture;
    f.makeCounters({1, 2});
    f.theEditor.activateItem(f.mark(1, 0));
    const QPoint tip = f.tips(1).first();
    QCOMPARE(f.theTool.createObjectFromContour(contourAt(tip), QString()), 1); // none is taken away
    QCOMPARE(f.theTool.createObjectFromContour(contourAt(QPoint(200, 200)), QString()), 1);
    QCOMPARE(f.texts(1), (QStringList{"1 #1", "1 #2", "1 #3"}));
    f.theEditor.activateItem(nullptr);
    QCOMPARE(f.theTool.createObjectFromContour(contourAt(QPoint(220, 200)), QString()), 3);
    QCOMPARE(f.theTool.createObjectFromContour(contourAt(QPoint(240, 200)), QString()), 3);
}

void TestCounterLoading::contoursOfOneSearchUndoTogether()
{
    CounterFixture& f = *theFixture;
    f.theStack.beginMacro(QStringLiteral("Create objects"));
    for (int i = 0; i < 20; ++i)
        f.theTool.createObjectFromContour(contourAt(QPoint(10 * i, 5 * i)), QString());
    f.theStack.endMacro();
    QCOMPARE(f.theStack.count(), 1);
    const QList<QPoint> tips = f.tips(1);
    QCOMPARE(tips.size(), 20);
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.recordCount(), 0);
    f.theStack.redo();
    QCOMPARE(f.tips(1), tips);
    QCOMPARE(f.texts(1).last(), QStringLiteral("1 #20"));
    QVERIFY(f.recordIsMarks(1));
}

MEASURE_TEST_MAIN(TestCounterLoading)
#include "TestCounterLoading.moc"
