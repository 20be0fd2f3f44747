#include "EditorFixture.h"
#include "TestFont.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QToolButton>

class TestEditorTools : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changeOfToolEndsTheFormerOnesAction();
    void directlyWrittenToolIsNoticed();
    void buttonsShowTheToolInTheHand();
    void secondButtonOfAToolIsKept();
    void cursorIsTheTools();
};

void TestEditorTools::changeOfToolEndsTheFormerOnesAction()
{
    EditorFixture f;
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCurrentManipulatorChanged);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.setMouseGrabber(&f.theTool, true);
    f.press(EditorFixture::kEmpty);
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    QCOMPARE(f.theTool.theAborts, 1);
    QVERIFY(!f.theEditor.mouseGrabber());
    f.release(EditorFixture::kEmpty);
    QCOMPARE(f.theTool.theEvents, QStringList(ProbeTool::noted("press", EditorFixture::kEmpty)));
    QVERIFY(f.theOtherTool.theEvents.isEmpty());
    QCOMPARE(changed.count(), 2);
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(f.theOtherTool.theAborts, 0);
}

void TestEditorTools::directlyWrittenToolIsNoticed()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    QSignalSpy changed(&f.theEditor, &LmCvEditor::signalCurrentManipulatorChanged);
    f.theEditor.theCurrentManipulator = &f.theOtherTool;
    f.click(EditorFixture::kEmpty);
    QCOMPARE(f.theTool.theAborts, 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed[0][0].value<LmCvManipulator*>(), &f.theOtherTool);
    QCOMPARE(f.theOtherTool.theEvents.first(), ProbeTool::noted("press", EditorFixture::kEmpty));
}

void TestEditorTools::buttonsShowTheToolInTheHand()
{
    EditorFixture f;
    f.theEditor.setCurrentManipulator(&f.theTool);
    QVERIFY(f.theTool.theToolButton->isChecked());
    QVERIFY(!f.theOtherTool.theToolButton->isChecked());
    f.theEditor.setCurrentManipulator(&f.theOtherTool);
    QVERIFY(!f.theTool.theToolButton->isChecked());
    QVERIFY(f.theOtherTool.theToolButton->isChecked());
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theOtherTool);
    f.theEditor.setCurrentManipulator(nullptr);
    QVERIFY(!f.theOtherTool.theToolButton->isChecked());
}

void TestEditorTools::secondButtonOfAToolIsKept()
{
    EditorFixture f;
    auto* second = new QToolButton;
    second->setObjectName(QStringLiteral("manipulator button"));
    second->setCheckable(true);
    f.theBar.addWidget(second);
    QSignalSpy toggled(second, &QToolButton::toggled);
    f.theEditor.setCurrentManipulator(&f.theTool);
    f.theEditor.setCurrentManipulator(&f.theTool, second);
    QVERIFY(second->isChecked());
    QVERIFY(!f.theTool.theToolButton->isChecked());
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QCOMPARE(toggled.count(), 1);

    f.theEditor.setCurrentManipulator(&f.theTool); // nothing changes
    QVERIFY(second->isChecked());
    QTest::mouseClick(f.theOtherTool.theToolButton, Qt::LeftButton);
    QVERIFY(!second->isChecked());
    QCOMPARE(toggled.count(), 1); // switched off silently
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theOtherTool);
}

void TestEditorTools::cursorIsTheTools()
{
    EditorFixture f;
    f.theTool.theCursor = QCursor(Qt::CrossCursor);
    f.theTool.create(QPoint(50, 50));
    f.theEditor.setCurrentManipulator(&f.theTool);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::CrossCursor);
    f.theEditor.setCurrentManipulator(nullptr);
    f.move(EditorFixture::kEmpty);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::ArrowCursor);
    f.move(QPoint(60, 60));
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::keyPress(&f.theEditor, Qt::Key_Space);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::OpenHandCursor);
    QTest::keyRelease(&f.theEditor, Qt::Key_Space);
    QCOMPARE(f.theEditor.viewport()->cursor().shape(), Qt::PointingHandCursor);
}

MEASURE_TEST_MAIN(TestEditorTools)
#include "TestEditorTools.moc"
