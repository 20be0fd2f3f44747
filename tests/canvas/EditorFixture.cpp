#include "EditorFixture.h"

#include <QContextMenuEvent>
#include <QTest>
#include <QWheelEvent>
#include <QtMath>

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;

} // namespace

EditorFixture::EditorFixture()
    : theImage(kWidth, kHeight, 3, nullptr, 4), theOtherTool(nullptr, ProbeTool::kType + 1)
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->theCurrentImage = &theImage;
    kernel->theCurrentFrame = 0;
    theEditor.setFrameShape(QFrame::NoFrame);
    theEditor.resize(kWidth, kHeight);
    theEditor.imageCanvas()->showImage(&theImage);
    theEditor.setUndoStack(&theStack);
    for (ProbeTool* tool : {&theTool, &theOtherTool}) {
        tool->setUndoStack(&theStack);
        tool->setCvEditor(&theEditor);
        tool->initManipulator(&theBar);
    }
    theEditor.show();
    if (!QTest::qWaitForWindowExposed(&theEditor))
        qFatal("the editor isn't shown");
    theEditor.setFocus();
}

EditorFixture::~EditorFixture()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->theCurrentImage = nullptr;
    for (const QString& name : kernel->calibrations().keys())
        kernel->removeCalibration(name);
    LmCvManipulator::theCurrentViewAnimated = false;
}

QPoint EditorFixture::toViewport(const QPoint& aCanvasPoint) const
{
    const QPointF middle = theEditor.toViewport(QPointF(aCanvasPoint) + QPointF(0.5, 0.5));
    return QPoint(qFloor(middle.x()), qFloor(middle.y()));
}

void EditorFixture::press(const QPoint& aCanvasPoint, Qt::MouseButton aButton, Qt::KeyboardModifiers aKeys)
{
    QTest::mousePress(theEditor.viewport(), aButton, aKeys, toViewport(aCanvasPoint));
}

void EditorFixture::move(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aKeys)
{
    // QTest moves the cursor itself when no button is down, and that event comes some time later or not at
    // all.
    const QPoint pos = toViewport(aCanvasPoint);
    QMouseEvent event(QEvent::MouseMove, pos, theEditor.viewport()->mapToGlobal(pos), Qt::NoButton,
                      QTestPrivate::qtestMouseButtons, aKeys);
    QCoreApplication::sendEvent(theEditor.viewport(), &event);
}

void EditorFixture::release(const QPoint& aCanvasPoint, Qt::MouseButton aButton, Qt::KeyboardModifiers aKeys)
{
    QTest::mouseRelease(theEditor.viewport(), aButton, aKeys, toViewport(aCanvasPoint));
}

void EditorFixture::click(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aKeys)
{
    press(aCanvasPoint, Qt::LeftButton, aKeys);
    release(aCanvasPoint, Qt::LeftButton, aKeys);
}

void EditorFixture::drag(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aKeys)
{
    press(aFrom, Qt::LeftButton, aKeys);
    move((aFrom + aTo) / 2, aKeys);
    move(aTo, aKeys);
    release(aTo, Qt::LeftButton, aKeys);
}

void EditorFixture::wheel(int aAngle, const QPoint& aViewportPos)
{
    QWheelEvent event(aViewportPos, theEditor.viewport()->mapToGlobal(aViewportPos), QPoint(),
                      QPoint(0, aAngle), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(theEditor.viewport(), &event);
}

bool EditorFixture::contextMenu(const QPoint& aCanvasPoint)
{
    const QPoint pos = toViewport(aCanvasPoint);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, theEditor.viewport()->mapToGlobal(pos));
    event.ignore();
    QCoreApplication::sendEvent(theEditor.viewport(), &event);
    return event.isAccepted();
}
