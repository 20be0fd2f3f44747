#include "CmdSetKeyframes.h"
#include "KernelFixture.h"
#include "TestFont.h"

#include <QPoint>
#include <QSignalSpy>
#include <QUndoStack>

#include <memory>

namespace {

constexpr int kType = KernelFixture::kType;
constexpr long long kFrames = 100;

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

/// A record with places at frames 2 and 8, and node states at frame 2.
LmKernelObjectData* movingRecord()
{
    LmKernelObjectData* data = KernelFixture::makeRecord();
    data->storeValue(KernelFixture::kPos, 2, QPoint(20, 0));
    data->storeValue(KernelFixture::kPos, 8, QPoint(80, 0));
    data->storeValue(KernelFixture::kNst, 2, QByteArray("two"));
    return data;
}

QList<long long> framesOf(const KeyframeLists& aLists, int aParam)
{
    QList<long long> frames;
    for (const LmParamKeyframe& keyframe : aLists.at(aParam))
        frames.append(keyframe.getFrame());
    return frames;
}

using Frames = QList<long long>;

} // namespace

/// Keyframes of all parameters taken together by their frames, and the command that sets them.
class TestKeyframeLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesAreTakenOutTogether();
    void shiftedOnesReplaceThoseThatStandThere();
    void keyframesOutsideTheSequenceAreLeftOut();
    void keyframeOfAFrameHasAllThatCanHaveOne();
    void commandSetsAllParametersWithOneSignal();
    void commandThatChangesNothingIsNoStep();
    void wrongKeyframesAreNoStep();
};

void TestKeyframeLists::framesAreTakenOutTogether()
{
    const std::unique_ptr<LmKernelObjectData> data(movingRecord());
    const KeyframeLists lists(*data);
    QVERIFY(!lists.isEmpty());
    QCOMPARE(framesOf(lists.without({2}), KernelFixture::kPos), Frames{8});
    QCOMPARE(framesOf(lists.without({2}), KernelFixture::kNst), Frames{});
    QCOMPARE(framesOf(lists.only({2, 5}), KernelFixture::kPos), Frames{2});
    QVERIFY(lists.only({5}).isEmpty());
}

void TestKeyframeLists::shiftedOnesReplaceThoseThatStandThere()
{
    const std::unique_ptr<LmKernelObjectData> data(movingRecord());
    const KeyframeLists lists(*data);
    const KeyframeLists moved = lists.without({2}).with(lists.only({2}).shifted(6), kFrames);
    QCOMPARE(framesOf(moved, KernelFixture::kPos), Frames{8});
    QCOMPARE(moved.at(KernelFixture::kPos).first().getValue(), QVariant(QPoint(20, 0)));
    QCOMPARE(framesOf(moved, KernelFixture::kNst), Frames{8});
}

void TestKeyframeLists::keyframesOutsideTheSequenceAreLeftOut()
{
    const std::unique_ptr<LmKernelObjectData> data(movingRecord());
    const KeyframeLists lists(*data);
    const KeyframeLists none = lists.only({});
    QCOMPARE(framesOf(none.with(lists.shifted(-3), kFrames), KernelFixture::kPos), Frames{5});
    QCOMPARE(framesOf(none.with(lists.shifted(92), kFrames), KernelFixture::kPos), Frames{94});
}

void TestKeyframeLists::keyframeOfAFrameHasAllThatCanHaveOne()
{
    const std::unique_ptr<LmKernelObjectData> data(movingRecord());
    data->theAnimated = true;
    const KeyframeLists lists = KeyframeLists::ofFrame(*data, 5);
    QCOMPARE(lists.at(KernelFixture::kPos).first(), LmParamKeyframe(5, QPoint(50, 0)));
    QCOMPARE(lists.at(KernelFixture::kNst).first(), LmParamKeyframe(5, QByteArray("two")));
    QCOMPARE(framesOf(lists, KernelFixture::kVis), Frames{});
    QCOMPARE(framesOf(lists, KernelFixture::kFont), Frames{});
}

void TestKeyframeLists::commandSetsAllParametersWithOneSignal()
{
    const KernelFixture fixture;
    QUndoStack stack;
    kernel().insertObject(kType, 1, movingRecord());
    const QStringList before = KernelFixture::dumpKernel();
    const LmKernelObjectData* data = kernel().getObject(kType, 1);
    const QSignalSpy changes(&kernel(), &LmKSKernelData::signalObjectChanged);
    stack.push(
        new CmdSetKeyframes(kType, 1, KeyframeLists(*data).without({2}), true, QStringLiteral("Move")));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(stack.undoText(), QStringLiteral("Move"));
    QCOMPARE(data->getKeyframedFrames(), Frames{8});
    QVERIFY(data->theAnimated);
    const QStringList after = KernelFixture::dumpKernel();
    stack.undo();
    QCOMPARE(changes.count(), 2);
    QCOMPARE(KernelFixture::dumpKernel(), before);
    stack.redo();
    QCOMPARE(KernelFixture::dumpKernel(), after);
}

void TestKeyframeLists::commandThatChangesNothingIsNoStep()
{
    const KernelFixture fixture;
    QUndoStack stack;
    kernel().insertObject(kType, 1, movingRecord());
    const LmKernelObjectData* data = kernel().getObject(kType, 1);
    stack.push(new CmdSetKeyframes(kType, 1, KeyframeLists(*data), false, QString()));
    QCOMPARE(stack.count(), 0);
    stack.push(new CmdSetKeyframes(kType, 1, KeyframeLists(*data), true, QString()));
    QCOMPARE(stack.count(), 1);
}

void TestKeyframeLists::wrongKeyframesAreNoStep()
{
    const KernelFixture fixture;
    QUndoStack stack;
    kernel().insertObject(kType, 1, movingRecord());
    const QStringList before = KernelFixture::dumpKernel();
    const KeyframeLists lists(*kernel().getObject(kType, 1));
    KeyframeLists wrongType = lists;
    wrongType.at(KernelFixture::kPos).append(LmParamKeyframe(20, QStringLiteral("no place")));
    stack.push(new CmdSetKeyframes(kType, 1, wrongType, true, QString()));
    KeyframeLists wholeObject = lists;
    wholeObject.at(KernelFixture::kVis).append(LmParamKeyframe(20, true));
    stack.push(new CmdSetKeyframes(kType, 1, wholeObject, true, QString()));
    stack.push(new CmdSetKeyframes(kType, 99, lists, true, QString()));
    stack.push(new CmdSetKeyframes(kType, 1, KeyframeLists(), true, QString()));
    QCOMPARE(stack.count(), 0);
    QCOMPARE(KernelFixture::dumpKernel(), before);
}

MEASURE_TEST_MAIN(TestKeyframeLists)
#include "TestKeyframeLists.moc"
