#include "EditorFixture.h"
#include "LmCVSequence.h"
#include "LmKernelObjectData.h"
#include "TestFont.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QToolButton>

namespace {

/// A tool that adds nothing to its base.
class PlainTool : public LmCvManipulator
{
public:
    using LmCvManipulator::LmCvManipulator;
};

LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

} // namespace

class TestManipulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A tool by itself.
    void newToolIsEmpty();
    void defaultsOfTheBase();
    void eventsAreIgnoredByDefault();
    void buttonExistsOnlyAfterTheStart();
    void toolWithoutToolBarHasNoButton();
    void secondConstructorOnlyKeepsTheToolBar();
    void takenTypeLeavesTheToolInert();
    void toolThatGoesFreesItsType();
    void itemsOfAToolThatWentForgetIt();

    // Indices.
    void indexStartsFromOne();
    void gapIsNotFilled();
    void greatestIndexIsUsedAgain();
    void indexIsFoundWhateverTheLabelSays();
    void unknownItemHasNoIndex();
};

void TestManipulator::newToolIsEmpty()
{
    PlainTool tool(nullptr);
    QVERIFY(!tool.theInitDone);
    QVERIFY(!tool.theToolButton && !tool.theToolBar && !tool.theCvEditor && !tool.theUndoStack);
    QVERIFY(!tool.theSelfChange);
    QCOMPARE(tool.theKernel, static_cast<QObject*>(&kernel()));
    QCOMPARE(tool.theKernelData, &kernel());
    QVERIFY(tool.theValueNames.isEmpty() && tool.theCvObjects.isEmpty());
}

void TestManipulator::defaultsOfTheBase()
{
    PlainTool tool(nullptr);
    tool.theValueNames = QStringList{QStringLiteral("A"), QStringLiteral("B")};
    QCOMPARE(tool.getSwitchModifier(), 0);
    QCOMPARE(tool.getCvObjectFlags(nullptr), 157);
    QVERIFY(tool.getCustomActions().isEmpty());
    QCOMPARE(tool.getAnimatedValueNames(), tool.theValueNames);
    QVERIFY(tool.getObjectTypeNames().isEmpty());
    QCOMPARE(&tool.getIconSet(QStringLiteral("any")), &tool.theIcon);
    QCOMPARE(&tool.getAutoCreationIconSet(QStringLiteral("any")), &tool.theIcon);
    QCOMPARE(&tool.getCursor(), &tool.theCursor);
    QVERIFY(!tool.allObjectsNeedRecalc());
    QVERIFY(tool.getObjectName(1).isEmpty());
    QVERIFY(tool.getObjectName(static_cast<const LmCvObject*>(nullptr)).isEmpty());
    QVERIFY(!tool.getCvObject(1));
    QVERIFY(!tool.abortAction());
    QCOMPARE(tool.createObjectFromContour(LmCVSequence(3, 8), QString()), -1);
    QCOMPARE(tool.createKeyframesFromContour(nullptr, LmCVSequence(3, 8), 0).size(), 0);

    QString unit = QStringLiteral("kept");
    QVERIFY(!tool.getValue(QStringLiteral("A"), nullptr, unit).isValid());
    QCOMPARE(unit, QStringLiteral("kept"));
    QStringList units{QStringLiteral("old")};
    const LmKernelObjectData empty(LmParamKeyframeVector(), {}, 0);
    const QLinkedList<QVariant> values = tool.getValues(tool.theValueNames, &empty, units);
    QCOMPARE(values.size(), 2);
    QVERIFY(!values.first().isValid() && !values.last().isValid());
    QCOMPARE(units, (QStringList{QString(), QString()}));
}

void TestManipulator::eventsAreIgnoredByDefault()
{
    PlainTool tool(nullptr);
    QMouseEvent mouse(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    for (const auto handler : {&LmCvManipulator::mousePressEvent, &LmCvManipulator::mouseReleaseEvent,
                               &LmCvManipulator::mouseMoveEvent, &LmCvManipulator::mouseDoubleClickEvent}) {
        mouse.accept();
        (tool.*handler)(&mouse);
        QVERIFY(!mouse.isAccepted());
    }
    QVERIFY(!tool.claimsPress(&mouse, nullptr));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    for (const auto handler : {&LmCvManipulator::keyPressEvent, &LmCvManipulator::keyReleaseEvent}) {
        key.accept();
        (tool.*handler)(&key);
        QVERIFY(!key.isAccepted());
    }
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(1, 1), QPoint(1, 1));
    menu.accept();
    tool.contextMenuEvent(&menu);
    QVERIFY(!menu.isAccepted());
    QMimeData data;
    QDropEvent drop(QPointF(1, 1), Qt::CopyAction, &data, Qt::NoButton, Qt::NoModifier);
    QVERIFY(!tool.drop(&drop));
}

void TestManipulator::buttonExistsOnlyAfterTheStart()
{
    QToolBar bar;
    PlainTool tool(nullptr);
    QVERIFY(!tool.theToolButton);
    tool.initManipulator(&bar);
    QVERIFY(tool.theToolButton);
    QCOMPARE(tool.theToolBar, &bar);
    QVERIFY(bar.isAncestorOf(tool.theToolButton));
    QVERIFY(tool.theToolButton->isCheckable());
    QVERIFY(!tool.theToolButton->isChecked());
    tool.initManipulator(&bar);
    QCOMPARE(bar.findChildren<QToolButton*>(QStringLiteral("manipulator button")).size(), 1);
}

void TestManipulator::toolWithoutToolBarHasNoButton()
{
    PlainTool tool(nullptr);
    tool.initManipulator(nullptr);
    QVERIFY(!tool.theToolButton);
    QVERIFY(!tool.theToolBar);
}

void TestManipulator::secondConstructorOnlyKeepsTheToolBar()
{
    QToolBar bar;
    PlainTool tool(&bar, nullptr);
    QCOMPARE(tool.theToolBar, &bar);
    QVERIFY(!tool.theToolButton);
}

void TestManipulator::takenTypeLeavesTheToolInert()
{
    EditorFixture f;
    ProbeTool second;
    second.setCvEditor(&f.theEditor);
    second.initManipulator(&f.theBar);
    QVERIFY(!second.theInitDone);
    QVERIFY(second.theValueNames.isEmpty());
    f.theTool.create(QPoint(50, 50));
    QVERIFY(second.theSlotCalls.isEmpty());
    QCOMPARE(kernel().getCvManipulator(ProbeTool::kType), &f.theTool);
}

void TestManipulator::toolThatGoesFreesItsType()
{
    {
        ProbeTool tool;
        tool.initManipulator(nullptr);
        QCOMPARE(kernel().getCvManipulator(ProbeTool::kType), &tool);
    }
    QVERIFY(!kernel().getCvManipulator(ProbeTool::kType));
    QVERIFY(!kernel().getDataDescriptor(ProbeTool::kType));
}

void TestManipulator::itemsOfAToolThatWentForgetIt()
{
    EditorFixture f;
    auto* tool = new ProbeTool(nullptr, ProbeTool::kType + 2);
    tool->setUndoStack(&f.theStack);
    tool->setCvEditor(&f.theEditor);
    tool->initManipulator(&f.theBar);
    ProbeItem* item = tool->create(QPoint(50, 50));
    f.theEditor.theItemWatchers.append(tool);
    f.theEditor.setCurrentManipulator(tool);
    f.theEditor.setMouseGrabber(tool, true);
    delete tool;
    QVERIFY(!item->theManipulator);
    QVERIFY(!f.theEditor.theCurrentManipulator);
    QVERIFY(!f.theEditor.mouseGrabber());
    QVERIFY(f.theEditor.theItemWatchers.isEmpty());
    f.drag(QPoint(60, 60), QPoint(80, 60));
    QCOMPARE(item->theCorner, QPoint(70, 50));
}

void TestManipulator::indexStartsFromOne()
{
    EditorFixture f;
    QCOMPARE(f.theTool.nextObjectIdx(), 1);
    QCOMPARE(f.theTool.create(QPoint(10, 10))->theLabel, QStringLiteral("1"));
    QCOMPARE(f.theTool.nextObjectIdx(), 2);
}

void TestManipulator::gapIsNotFilled()
{
    EditorFixture f;
    for (const int x : {10, 40, 70})
        f.theTool.create(QPoint(x, 10));
    f.theTool.removeCvObject(f.theTool.item(1));
    QCOMPARE(f.theTool.nextObjectIdx(), 4);
}

void TestManipulator::greatestIndexIsUsedAgain()
{
    EditorFixture f;
    for (const int x : {10, 40, 70})
        f.theTool.create(QPoint(x, 10));
    f.theTool.removeCvObject(f.theTool.item(3));
    QCOMPARE(f.theTool.nextObjectIdx(), 3);
}

void TestManipulator::indexIsFoundWhateverTheLabelSays()
{
    EditorFixture f;
    ProbeItem* first = f.theTool.create(QPoint(10, 10));
    ProbeItem* second = f.theTool.create(QPoint(40, 10));
    for (const QString& label :
         {QStringLiteral("2"), QStringLiteral("text"), QString(), QStringLiteral("77")}) {
        first->theLabel = label;
        QCOMPARE(f.theTool.getObjectIdx(first), 1);
    }
    QCOMPARE(f.theTool.getObjectIdx(second), 2);
}

void TestManipulator::unknownItemHasNoIndex()
{
    EditorFixture f;
    f.theTool.create(QPoint(10, 10));
    ProbeItem foreign(&f.theTool, f.theEditor.canvas(), QStringLiteral("1"), &f.theEditor);
    QCOMPARE(f.theTool.getObjectIdx(&foreign), -1);
    QCOMPARE(f.theTool.getObjectIdx(nullptr), -1);
}

MEASURE_TEST_MAIN(TestManipulator)
#include "TestManipulator.moc"
