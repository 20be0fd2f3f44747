#include "AngleFixture.h"
#include "LmKernelObjectDataDescr.h"
#include "TestFont.h"

#include <QDomDocument>

#include <limits>
#include <memory>

/// Angles that are read from saved elements, beside one that was drawn.
class TestAngleLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { theFixture.reset(); }

    void loadedAngleTakesTheNextFreeIndex();
    void hiddenAngleIsLoadedHidden();
    void savedAngleComesBackAsItWas();
    void refusedElementLoadsNothing();
    void extremeAnglesAreStoredAndComeBack();

private:
    QDomElement saved(int aIdx, bool aVisible);

    std::unique_ptr<AngleFixture> theFixture;
    QDomDocument theDocument;
};

void TestAngleLoading::init()
{
    theFixture = std::make_unique<AngleFixture>();
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Angle");
    theFixture->draw(QPoint(100, 151), QPoint(101, 70), QPoint(183, 150));
    QCOMPARE(theFixture->theStack.count(), 1);
}

// A green angle at (100, 90) in the image, its arms (0, -40) and (30, 30), animated.
QDomElement TestAngleLoading::saved(int aIdx, bool aVisible)
{
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1106);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    values.setValue(AngleFixture::kVis, aVisible);
    values.setValue(AngleFixture::kCol, QColor(Qt::green));
    values.setValue(AngleFixture::kDispv, QStringLiteral("Angle"));
    values.setValue(AngleFixture::kPos, QPoint(100, 90));
    values.setValue(AngleFixture::kEp1, QPoint(0, -40));
    values.setValue(AngleFixture::kEp2, QPoint(30, 30));
    LmKernelObjectData record(values, descriptor->getKeyframeTypes(), 0);
    record.theAnimated = true;
    record.storeValue(AngleFixture::kPos, 5, QPoint(1, 2));
    return descriptor->createXML(theDocument, aIdx, record);
}

void TestAngleLoading::loadedAngleTakesTheNextFreeIndex()
{
    AngleFixture& f = *theFixture;
    f.theTool.constructDataObject(saved(1, true), nullptr);
    f.theTool.constructDataObject(saved(77, true), nullptr);
    QCOMPARE(f.theTool.theCvObjects.keys(), (QList<int>{1, 2, 3}));
    QCOMPARE(f.theKernel.getObjectsOfType(1106).keys(), (QList<int>{1, 2, 3}));
    QCOMPARE(f.item(3)->theLabel, QStringLiteral("3"));
    QCOMPARE(f.canvasPoints(3), (QList<QPoint>{QPoint(60, 60), QPoint(60, 20), QPoint(90, 90)}));
    QCOMPARE(f.item(3)->getColor(), QColor(Qt::green));
    QCOMPARE(f.item(3)->theDisplayValue, QStringLiteral("135.00°"));
    QVERIFY(f.item(3)->isVisible());
    QCOMPARE(f.theStack.count(), 3);
}

void TestAngleLoading::hiddenAngleIsLoadedHidden()
{
    theFixture->theTool.constructDataObject(saved(1, false), nullptr);
    QVERIFY(!theFixture->item(2)->isVisible());
}

void TestAngleLoading::savedAngleComesBackAsItWas()
{
    AngleFixture& f = *theFixture;
    f.theTool.constructDataObject(saved(1, false), nullptr);
    QCOMPARE(f.storedPoints(2), (QList<QPoint>{QPoint(100, 90), QPoint(0, -40), QPoint(30, 30)}));
    QCOMPARE(f.stored(1106, 2, AngleFixture::kVis), QVariant(false));
    QCOMPARE(f.stored(1106, 2, AngleFixture::kDispv), QVariant(QStringLiteral("Angle")));
    QVERIFY(f.record(2)->theAnimated);
    QCOMPARE(f.record(2)->getKeyframedFrames(), QList<long long>{5});
}

void TestAngleLoading::refusedElementLoadsNothing()
{
    AngleFixture& f = *theFixture;
    QDomElement cut = saved(1, true);
    cut.removeChild(cut.lastChild());
    f.theTool.constructDataObject(cut, nullptr);
    f.theTool.constructDataObject(QDomElement(), nullptr);
    QCOMPARE(f.itemCount(), 1);
    QCOMPARE(f.theStack.count(), 1);
}

void TestAngleLoading::extremeAnglesAreStoredAndComeBack()
{
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    AngleFixture& f = *theFixture;
    const QPoint far[] = {{kMin, kMin}, {kMax, kMax}, {0, 0}, {kMax, kMin}};
    for (const QPoint& vertex : far) {
        for (const QPoint& end1 : far) {
            for (const QPoint& end2 : far) {
                f.item(1)->setPoints(vertex, end1, end2);
                Q_EMIT f.theEditor.signalCanvasObjectChanged(f.item(1));
                QVERIFY(!f.item(1)->theDisplayValue.contains(QStringLiteral("nan")));
                const QDomElement element =
                    f.theKernel.getDataDescriptor(1106)->createXML(theDocument, 1, *f.record(1));
                f.theTool.constructDataObject(element, nullptr);
                QCOMPARE(f.storedPoints(2), f.storedPoints(1));
                f.theTool.removeCvObject(f.item(2));
                f.theKernel.announceResolution(QSize(400, 300), QSize(800, 600));
            }
        }
    }
    // Within the range nothing is lost.
    f.item(1)->setPoints(QPoint(1 << 29, 0), QPoint(-(1 << 29), 7), QPoint(3, 1 << 30));
    Q_EMIT f.theEditor.signalCanvasObjectChanged(f.item(1));
    QCOMPARE(f.storedPoints(1), (QList<QPoint>{QPoint((1 << 29) + 40, 30), QPoint(-(1 << 30), 7),
                                               QPoint(3 - (1 << 29), 1 << 30)}));
}

MEASURE_TEST_MAIN(TestAngleLoading)
#include "TestAngleLoading.moc"
