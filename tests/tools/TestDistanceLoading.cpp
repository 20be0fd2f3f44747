#include "DistanceFixture.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <QDomDocument>

#include <memory>

class TestDistanceLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<DistanceFixture>(); }
    void cleanup() { theFixture.reset(); }

    void loadedObjectStandsOnTheCanvas();
    void hiddenObjectStaysHidden();
    void savedIndexIsNotUsed();
    void loadedObjectTakesTheDefaultsWhateverTheFrame();
    void loadingMakesOneItemAndOneUndoStep();
    void everyParameterSurvivesSavingAndLoading();
    void brokenElementLoadsNothing();
    void toolWithoutADescriptorLoadsNothing();

private:
    QDomElement saved(int aIdx, bool aVisible);

    std::unique_ptr<DistanceFixture> theFixture;
    QDomDocument theDocument;
};

// A blue line from (100, 90) to (160, 170) in the image: 60, 80, 100, animated.
QDomElement TestDistanceLoading::saved(int aIdx, bool aVisible)
{
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1102);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    values.setValue(DistanceFixture::kVis, aVisible);
    values.setValue(DistanceFixture::kCol, QColor(Qt::blue));
    values.setValue(DistanceFixture::kDispv, QStringLiteral("Distance"));
    values.setValue(DistanceFixture::kPos, QPoint(130, 130));
    values.setValue(DistanceFixture::kEp, QPoint(30, 40));
    LmKernelObjectData record(values, descriptor->getKeyframeTypes(), 0);
    record.theAnimated = true;
    record.storeValue(DistanceFixture::kPos, 5, QPoint(1, 2));
    QDomElement element = descriptor->createXML(theDocument, aIdx, record);
    return element;
}

void TestDistanceLoading::loadedObjectStandsOnTheCanvas()
{
    DistanceFixture& f = *theFixture;
    f.calibrate(160.0, QStringLiteral("mm")); // 2.5 pixels each
    f.theEditor.setZoom(0.5);
    f.theTool.constructDataObject(saved(1, true), nullptr);
    LmCvDistance* item = f.item(1);
    QCOMPARE(item->theStart, QPoint(60, 60));
    QCOMPARE(item->theEnd, QPoint(120, 140));
    QCOMPARE(item->getColor(), QColor(Qt::blue));
    QCOMPARE(item->theStep, 2.5);
    QCOMPARE(item->theArrowLength, 20.0);
    QVERIFY(item->isVisible());
    QCOMPARE(item->labelText(), QStringLiteral(" 1 <40.00mm> "));
    QVERIFY(!item->isActive());
}

void TestDistanceLoading::hiddenObjectStaysHidden()
{
    theFixture->theTool.constructDataObject(saved(1, false), nullptr);
    QVERIFY(!theFixture->item(1)->isVisible());
    theFixture->theTool.constructDataObject(saved(2, true), nullptr);
    QVERIFY(theFixture->item(2)->isVisible());
}

void TestDistanceLoading::savedIndexIsNotUsed()
{
    DistanceFixture& f = *theFixture;
    f.drag(QPoint(10, 10), QPoint(50, 10));
    f.theTool.constructDataObject(saved(1, true), nullptr);
    f.theTool.constructDataObject(saved(77, true), nullptr);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2, 3}));
    QCOMPARE(f.theKernel.getObjectsOfType(1102).keys(), (QList<int>{1, 2, 3}));
    QCOMPARE(f.item(3)->theLabel, QStringLiteral("3"));
}

void TestDistanceLoading::loadedObjectTakesTheDefaultsWhateverTheFrame()
{
    DistanceFixture& f = *theFixture;
    f.theKernel.theCurrentFrame = 5;
    f.theTool.constructDataObject(saved(1, true), nullptr);
    QCOMPARE(f.item(1)->theStart, QPoint(60, 60));
    f.theKernel.showFrame(5, false); // the next frame puts it where it belongs
    QCOMPARE(f.item(1)->theStart, QPoint(1 - 40 - 30, 2 - 30 - 40));
}

void TestDistanceLoading::loadingMakesOneItemAndOneUndoStep()
{
    DistanceFixture& f = *theFixture;
    f.theTool.constructDataObject(saved(1, true), nullptr);
    QCOMPARE(f.itemCount(), 1);
    QVERIFY(!f.theTool.theSelfChange);
    QCOMPARE(f.theStack.count(), 1);
    f.theStack.undo();
    QCOMPARE(f.itemCount(), 0);
    f.theStack.redo();
    QCOMPARE(f.itemCount(), 1);
    QVERIFY(f.record(1)->theAnimated);
}

void TestDistanceLoading::everyParameterSurvivesSavingAndLoading()
{
    DistanceFixture& f = *theFixture;
    f.theTool.constructDataObject(saved(1, false), nullptr);
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kVis), QVariant(false));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kCol), QVariant(QColor(Qt::blue)));
    QCOMPARE(f.stored(1102, 1, DistanceFixture::kDispv), QVariant(QStringLiteral("Distance")));
    QCOMPARE(f.pos(1), QPoint(130, 130));
    QCOMPARE(f.ep(1), QPoint(30, 40));
    QVERIFY(f.record(1)->theAnimated);
    QCOMPARE(f.record(1)->getKeyframedFrames(), QList<long long>{5});
}

void TestDistanceLoading::brokenElementLoadsNothing()
{
    DistanceFixture& f = *theFixture;
    f.theTool.constructDataObject(QDomElement(), nullptr);
    f.theTool.constructDataObject(theDocument.createElement(QStringLiteral("nonsense")), nullptr);
    QDomElement cut = saved(1, true);
    cut.removeChild(cut.lastChild());
    f.theTool.constructDataObject(cut, nullptr);
    QCOMPARE(f.itemCount(), 0);
    QVERIFY(f.theTool.theCvObjects.isEmpty());
    QCOMPARE(f.theStack.count(), 0);
}

void TestDistanceLoading::toolWithoutADescriptorLoadsNothing()
{
    const QDomElement element = saved(1, true);
    DistanceFixture& f = *theFixture;
    LmCvManipDist second(nullptr); // its type is taken
    f.start(second);
    second.constructDataObject(element, nullptr);
    QCOMPARE(f.itemCount(), 0);
    QCOMPARE(f.theStack.count(), 0);
}

MEASURE_TEST_MAIN(TestDistanceLoading)
#include "TestDistanceLoading.moc"
