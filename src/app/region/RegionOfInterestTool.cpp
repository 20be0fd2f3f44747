#include "RegionOfInterestTool.h"

#include "CanvasEvent.h"
#include "LmCvEditor.h"
#include "RegionFrame.h"

#include <QMouseEvent>

#include <algorithm>

#include <utility>

namespace {

QPoint clamped(const QPoint& aPoint, const QRect& aBounds)
{
    return QPoint(std::clamp(aPoint.x(), aBounds.left(), aBounds.right()),
                  std::clamp(aPoint.y(), aBounds.top(), aBounds.bottom()));
}

/// The pixels from aFrom, itself included, to the edge that lies in the direction of aTo.
int room(int aFrom, int aTo, int aFirst, int aLast)
{
    return aTo < aFrom ? aFrom - aFirst + 1 : aLast - aFrom + 1;
}

} // namespace

RegionOfInterestTool::RegionOfInterestTool(LmCvEditor& aEditor, QObject* aParent)
    : GestureTool(aEditor, aParent)
{
}

RegionOfInterestTool::~RegionOfInterestTool() = default;

QRect RegionOfInterestTool::pulled(const QPoint& aFrom, const QPoint& aTo, bool aSquare, const QRect& aBounds)
{
    if (aBounds.isEmpty())
        return QRect();
    const QPoint from = clamped(aFrom, aBounds);
    QPoint to = clamped(aTo, aBounds);
    if (aSquare) {
        const int wanted = std::max(std::abs(to.x() - from.x()), std::abs(to.y() - from.y())) + 1;
        const int way = std::min({wanted, room(from.x(), aTo.x(), aBounds.left(), aBounds.right()),
                                  room(from.y(), aTo.y(), aBounds.top(), aBounds.bottom())}) -
                        1;
        to = from + QPoint(aTo.x() < from.x() ? -way : way, aTo.y() < from.y() ? -way : way);
    }
    return QRect(QPoint(std::min(from.x(), to.x()), std::min(from.y(), to.y())),
                 QPoint(std::max(from.x(), to.x()), std::max(from.y(), to.y())));
}

QString RegionOfInterestTool::hint() const
{
    switch (theState) {
    case kWaiting:
        return tr(
            "Drag a rectangle around the part of the picture to work on (Shift: a square); Esc leaves.");
    case kPulling:
        return tr("%1 x %2 pixels; release to show only this part, Esc begins again.")
            .arg(theRect.width())
            .arg(theRect.height());
    case kOff:
        break;
    }
    return QString();
}

void RegionOfInterestTool::begin()
{
    setState(kWaiting);
}

void RegionOfInterestTool::end()
{
    removeFrame();
    setState(kOff);
}

void RegionOfInterestTool::mousePressEvent(QMouseEvent* aEvent)
{
    aEvent->accept();
    if (aEvent->button() != Qt::LeftButton || theState != kWaiting)
        return;
    theFrom = aEvent->pos();
    theFrame = new RegionFrame(theCvEditor->getCanvas());
    theFrame->show();
    theCvEditor->setMouseGrabber(this, true);
    theState = kPulling;
    mouseMoveEvent(aEvent);
}

void RegionOfInterestTool::mouseMoveEvent(QMouseEvent* aEvent)
{
    aEvent->accept();
    if (theState != kPulling)
        return;
    const bool square = CanvasEvent::holds(*aEvent, Qt::ShiftModifier);
    theRect = pulled(theFrom, aEvent->pos(), square, theCvEditor->getCanvas()->rect());
    theFrame->setRect(theRect);
    theCvEditor->getCanvas()->update();
    Q_EMIT signalHintChanged();
}

void RegionOfInterestTool::mouseReleaseEvent(QMouseEvent* aEvent)
{
    aEvent->accept();
    if (theState != kPulling)
        return;
    if (aEvent->button() == Qt::RightButton) {
        abortAction();
        return;
    }
    if (aEvent->button() != Qt::LeftButton)
        return;
    mouseMoveEvent(aEvent);
    const QRect rect = theRect;
    abortAction();
    take(rect);
}

void RegionOfInterestTool::take(const QRect& aCanvasRect)
{
    if (std::min(aCanvasRect.width(), aCanvasRect.height()) < kMinSide) {
        Q_EMIT signalReport(
            tr("A region of %1 x %2 pixels is too small to work in; drag over at least %3 x %3 pixels.")
                .arg(aCanvasRect.width())
                .arg(aCanvasRect.height())
                .arg(kMinSide));
        return;
    }
    finish();
    Q_EMIT chosen(aCanvasRect);
}

bool RegionOfInterestTool::abortAction()
{
    if (theState != kPulling)
        return false;
    removeFrame();
    setState(kWaiting);
    return true;
}

void RegionOfInterestTool::removeFrame()
{
    takeAway(std::exchange(theFrame, nullptr));
}

void RegionOfInterestTool::setState(State aState)
{
    theState = aState;
    Q_EMIT signalHintChanged();
}
