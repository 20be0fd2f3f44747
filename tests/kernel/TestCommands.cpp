#include "CmdCalibrate.h"
#include "CmdChangeObject.h"
#include "CmdChangeObjectColor.h"
#include "CmdCreateObject.h"
#include "CmdRemoveObject.h"
#include "CmdSetAnimation.h"
#include "CmdShowObject.h"
#include "CmdSwitchAnimation.h"
#include "KernelFixture.h"
#include "TestFont.h"

#include <QPolygon>
#include <QSignalSpy>
#include <QUndoStack>

namespace {

using Fixture = KernelFixture;
constexpr int kType = Fixture::kType;

QString namedDistance(int aType, int aIdx)
{
    return aType == kType ? QStringLiteral("Distance %1").arg(aIdx) : QString();
}

} // namespace

class TestCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void createAddsARecordAndTellsOfIt();
    void createInATakenPlaceIsNoStep();
    void createOfNothingIsNoStep();
    void removeKeepsTheRecordForUndo();
    void recordIsStillReadableBeforeItGoes();
    void recordsOutsideTheKernelGoWithTheirCommand();
    void changeWritesTheVectorAtItsFrame_data();
    void changeWritesTheVectorAtItsFrame();
    void changeTakesBackItsOwnKeyframe();
    void changeLeavesParametersWithoutAValueAlone();
    void changeWithoutADifferenceIsAStepAndTold();
    void changeThatReplacesRedoableStepsCanBeUndone();
    void changeRefusesValuesOfOtherTypes();
    void colourTravelsByItsOwnSignal();
    void visibilityTravelsByItsOwnSignal();
    void animationIsReplacedAsAWhole();
    void emptyAnimationIsAStep();
    void animationOfAnotherTypeIsNoStep();
    void switchingAnimationKeepsTheKeyframes();
    void unknownObjectsMakeNoStep();
    void calibrationIsSetAndTakenBack();
    void calibrationIsRemovedAndComesBack();
    void textsNameTheActionAndTheObject();
    void macroIsUndoneAsOneStep();
    void randomStepsAreUndoneAndRedoneExactly();

private:
    /// Pushes the command and walks: state 0, do, state 1, undo, state 0, redo, state 1. Each step sends as
    /// many of the signals as are named.
    void walk(QUndoCommand* aCommand, const char* aDoSignal, const char* aUndoSignal);
    LmKernelObjectData* data() const { return theKernel->getObject(kType, 1); }

    LmKSKernelData* theKernel = nullptr;
    std::unique_ptr<Fixture> theFixture;
    std::unique_ptr<QUndoStack> theStack;
};

void TestCommands::init()
{
    theKernel = LmKSKernelData::getInstance();
    theFixture = std::make_unique<Fixture>();
    theStack = std::make_unique<QUndoStack>();
    QVERIFY(theKernel->insertObject(kType, 1, Fixture::makeRecord()));
}

void TestCommands::cleanup()
{
    theStack.reset();
    theFixture.reset();
    QVERIFY(theKernel->getObjectsOfType(kType).isEmpty());
}

void TestCommands::walk(QUndoCommand* aCommand, const char* aDoSignal, const char* aUndoSignal)
{
    QSignalSpy doSpy(theKernel, aDoSignal);
    QSignalSpy undoSpy(theKernel, aUndoSignal);
    const bool same = qstrcmp(aDoSignal, aUndoSignal) == 0;
    const QStringList before = Fixture::dumpKernel();
    theStack->push(aCommand);
    QCOMPARE(theStack->count(), 1);
    const QStringList after = Fixture::dumpKernel();
    QVERIFY(after != before);
    QCOMPARE(doSpy.count(), 1);
    theStack->undo();
    QCOMPARE(Fixture::dumpKernel(), before);
    QCOMPARE(undoSpy.count(), same ? 2 : 1);
    theStack->redo();
    QCOMPARE(Fixture::dumpKernel(), after);
    QCOMPARE(doSpy.count(), same ? 3 : 2);
    QCOMPARE(theStack->count(), 1);
}

void TestCommands::createAddsARecordAndTellsOfIt()
{
    LmKernelObjectData* record = Fixture::makeRecord();
    walk(new CmdCreateObject(kType, 4, record),
         SIGNAL(signalObjectCreated(int, int, const LmKernelObjectData*)),
         SIGNAL(signalObjectRemoved(int, int)));
    QVERIFY(theKernel->getObject(kType, 4) == record);
}

void TestCommands::createInATakenPlaceIsNoStep()
{
    const QStringList before = Fixture::dumpKernel();
    QSignalSpy spy(theKernel, &LmKSKernelData::signalObjectCreated);
    theStack->push(new CmdCreateObject(kType, 1, Fixture::makeRecord()));
    QCOMPARE(theStack->count(), 0);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(Fixture::dumpKernel(), before);
}

void TestCommands::createOfNothingIsNoStep()
{
    theStack->push(new CmdCreateObject(kType, 2, nullptr));
    QCOMPARE(theStack->count(), 0);
    QVERIFY(!theKernel->getObject(kType, 2));
}

void TestCommands::removeKeepsTheRecordForUndo()
{
    LmKernelObjectData* record = data();
    walk(new CmdRemoveObject(kType, 1), SIGNAL(signalObjectRemoved(int, int)),
         SIGNAL(signalObjectCreated(int, int, const LmKernelObjectData*)));
    QVERIFY(!data());
    theStack->undo();
    QVERIFY(data() == record);
}

void TestCommands::recordIsStillReadableBeforeItGoes()
{
    QStringList seen;
    const auto before =
        connect(theKernel, &LmKSKernelData::signalObjectBeforeRemove, this, [&](int aType, int aIdx) {
            seen << (theKernel->getObject(aType, aIdx) ? "before: there" : "before: gone");
        });
    const auto removed =
        connect(theKernel, &LmKSKernelData::signalObjectRemoved, this, [&](int aType, int aIdx) {
            seen << (theKernel->getObject(aType, aIdx) ? "removed: there" : "removed: gone");
        });
    theStack->push(new CmdRemoveObject(kType, 1));
    theStack->push(new CmdCreateObject(kType, 2, Fixture::makeRecord()));
    theStack->undo();
    disconnect(before);
    disconnect(removed);
    QCOMPARE(seen, QStringList({"before: there", "removed: gone", "before: there", "removed: gone"}));
}

void TestCommands::recordsOutsideTheKernelGoWithTheirCommand()
{
    // Each record has one owner at every moment: the leak and double-free checks of a sanitized build watch
    // this.
    theStack->push(new CmdCreateObject(kType, 2, Fixture::makeRecord()));
    theStack->push(new CmdRemoveObject(kType, 1));
    theStack->undo();
    theStack->undo();
    theStack->push(new CmdRemoveObject(kType, 1));
    theStack->clear();
    QVERIFY(theKernel->getObjectsOfType(kType).isEmpty());
    delete new CmdCreateObject(kType, 2, Fixture::makeRecord());
}

void TestCommands::changeWritesTheVectorAtItsFrame_data()
{
    QTest::addColumn<int>("param");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<long long>("frame");
    QTest::newRow("default point") << int(Fixture::kPos) << QVariant(QPoint(5, 6)) << -1LL;
    QTest::newRow("point at a frame") << int(Fixture::kPos) << QVariant(QPoint(5, 6)) << 7LL;
    QTest::newRow("point at a keyframe") << int(Fixture::kPos) << QVariant(QPoint(5, 6)) << 10LL;
    const QVariant points = QVariant::fromValue<QPolygon>(QPolygon({{0, 0}, {5, 5}, {10, 0}, {10, 10}}));
    QTest::newRow("default points") << int(Fixture::kPts) << points << -1LL;
    QTest::newRow("points at a frame") << int(Fixture::kPts) << points << 0LL;
    QTest::newRow("bytes at a frame") << int(Fixture::kNst) << QVariant(QByteArray("xyz")) << 3LL;
    QTest::newRow("value of the whole object")
        << int(Fixture::kDispv) << QVariant(QStringLiteral("DX")) << 3LL;
}

void TestCommands::changeWritesTheVectorAtItsFrame()
{
    QFETCH(int, param);
    QFETCH(QVariant, value);
    QFETCH(long long, frame);
    data()->storeValue(Fixture::kPos, 10, QPoint(0, 0));
    data()->storeValue(Fixture::kPts, 10, QVariant::fromValue<QPolygon>(QPolygon()));
    const char* changed = SIGNAL(signalObjectChanged(int, int, const LmKernelObjectData*));
    walk(new CmdChangeObject(kType, 1, Fixture::vectorWith(param, value, frame), false), changed, changed);
    QCOMPARE(data()->storedValue(param, frame), value);
}

void TestCommands::changeTakesBackItsOwnKeyframe()
{
    theStack->push(new CmdChangeObject(kType, 1, Fixture::vectorWith(Fixture::kPos, QPoint(5, 6), 7), false));
    QCOMPARE(data()->getKeyframedFrames(), QList<long long>({7}));
    theStack->undo();
    QVERIFY(data()->getKeyframedFrames().isEmpty());
}

void TestCommands::changeLeavesParametersWithoutAValueAlone()
{
    QStringList expected = Fixture::dump(data());
    theStack->push(new CmdChangeObject(kType, 1, Fixture::vectorWith(Fixture::kVis, false), false));
    expected.replaceInStrings(QStringLiteral("-1 bool true"), QStringLiteral("-1 bool false"));
    QCOMPARE(Fixture::dump(data()), expected);
}

void TestCommands::changeWithoutADifferenceIsAStepAndTold()
{
    const QStringList before = Fixture::dumpKernel();
    QSignalSpy spy(theKernel, &LmKSKernelData::signalObjectChanged);
    theStack->push(new CmdChangeObject(kType, 1, data()->getDefaultKeyframes(), false));
    QCOMPARE(theStack->count(), 1);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(Fixture::dumpKernel(), before);
    theStack->undo();
    QCOMPARE(Fixture::dumpKernel(), before);
    QCOMPARE(spy.count(), 2);
    theStack->redo();
    QCOMPARE(theStack->count(), 1);
    QCOMPARE(Fixture::dumpKernel(), before);
    QCOMPARE(spy.count(), 3);
}

void TestCommands::changeThatReplacesRedoableStepsCanBeUndone()
{
    theStack->push(new CmdChangeObject(kType, 1, Fixture::vectorWith(Fixture::kVis, false), false));
    const QStringList hidden = Fixture::dumpKernel();
    theStack->push(new CmdChangeObject(kType, 1, Fixture::vectorWith(Fixture::kPos, QPoint(5, 6)), false));
    theStack->undo();
    // What could be redone goes with any push, so the push itself has to stand in its place.
    theStack->push(new CmdChangeObject(kType, 1, data()->getDefaultKeyframes(), false));
    QCOMPARE(theStack->count(), 2);
    QVERIFY(theStack->canUndo());
    QVERIFY(!theStack->canRedo());
    theStack->undo();
    QCOMPARE(Fixture::dumpKernel(), hidden);
    QVERIFY(theStack->canRedo());
}

void TestCommands::changeRefusesValuesOfOtherTypes()
{
    const QStringList before = Fixture::dumpKernel();
    theStack->push(new CmdChangeObject(kType, 1, Fixture::vectorWith(Fixture::kPos, QSize(3, 4)), false));
    QCOMPARE(Fixture::dumpKernel(), before);
    QCOMPARE(theStack->count(), 1);
    theStack->undo();
    QCOMPARE(Fixture::dumpKernel(), before);
}

void TestCommands::colourTravelsByItsOwnSignal()
{
    QSignalSpy changed(theKernel, &LmKSKernelData::signalObjectChanged);
    QSignalSpy colours(theKernel, &LmKSKernelData::signalObjectColorChanged);
    const char* colour = SIGNAL(signalObjectColorChanged(int, int, const QColor&));
    walk(new CmdChangeObjectColor(kType, 1, Qt::red), colour, colour);
    QCOMPARE(colours.at(0).at(2).value<QColor>(), QColor(Qt::red));
    QCOMPARE(colours.at(1).at(2).value<QColor>(), QColor(10, 20, 30));
    QCOMPARE(changed.count(), 0);
    theStack->push(new CmdChangeObjectColor(kType, 1, Qt::red));
    QCOMPARE(theStack->count(), 1);
}

void TestCommands::visibilityTravelsByItsOwnSignal()
{
    QSignalSpy changed(theKernel, &LmKSKernelData::signalObjectChanged);
    QSignalSpy shows(theKernel, &LmKSKernelData::signalObjectShow);
    const char* show = SIGNAL(signalObjectShow(int, int, bool));
    walk(new CmdShowObject(kType, 1, false), show, show);
    QCOMPARE(shows.at(0).at(2).toBool(), false);
    QCOMPARE(shows.at(1).at(2).toBool(), true);
    QCOMPARE(changed.count(), 0);
    theStack->push(new CmdShowObject(kType, 1, false));
    QCOMPARE(theStack->count(), 1);
}

void TestCommands::animationIsReplacedAsAWhole()
{
    data()->storeValue(Fixture::kPos, 3, QPoint(1, 1));
    data()->storeValue(Fixture::kPos, 9, QPoint(2, 2));
    QLinkedList<LmParamKeyframe> list;
    list << LmParamKeyframe(8, QPoint(8, 8)) << LmParamKeyframe(4, QPoint(4, 4));
    const char* changed = SIGNAL(signalObjectChanged(int, int, const LmKernelObjectData*));
    walk(new CmdSetAnimation(kType, 1, Fixture::kPos, list), changed, changed);
    QCOMPARE(data()->getKeyframedFrames(), QList<long long>({4, 8}));
    QCOMPARE(list.size(), 2); // the caller's list is only read
}

void TestCommands::emptyAnimationIsAStep()
{
    QLinkedList<LmParamKeyframe> none;
    theStack->push(new CmdSetAnimation(kType, 1, Fixture::kPos, none));
    QCOMPARE(theStack->count(), 1);
}

void TestCommands::animationOfAnotherTypeIsNoStep()
{
    const QStringList before = Fixture::dumpKernel();
    QLinkedList<LmParamKeyframe> list;
    list << LmParamKeyframe(8, QPoint(8, 8));
    for (const int param : {int(Fixture::kPts), int(Fixture::kCol), -1, 8})
        theStack->push(new CmdSetAnimation(kType, 1, param, list));
    QCOMPARE(theStack->count(), 0);
    QCOMPARE(Fixture::dumpKernel(), before);
}

void TestCommands::switchingAnimationKeepsTheKeyframes()
{
    data()->storeValue(Fixture::kPos, 3, QPoint(1, 1));
    const char* changed = SIGNAL(signalObjectChanged(int, int, const LmKernelObjectData*));
    walk(new CmdSwitchAnimation(kType, 1, true), changed, changed);
    QVERIFY(data()->theAnimated);
    theStack->push(new CmdSwitchAnimation(kType, 1, false));
    QCOMPARE(data()->getKeyframedFrames(), QList<long long>({3}));
    theStack->push(new CmdSwitchAnimation(kType, 1, false));
    QCOMPARE(theStack->count(), 2);
}

void TestCommands::unknownObjectsMakeNoStep()
{
    const QStringList before = Fixture::dumpKernel();
    QLinkedList<LmParamKeyframe> list;
    theStack->push(new CmdRemoveObject(kType, 99));
    theStack->push(new CmdChangeObject(kType, 99, Fixture::vectorWith(Fixture::kVis, false), false));
    theStack->push(new CmdChangeObjectColor(kType, 99, Qt::red));
    theStack->push(new CmdShowObject(kType + 1, 1, false));
    theStack->push(new CmdSetAnimation(kType, 99, Fixture::kPos, list));
    theStack->push(new CmdSwitchAnimation(kType, 99, true));
    QCOMPARE(theStack->count(), 0);
    QCOMPARE(Fixture::dumpKernel(), before);
}

void TestCommands::calibrationIsSetAndTakenBack()
{
    const QString name = QStringLiteral("10x");
    const char* current = SIGNAL(signalCalibrationCurrent(QString, LmCalibData));
    walk(new CmdCalibrate(name, LmCalibData{12.5, QStringLiteral("mm")}, name), current, current);
    QString found;
    QCOMPARE(theKernel->getCurrentCalibData(found).theValue, 12.5);
    QCOMPARE(found, name);
    theStack->push(new CmdCalibrate(name, LmCalibData{12.5, QStringLiteral("mm")}, name));
    QCOMPARE(theStack->count(), 1);
}

void TestCommands::calibrationIsRemovedAndComesBack()
{
    const QString name = QStringLiteral("10x");
    theKernel->setCalibration(name, LmCalibData{12.5, QStringLiteral("mm")});
    theKernel->setCalibration(QStringLiteral("20x"), LmCalibData{6.25, QStringLiteral("mm")});
    theKernel->setCurrentCalibration(name);
    const char* current = SIGNAL(signalCalibrationCurrent(QString, LmCalibData));
    walk(new CmdCalibrate(name, std::nullopt, QStringLiteral("20x")), current, current);
    QVERIFY(!theKernel->calibrations().contains(name));
}

void TestCommands::textsNameTheActionAndTheObject()
{
    theKernel->setObjectNamer(namedDistance);
    QLinkedList<LmParamKeyframe> list;
    const std::unique_ptr<QUndoCommand> commands[] = {
        std::make_unique<CmdCreateObject>(kType, 3, nullptr),
        std::make_unique<CmdChangeObject>(kType, 3, LmParamKeyframeVector(), false),
        std::make_unique<CmdRemoveObject>(kType, 3),
        std::make_unique<CmdChangeObjectColor>(kType, 3, Qt::red),
        std::make_unique<CmdShowObject>(kType, 3, true),
        std::make_unique<CmdShowObject>(kType, 3, false),
        std::make_unique<CmdSetAnimation>(kType, 3, Fixture::kPos, list),
        std::make_unique<CmdSwitchAnimation>(kType, 3, true),
        std::make_unique<CmdSwitchAnimation>(kType, 3, false),
        std::make_unique<CmdCalibrate>(QString(), std::nullopt, QString()),
        std::make_unique<CmdRemoveObject>(kType + 1, 5)};
    QStringList texts;
    for (const auto& command : commands)
        texts << command->text();
    const QStringList expected = {"Create Distance 3",
                                  "Change Distance 3",
                                  "Delete Distance 3",
                                  "Colour of Distance 3",
                                  "Show Distance 3",
                                  "Hide Distance 3",
                                  "Set keyframes of Distance 3",
                                  "Animate Distance 3",
                                  "Stop animating Distance 3",
                                  "Calibrate",
                                  "Delete object 5"};
    QCOMPARE(texts, expected);
}

void TestCommands::macroIsUndoneAsOneStep()
{
    const QStringList before = Fixture::dumpKernel();
    QLinkedList<LmParamKeyframe> list;
    list << LmParamKeyframe(8, QPoint(8, 8));
    theStack->beginMacro(QStringLiteral("Setting animation"));
    theStack->push(new CmdSetAnimation(kType, 1, Fixture::kPos, list));
    theStack->push(new CmdSwitchAnimation(kType, 1, true));
    theStack->endMacro();
    QCOMPARE(theStack->count(), 1);
    theStack->undo();
    QCOMPARE(Fixture::dumpKernel(), before);
    theStack->redo();
    QVERIFY(data()->theAnimated);
    QCOMPARE(data()->getKeyframedFrames(), QList<long long>({8}));
}

void TestCommands::randomStepsAreUndoneAndRedoneExactly()
{
    const unsigned int seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    QList<QStringList> states = {Fixture::dumpKernel()};
    for (int i = 0; i < 400; ++i) {
        const int idx = random.bounded(1, 5);
        const std::unique_ptr<LmKernelObjectData> source(Fixture::randomRecord(random));
        const int frame = random.bounded(-1, 4);
        QLinkedList<LmParamKeyframe> list = source->getAnimationKeyframes(Fixture::kPts);
        QUndoCommand* command = nullptr;
        switch (random.bounded(8)) {
        case 0:
            command = new CmdCreateObject(kType, idx, Fixture::randomRecord(random));
            break;
        case 1:
            command = new CmdRemoveObject(kType, idx);
            break;
        case 2:
            command = new CmdChangeObjectColor(kType, idx, QColor::fromRgb(random.generate()));
            break;
        case 3:
            command = new CmdShowObject(kType, idx, random.bounded(2));
            break;
        case 4:
            command = new CmdSetAnimation(kType, idx, Fixture::kPts, list);
            break;
        case 5:
            command = new CmdSwitchAnimation(kType, idx, random.bounded(2));
            break;
        default:
            LmParamKeyframeVector values = source->getDefaultKeyframes();
            values.setFrameNumber(frame);
            command = new CmdChangeObject(kType, idx, values, false);
        }
        theStack->push(command);
        if (theStack->count() == states.size())
            states.append(Fixture::dumpKernel());
        QCOMPARE(theStack->count(), states.size() - 1); // a refused command leaves no step
        QCOMPARE(Fixture::dumpKernel(), states.last()); // and no trace
    }
    for (int i = int(states.size()) - 1; i >= 0; --i) {
        theStack->setIndex(i);
        QCOMPARE(Fixture::dumpKernel(), states[i]);
    }
    for (int i = 0; i < states.size(); ++i) {
        theStack->setIndex(i);
        QCOMPARE(Fixture::dumpKernel(), states[i]);
    }
}

MEASURE_TEST_MAIN(TestCommands)
#include "TestCommands.moc"
