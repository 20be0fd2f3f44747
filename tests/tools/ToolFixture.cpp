#include "ToolFixture.h"

#include "LmAppSettings.h"
#include "LmCvManipulator.h"

#include <QApplication>
#include <QMouseEvent>
#include <QtTest>

ToolFixture::ToolFixture() : theKernel(*LmKSKernelData::getInstance()), theImage(400, 300, 3, nullptr, 4)
{
    resetSharedState();
    theImage.setQRoi(QRect(40, 30, 320, 240));
    theKernel.theCurrentImage = &theImage;
    theEditor.setUndoStack(&theStack);
    theEditor.imageCanvas()->showImage(&theImage);
    theEditor.resize(500, 400);
    theEditor.show();
}

ToolFixture::~ToolFixture()
{
    theEditor.setCurrentManipulator(nullptr);
    resetSharedState();
}

void ToolFixture::resetSharedState()
{
    theKernel.theCurrentImage = nullptr;
    theKernel.theAltImage = nullptr;
    theKernel.theImageSource = 0;
    theKernel.theCurrentFrame = 0;
    theKernel.theFrameCount = 0;
    theKernel.theCalibScale = 1.0;
    const QStringList names = theKernel.calibrations().keys();
    for (const QString& name : names)
        theKernel.removeCalibration(name);
    LmCvManipulator::theClipboardKeyframes.clear();
    LmCvManipulator::theLastUsedValueName.clear();
    LmCvManipulator::theCurrentViewAnimated = false;
    LmAppSettings::theGridColor = QColor(Qt::red);
}

void ToolFixture::start(LmCvManipulator& aTool)
{
    aTool.setUndoStack(&theStack);
    aTool.setCvEditor(&theEditor);
    aTool.initManipulator(&theToolBar);
    theEditor.setCurrentManipulator(&aTool);
}

QPoint ToolFixture::viewportPos(const QPoint& aCanvasPoint) const
{
    const QPoint pos = theEditor.toViewport(QPointF(aCanvasPoint) + QPointF(0.5, 0.5)).toPoint();
    if (theEditor.toCanvas(pos) == aCanvasPoint)
        return pos;
    return theEditor.toViewport(aCanvasPoint).toPoint();
}

void ToolFixture::press(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    QTest::mousePress(theEditor.viewport(), Qt::LeftButton, aModifiers, viewportPos(aCanvasPoint));
}

// Sent by hand, since QTest::mouseMove knows no modifiers.
void ToolFixture::move(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    const QPoint pos = viewportPos(aCanvasPoint);
    QMouseEvent event(QEvent::MouseMove, pos, theEditor.viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::LeftButton, aModifiers);
    QApplication::sendEvent(theEditor.viewport(), &event);
}

void ToolFixture::release(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    QTest::mouseRelease(theEditor.viewport(), Qt::LeftButton, aModifiers, viewportPos(aCanvasPoint));
}

void ToolFixture::drag(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aModifiers)
{
    press(aFrom, aModifiers);
    move(aFrom + (aTo - aFrom) / 2, aModifiers);
    move(aTo, aModifiers);
    release(aTo, aModifiers);
}

void ToolFixture::click(const QPoint& aCanvasPoint)
{
    press(aCanvasPoint);
    release(aCanvasPoint);
}

void ToolFixture::key(Qt::Key aKey)
{
    QTest::keyClick(&theEditor, aKey);
}

void ToolFixture::calibrate(double aWidth, const QString& aUnit)
{
    LmCalibData data;
    data.theValue = aWidth;
    data.theUnit = aUnit;
    theKernel.setCalibration(QStringLiteral("test"), data);
    theKernel.setCurrentCalibration(QStringLiteral("test"));
}

QVariant ToolFixture::stored(int aType, int aIdx, int aParam) const
{
    const LmKernelObjectData* record = theKernel.getObject(aType, aIdx);
    return record ? record->getDefaultKeyframes()[aParam].getValue() : QVariant();
}
