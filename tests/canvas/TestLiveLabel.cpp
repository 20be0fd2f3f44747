#include "EditorFixture.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

/// What the label of an item shows in the middle of its drag.
class TestLiveLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelFollowsTheDrag();
    void labelIsBlankWhileTheDraggedItemHasNoSuchValue();
    void labelOfAToolWithoutLiveValuesStaysDuringTheDrag();
};

namespace {

/// Knows values only from records.
class RecordTool : public ProbeTool
{
public:
    RecordTool() : ProbeTool(nullptr, ProbeTool::kType + 2) {}

    QVariant getValue(const QString&, const LmCvObject*, QString&) override { return QVariant(); }
};

} // namespace

void TestLiveLabel::labelFollowsTheDrag()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.press(QPoint(60, 60));
    f.move(QPoint(90, 60));
    QCOMPARE(item->theDisplayValue, QStringLiteral("80.00px"));
    f.release(QPoint(90, 60));
    QCOMPARE(item->theDisplayValue, QStringLiteral("80.00"));
}

void TestLiveLabel::labelIsBlankWhileTheDraggedItemHasNoSuchValue()
{
    EditorFixture f;
    ProbeItem* item = f.theTool.create(QPoint(50, 50));
    f.theTool.record(1)->storeValue(ProbeTool::kShownValue, kDefaultFrame, QStringLiteral("Count"));
    f.theTool.updateDisplayValue(item, QStringLiteral("Count"), true, true);
    QCOMPARE(item->theDisplayValue, QStringLiteral("50"));
    f.press(QPoint(60, 60));
    f.move(QPoint(90, 60));
    QCOMPARE(item->theDisplayValue, QString());
    f.release(QPoint(90, 60));
}

void TestLiveLabel::labelOfAToolWithoutLiveValuesStaysDuringTheDrag()
{
    EditorFixture f;
    RecordTool tool;
    tool.setUndoStack(&f.theStack);
    tool.setCvEditor(&f.theEditor);
    tool.initManipulator(&f.theBar);
    ProbeItem* item = tool.create(QPoint(50, 50));
    item->setDisplayValue(QStringLiteral("kept"));
    f.press(QPoint(60, 60));
    f.move(QPoint(90, 60));
    QCOMPARE(item->theCorner, QPoint(80, 50));
    QCOMPARE(item->theDisplayValue, QStringLiteral("kept"));
    f.release(QPoint(90, 60));
    f.theStack.clear();
}

MEASURE_TEST_MAIN(TestLiveLabel)
#include "TestLiveLabel.moc"
