#include "KernelFixture.h"
#include "LmAppSettings.h"
#include "LmImage.h"
#include "TestFont.h"

#include <QSignalSpy>

#include <cmath>
#include <limits>

namespace {

using Fixture = KernelFixture;
constexpr int kType = Fixture::kType;

QString noName(int, int)
{
    return QString();
}

} // namespace

/// Receives the kernel's signals by their texts, as the tools do.
class Listener : public QObject
{
    Q_OBJECT

public:
    QStringList theSeen;

public Q_SLOTS:
    void slotChanged(const QString& aName, const LmCalibData&)
    {
        theSeen << QStringLiteral("changed ") + aName;
    }
    void slotCurrent(const QString& aName, const LmCalibData&)
    {
        theSeen << QStringLiteral("current ") + aName;
    }
    void slotAfter(const QString& aName, const LmCalibData&) { theSeen << QStringLiteral("after ") + aName; }
    void slotFrame(Int64 aFrame) { theSeen << QStringLiteral("frame %1").arg(aFrame); }
    void slotObject(const int, const int aIdx, const LmKernelObjectData*)
    {
        theSeen << QStringLiteral("object %1").arg(aIdx);
    }
    void slotGone(const int, const int aIdx) { theSeen << QStringLiteral("gone %1").arg(aIdx); }
    void slotColour(const int, const int, const QColor& aColor) { theSeen << aColor.name(); }
    void slotShow(const int, const int, bool aShown) { theSeen << (aShown ? "shown" : "hidden"); }
    void slotSizes(QSize aOld, QSize aNew)
    {
        theSeen << QStringLiteral("%1 to %2").arg(aOld.width()).arg(aNew.width());
    }
    void slotView(const int aView, const int aMode)
    {
        theSeen << QStringLiteral("view %1 %2").arg(aView).arg(aMode);
    }
    void slotLoaded() { theSeen << QStringLiteral("loaded"); }
};

class TestLmKSKernelData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void typeIsRegisteredOnce();
    void descriptorIsRegisteredOnce();
    void toolsComeInOrderOfRegistrationEachOnce();
    void unregisteredToolTakesItsTypesAlong();
    void unknownObjectsAreNull();
    void takenPlacesStayAsTheyAre();
    void signalsAreConnectedByTheirTexts();
    void stepIsTheWidthTimesTheScaleByTheValue();
    void stepIsZeroWithoutACalibration_data();
    void stepIsZeroWithoutACalibration();
    void stepIsZeroWithoutAnImage();
    void imageSizeIsThatOfTheWholeCurrentImage();
    void shownImageFollowsTheSource();
    void originIsTheCornerOfTheRegion();
    void equalCalibrationChangesNothing();
    void afterFollowsChangedAndCurrent();
    void removedCalibrationIsNoLongerCurrent();
    void unknownCalibrationDoesNotBecomeCurrent();
    void framesAreStoredAndTold();
    void objectsHaveATextWithoutANamer();
    void newObjectsHaveAVisibleColour();

private:
    void connectCalibration();

    LmKSKernelData* theKernel = nullptr;
    std::unique_ptr<Fixture> theFixture;
    std::unique_ptr<Listener> theListener;
};

void TestLmKSKernelData::init()
{
    theKernel = LmKSKernelData::getInstance();
    theFixture = std::make_unique<Fixture>();
    theListener = std::make_unique<Listener>();
}

void TestLmKSKernelData::cleanup()
{
    theListener.reset();
    theFixture.reset();
    QVERIFY(theKernel->calibrations().isEmpty());
    QVERIFY(theKernel->getCvManipulatorList().isEmpty());
}

void TestLmKSKernelData::typeIsRegisteredOnce()
{
    QVERIFY(theKernel->getCvManipulator(kType) == Fixture::tool(0));
    QVERIFY(!theKernel->registerObjectType(Fixture::tool(1), kType));
    QVERIFY(!theKernel->registerObjectType(Fixture::tool(0), kType));
    QVERIFY(!theKernel->registerObjectType(nullptr, kType + 1));
    QVERIFY(theKernel->getCvManipulator(kType) == Fixture::tool(0));
    QVERIFY(!theKernel->getCvManipulator(kType + 1));
}

void TestLmKSKernelData::descriptorIsRegisteredOnce()
{
    LmKernelObjectDataDescr* known = theKernel->getDataDescriptor(kType);
    QVERIFY(known);
    const std::unique_ptr<LmKernelObjectDataDescr> second(Fixture::makeDescriptor());
    QVERIFY(!theKernel->registerDataDescriptor(second.get(), kType));
    QVERIFY(!theKernel->registerDataDescriptor(nullptr, kType + 1));
    QVERIFY(theKernel->getDataDescriptor(kType) == known);
    QVERIFY(!theKernel->getDataDescriptor(kType + 1));
}

void TestLmKSKernelData::toolsComeInOrderOfRegistrationEachOnce()
{
    QVERIFY(theKernel->registerObjectType(Fixture::tool(2), kType + 2));
    QVERIFY(theKernel->registerObjectType(Fixture::tool(1), kType + 1));
    QVERIFY(theKernel->registerObjectType(Fixture::tool(2), kType + 3));
    const QList<LmCvManipulator*> expected = {Fixture::tool(0), Fixture::tool(2), Fixture::tool(1)};
    QVERIFY(theKernel->getCvManipulatorList() == expected);
}

void TestLmKSKernelData::unregisteredToolTakesItsTypesAlong()
{
    QVERIFY(theKernel->registerObjectType(Fixture::tool(1), kType + 1));
    QVERIFY(theKernel->insertObject(kType, 1, Fixture::makeRecord()));
    QVERIFY(theKernel->insertObject(kType + 1, 1, Fixture::makeRecord()));
    QSignalSpy removed(theKernel, &LmKSKernelData::signalObjectRemoved);
    theKernel->unregisterManipulator(Fixture::tool(0));
    QCOMPARE(removed.count(), 0);
    QVERIFY(!theKernel->getObject(kType, 1));
    QVERIFY(!theKernel->getDataDescriptor(kType));
    QVERIFY(!theKernel->getCvManipulator(kType));
    QVERIFY(theKernel->getObject(kType + 1, 1));
    QVERIFY(theKernel->registerObjectType(Fixture::tool(3), kType));
}

void TestLmKSKernelData::unknownObjectsAreNull()
{
    QVERIFY(!theKernel->getObject(kType, 1));
    QVERIFY(!theKernel->getObject(-5, -5));
    QVERIFY(theKernel->getObjectsOfType(-5).isEmpty());
    QVERIFY(!theKernel->takeObject(kType, 1));
    QSignalSpy changed(theKernel, &LmKSKernelData::signalObjectChanged);
    theKernel->announceObjectChanged(kType, 1);
    QCOMPARE(changed.count(), 0);
}

void TestLmKSKernelData::takenPlacesStayAsTheyAre()
{
    LmKernelObjectData* first = Fixture::makeRecord();
    const std::unique_ptr<LmKernelObjectData> second(Fixture::makeRecord());
    QVERIFY(theKernel->insertObject(kType, 1, first));
    QVERIFY(!theKernel->insertObject(kType, 1, second.get()));
    QVERIFY(!theKernel->insertObject(kType, 2, nullptr));
    QVERIFY(theKernel->getObject(kType, 1) == first);
    QVERIFY(theKernel->theObjects[kType][1] == first);
    QCOMPARE(theKernel->getObjectsOfType(kType).size(), 1);
}

void TestLmKSKernelData::signalsAreConnectedByTheirTexts()
{
    const struct
    {
        const char* theSignal;
        const char* theSlot;
    } connections[] = {
        {SIGNAL(signalCalibrationChanged(const QString&, const LmCalibData&)),
         SLOT(slotChanged(const QString&, const LmCalibData&))},
        {SIGNAL(signalCalibrationCurrent(const QString&, const LmCalibData&)),
         SLOT(slotCurrent(const QString&, const LmCalibData&))},
        {SIGNAL(signalAfterCalibrationChanged(const QString&, const LmCalibData&)),
         SLOT(slotAfter(const QString&, const LmCalibData&))},
        {SIGNAL(signalCurrentResChangedByCamera(QSize, QSize)), SLOT(slotSizes(QSize, QSize))},
        {SIGNAL(signalObjectShow(const int, const int, bool)), SLOT(slotShow(const int, const int, bool))},
        {SIGNAL(signalObjectCreated(const int, const int, const LmKernelObjectData*)),
         SLOT(slotObject(const int, const int, const LmKernelObjectData*))},
        {SIGNAL(signalObjectChanged(const int, const int, const LmKernelObjectData*)),
         SLOT(slotObject(const int, const int, const LmKernelObjectData*))},
        {SIGNAL(signalObjectBeforeRemove(const int, const int)), SLOT(slotGone(const int, const int))},
        {SIGNAL(signalObjectRemoved(const int, const int)), SLOT(slotGone(const int, const int))},
        {SIGNAL(signalObjectColorChanged(const int, const int, const QColor&)),
         SLOT(slotColour(const int, const int, const QColor&))},
        {SIGNAL(signalFrameReadyStop(Int64)), SLOT(slotFrame(Int64))},
        {SIGNAL(signalFrameReadyPlayout(Int64)), SLOT(slotFrame(Int64))},
        {SIGNAL(signalCurrentView(const int, const int)), SLOT(slotView(const int, const int))},
        {SIGNAL(signalManipulatorsLoaded(void)), SLOT(slotLoaded())},
    };
    for (const auto& connection : connections)
        QVERIFY2(connect(theKernel, connection.theSignal, theListener.get(), connection.theSlot),
                 connection.theSignal);
    theKernel->announceResolution(QSize(640, 480), QSize(1280, 960));
    theKernel->announceCurrentView(2, 1);
    theKernel->announceManipulatorsLoaded();
    theKernel->announceObjectColor(kType, 1, Qt::red);
    theKernel->announceObjectShow(kType, 1, true);
    QVERIFY(theKernel->insertObject(kType, 7, Fixture::makeRecord()));
    theKernel->announceObjectChanged(kType, 7);
    delete theKernel->takeObject(kType, 7);
    // A unit has another number of pixels then.
    const QStringList expected = {"640 to 1280", "after ",   "view 2 1", "loaded", "#ff0000",
                                  "shown",       "object 7", "object 7", "gone 7", "gone 7"};
    QCOMPARE(theListener->theSeen, expected);
}

void TestLmKSKernelData::stepIsTheWidthTimesTheScaleByTheValue()
{
    LmImage image(640, 480, 1, nullptr, 4);
    image.setQRoi(QRect(10, 10, 100, 100));
    theKernel->theCurrentImage = &image;
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{32.0, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    QString unit;
    QCOMPARE(theKernel->currentStep(unit), 20.0);
    QCOMPARE(unit, QStringLiteral("mm"));
    theKernel->theCalibScale = 0.5;
    QCOMPARE(theKernel->currentStep(unit), 10.0);
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{0.0011, QStringLiteral("mm")});
    theKernel->theCalibScale = 1.0;
    QCOMPARE(theKernel->currentStep(unit), 640.0 / 0.0011);
}

void TestLmKSKernelData::stepIsZeroWithoutACalibration_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("at the limit") << 0.001;
    QTest::newRow("below the limit") << 0.0009;
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative") << -32.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
}

void TestLmKSKernelData::stepIsZeroWithoutACalibration()
{
    QFETCH(double, value);
    LmImage image(640, 480, 1, nullptr, 4);
    theKernel->theCurrentImage = &image;
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{value, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    QString unit;
    QCOMPARE(theKernel->currentStep(unit), 0.0);
    QCOMPARE(unit, QStringLiteral("mm")); // is shown behind the pixels all the same
}

void TestLmKSKernelData::stepIsZeroWithoutAnImage()
{
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{32.0, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    QString unit;
    QCOMPARE(theKernel->currentStep(unit), 0.0);
    LmImage empty(0, 0, 1, nullptr, 4);
    theKernel->theCurrentImage = &empty;
    QCOMPARE(theKernel->currentStep(unit), 0.0);
}

void TestLmKSKernelData::imageSizeIsThatOfTheWholeCurrentImage()
{
    QCOMPARE(theKernel->getCurrentImageSize(), QSize(0, 0));
    LmImage image(64, 48, 1, nullptr, 4);
    image.setQRoi(QRect(10, 10, 20, 20));
    LmImage other(99, 99, 1, nullptr, 4);
    theKernel->theCurrentImage = &image;
    theKernel->theAltImage = &other;
    theKernel->theImageSource = 1;
    QCOMPARE(theKernel->getCurrentImageSize(), QSize(64, 48));
}

void TestLmKSKernelData::shownImageFollowsTheSource()
{
    LmImage image(64, 48, 1, nullptr, 4);
    LmImage other(99, 99, 1, nullptr, 4);
    theKernel->theCurrentImage = &image;
    theKernel->theAltImage = &other;
    const QMap<int, LmImage*> expected = {{0, &image}, {1, &other}, {2, &other}, {3, &image}, {-1, &image}};
    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        theKernel->theImageSource = it.key();
        QVERIFY(theKernel->getShownImage() == it.value());
    }
}

void TestLmKSKernelData::originIsTheCornerOfTheRegion()
{
    QCOMPARE(theKernel->origin(), QPoint(0, 0));
    LmImage image(64, 48, 1, nullptr, 4);
    image.setQRoi(QRect(10, 11, 20, 20));
    theKernel->theCurrentImage = &image;
    QCOMPARE(theKernel->origin(), QPoint(10, 11));
}

void TestLmKSKernelData::connectCalibration()
{
    Listener* listener = theListener.get();
    connect(theKernel, &LmKSKernelData::signalAfterCalibrationChanged, listener, &Listener::slotAfter);
    connect(theKernel, &LmKSKernelData::signalCalibrationChanged, listener, &Listener::slotChanged);
    connect(theKernel, &LmKSKernelData::signalCalibrationCurrent, listener, &Listener::slotCurrent);
}

void TestLmKSKernelData::equalCalibrationChangesNothing()
{
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{32.0, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    connectCalibration();
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{32.0, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    QVERIFY(theListener->theSeen.isEmpty());
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{32.0, QStringLiteral("cm")});
    QCOMPARE(theListener->theSeen, QStringList({"changed a", "after a"}));
}

void TestLmKSKernelData::afterFollowsChangedAndCurrent()
{
    connectCalibration();
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{32.0, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    theKernel->setCurrentCalibration(QString());
    QCOMPARE(theListener->theSeen,
             QStringList({"changed a", "after a", "current a", "after a", "current ", "after "}));
    QString name = QStringLiteral("x");
    QCOMPARE(theKernel->getCurrentCalibData(name), LmCalibData());
    QVERIFY(name.isEmpty());
}

void TestLmKSKernelData::removedCalibrationIsNoLongerCurrent()
{
    theKernel->setCalibration(QStringLiteral("a"), LmCalibData{32.0, QStringLiteral("mm")});
    theKernel->setCalibration(QStringLiteral("b"), LmCalibData{16.0, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    connectCalibration();
    theKernel->removeCalibration(QStringLiteral("b"));
    theKernel->removeCalibration(QStringLiteral("b"));
    theKernel->removeCalibration(QStringLiteral("a"));
    QCOMPARE(theListener->theSeen, QStringList({"changed b", "after b", "current ", "after "}));
    QString name;
    QCOMPARE(theKernel->getCurrentCalibData(name).theValue, 0.0);
    QVERIFY(name.isEmpty());
}

void TestLmKSKernelData::unknownCalibrationDoesNotBecomeCurrent()
{
    connectCalibration();
    theKernel->setCurrentCalibration(QStringLiteral("a"));
    theKernel->setCalibration(QString(), LmCalibData{32.0, QStringLiteral("mm")});
    QVERIFY(theListener->theSeen.isEmpty());
    QVERIFY(theKernel->calibrations().isEmpty());
}

void TestLmKSKernelData::framesAreStoredAndTold()
{
    QSignalSpy stops(theKernel, &LmKSKernelData::signalFrameReadyStop);
    QSignalSpy playouts(theKernel, &LmKSKernelData::signalFrameReadyPlayout);
    theKernel->showFrame(12, true);
    QCOMPARE(theKernel->theCurrentFrame, 12u);
    QCOMPARE(playouts.count(), 1);
    QCOMPARE(stops.count(), 0);
    theKernel->showFrame(4000000000LL, false);
    QCOMPARE(theKernel->theCurrentFrame, 4000000000u);
    QCOMPARE(stops.at(0).at(0).toLongLong(), 4000000000LL);
    theKernel->showFrame(-3, false);
    QCOMPARE(theKernel->theCurrentFrame, 0u);
    QCOMPARE(stops.at(1).at(0).toLongLong(), 0LL);
}

void TestLmKSKernelData::objectsHaveATextWithoutANamer()
{
    QCOMPARE(theKernel->objectText(kType, 3), QStringLiteral("object 3"));
    theKernel->setObjectNamer(noName);
    QCOMPARE(theKernel->objectText(kType, 3), QStringLiteral("object 3"));
    theKernel->setObjectNamer(
        [](int aType, int aIdx) { return QStringLiteral("%1/%2").arg(aType).arg(aIdx); });
    QCOMPARE(theKernel->objectText(kType, 3), QStringLiteral("9001/3"));
}

void TestLmKSKernelData::newObjectsHaveAVisibleColour()
{
    QVERIFY(LmAppSettings::theGridColor.isValid());
    QCOMPARE(LmAppSettings::theGridColor.alpha(), 255);
    QVERIFY(LmAppSettings::theLastExcelFile.isEmpty());
}

MEASURE_TEST_MAIN(TestLmKSKernelData)
#include "TestLmKSKernelData.moc"
