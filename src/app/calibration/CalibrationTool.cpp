#include "CalibrationTool.h"

#include "CalibrationLine.h"
#include "CanvasEvent.h"
#include "LmCvEditor.h"
#include "SegmentGeometry.h"

#include <QMouseEvent>

#include <utility>

namespace {

/// Screen pixels; a shorter way is a click that trembled.
constexpr double kMinWay = 3.0;

} // namespace

CalibrationTool::CalibrationTool(LmCvEditor& aEditor, QObject* aParent) : GestureTool(aEditor, aParent)
{
    connect(&aEditor, &LmCvEditor::signalZoomChanged, this, [this](double aZoom) {
        if (theLine)
            theLine->setZoom(aZoom);
    });
}

CalibrationTool::~CalibrationTool() = default;

void CalibrationTool::begin()
{
    setState(kWantFirst);
}

void CalibrationTool::end()
{
    removeLine();
    setState(kOff);
}

QString CalibrationTool::hint() const
{
    switch (theState) {
    case kWantFirst:
        return tr("Click one end of something whose length you know.");
    case kWantSecond:
        return tr("Click the other end; Shift snaps, Esc begins again.");
    case kOff:
    case kDone:
        break;
    }
    return QString();
}

void CalibrationTool::mousePressEvent(QMouseEvent* aEvent)
{
    aEvent->accept();
    if (aEvent->button() != Qt::LeftButton)
        return;
    if (theState == kWantFirst)
        startLine(aEvent->pos());
    else
        mouseMoveEvent(aEvent);
}

void CalibrationTool::startLine(const QPoint& aCanvasPoint)
{
    theLine = new CalibrationLine(theCvEditor->getCanvas(), aCanvasPoint, theCvEditor->zoom());
    theLine->show();
    theCvEditor->getCanvas()->update();
    theCvEditor->setMouseGrabber(this, true);
    setState(kWantSecond);
}

void CalibrationTool::mouseMoveEvent(QMouseEvent* aEvent)
{
    aEvent->accept();
    if (theState != kWantSecond)
        return;
    const bool snap = CanvasEvent::holds(*aEvent, Qt::ShiftModifier);
    theLine->setEnd(snap ? SegmentGeometry::snapped(theLine->startPoint(), aEvent->pos()) : aEvent->pos());
    theCvEditor->getCanvas()->update();
}

void CalibrationTool::mouseReleaseEvent(QMouseEvent* aEvent)
{
    aEvent->accept();
    if (theState != kWantSecond)
        return;
    if (aEvent->button() == Qt::RightButton) {
        abortAction();
        return;
    }
    if (aEvent->button() != Qt::LeftButton)
        return;
    mouseMoveEvent(aEvent);
    if (isLongEnough())
        takeSecond();
}

void CalibrationTool::takeSecond()
{
    theCvEditor->setMouseGrabber(nullptr, false);
    setState(kDone);
    // The dialog that follows must not open inside the release, which the editor still has to end.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (theState == kDone)
                Q_EMIT measured(theLine->length());
        },
        Qt::QueuedConnection);
}

bool CalibrationTool::isLongEnough() const
{
    return theLine->length() * theCvEditor->zoom() >= kMinWay;
}

bool CalibrationTool::abortAction()
{
    if (!theLine)
        return false;
    removeLine();
    setState(kWantFirst);
    return true;
}

void CalibrationTool::removeLine()
{
    takeAway(std::exchange(theLine, nullptr));
}

void CalibrationTool::setState(State aState)
{
    theState = aState;
    Q_EMIT signalHintChanged();
}
