// The gestures and keys of TimelineView.
#include "TimelineView.h"

#include "KeyframeTrack.h"
#include "Media.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kNotch = 120.0;          // what a wheel turns at least
constexpr double kZoomOfANotch = 1.25;    // a fifth of the line comes or goes
constexpr double kScrolledByANotch = 0.1; // of the shown frames

} // namespace

int TimelineView::keyframeAt(const QPoint& aPos) const
{
    if (std::abs(aPos.y() - rowMiddle()) > 2 * kKeyframeRadius)
        return -1;
    int nearest = -1;
    double least = kKeyframeRadius + 1.0;
    for (const int frame : theTrack.frames()) {
        const double distance = std::abs(theScale.xOf(frame) - aPos.x());
        if (distance < least) {
            least = distance;
            nearest = frame;
        }
    }
    return nearest;
}

void TimelineView::mousePressEvent(QMouseEvent* aEvent)
{
    if (aEvent->button() != Qt::LeftButton)
        return;
    thePress = theMouse = aEvent->pos();
    const int keyframe = keyframeAt(thePress);
    if (thePress.y() < rulerHeight()) {
        theGesture = kScrub;
        Q_EMIT frameWanted(theScale.frameAt(thePress.x()));
    } else if (keyframe >= 0) {
        theGesture = kMove;
        theDragBy = 0;
        pressKeyframe(keyframe, aEvent->modifiers());
    } else {
        theGesture = kBand;
        if (!(aEvent->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)))
            select({});
    }
}

/// One that is selected already keeps the others, so that they can be dragged together.
void TimelineView::pressKeyframe(int aFrame, Qt::KeyboardModifiers aModifiers)
{
    QList<int> frames = theSelected;
    if (aModifiers & (Qt::ShiftModifier | Qt::ControlModifier)) {
        if (!frames.removeOne(aFrame))
            frames.append(aFrame);
        select(frames);
    } else if (!frames.contains(aFrame)) {
        select({aFrame});
    }
}

void TimelineView::mouseMoveEvent(QMouseEvent* aEvent)
{
    // The release is lost where a dialog came up in the middle.
    if (theGesture != kNone && !(aEvent->buttons() & Qt::LeftButton))
        endGesture(true);
    theMouse = aEvent->pos();
    switch (theGesture) {
    case kNone:
        viewport()->setCursor(keyframeAt(theMouse) >= 0 ? Qt::SizeHorCursor : Qt::ArrowCursor);
        return;
    case kScrub:
        if (const int frame = theScale.frameAt(theMouse.x()); frame != theMedia.frame())
            Q_EMIT frameWanted(frame);
        return;
    case kMove:
        if (theDragBy != 0 || std::abs(theMouse.x() - thePress.x()) >= QApplication::startDragDistance() / 2)
            theDragBy = theScale.frameAt(theMouse.x()) - theScale.frameAt(thePress.x());
        break;
    case kBand:
        selectBand();
        break;
    }
    viewport()->update();
}

void TimelineView::selectBand()
{
    const int left = qMin(thePress.x(), theMouse.x());
    const int right = qMax(thePress.x(), theMouse.x());
    QList<int> frames;
    for (const int frame : theTrack.frames())
        if (theScale.xOf(frame) >= left && theScale.xOf(frame) <= right)
            frames.append(frame);
    select(frames);
}

void TimelineView::mouseReleaseEvent(QMouseEvent* aEvent)
{
    if (aEvent->button() == Qt::LeftButton)
        endGesture(false);
}

void TimelineView::endGesture(bool aAbort)
{
    const Gesture gesture = std::exchange(theGesture, kNone);
    const int by = std::exchange(theDragBy, 0);
    if (gesture == kMove && by != 0 && !aAbort) {
        const QList<int> frames = theSelected;
        const int moved = theTrack.move(frames, by);
        QList<int> places;
        for (const int frame : frames)
            places.append(frame + moved);
        select(places);
    }
    viewport()->update();
}

void TimelineView::mouseDoubleClickEvent(QMouseEvent* aEvent)
{
    const int keyframe = keyframeAt(aEvent->pos());
    if (aEvent->button() == Qt::LeftButton && keyframe >= 0)
        Q_EMIT frameWanted(keyframe);
    else
        mousePressEvent(aEvent);
}

void TimelineView::wheelEvent(QWheelEvent* aEvent)
{
    const QPoint turn = aEvent->angleDelta();
    const bool scrolls = aEvent->modifiers() & Qt::ShiftModifier || std::abs(turn.x()) > std::abs(turn.y());
    const double notches = (turn.y() != 0 ? turn.y() : turn.x()) / kNotch;
    if (scrolls)
        theScale.scrollTo(theScale.firstShown() - notches * kScrolledByANotch * theScale.shownFrames());
    else
        theScale.zoom(std::pow(kZoomOfANotch, notches), aEvent->position().x());
    updateScale();
    aEvent->accept();
}

/// The action of the line that has the key as its shortcut, or null.
QAction* TimelineView::actionOf(const QKeyEvent& aEvent) const
{
    const QKeySequence key(aEvent.keyCombination());
    const auto own = actions();
    const auto found = std::find_if(own.begin(), own.end(), [&key](const QAction* aAction) {
        return aAction->shortcuts().contains(key);
    });
    return found == own.end() ? nullptr : *found;
}

/// The window has other uses for some of the keys, so the line takes its own before they become shortcuts.
bool TimelineView::event(QEvent* aEvent)
{
    if (aEvent->type() == QEvent::ShortcutOverride && actionOf(static_cast<QKeyEvent&>(*aEvent))) {
        aEvent->accept();
        return true;
    }
    return QAbstractScrollArea::event(aEvent);
}

void TimelineView::keyPressEvent(QKeyEvent* aEvent)
{
    if (QAction* action = actionOf(*aEvent)) {
        action->trigger();
        return;
    }
    const int last = theMedia.frameCount() - 1;
    switch (aEvent->key()) {
    case Qt::Key_Left:
        Q_EMIT frameWanted(qMax(0, theMedia.frame() - 1));
        return;
    case Qt::Key_Right:
        Q_EMIT frameWanted(qMin(last, theMedia.frame() + 1));
        return;
    case Qt::Key_Home:
        Q_EMIT frameWanted(0);
        return;
    case Qt::Key_End:
        Q_EMIT frameWanted(last);
        return;
    case Qt::Key_Escape:
        if (theGesture != kNone)
            endGesture(true);
        else
            select({});
        return;
    }
    QAbstractScrollArea::keyPressEvent(aEvent);
}

void TimelineView::contextMenuEvent(QContextMenuEvent* aEvent)
{
    const bool byKey = aEvent->reason() == QContextMenuEvent::Keyboard;
    const QPoint pos = byKey ? keyframePlace(theMedia.frame()) : aEvent->pos();
    const int keyframe = keyframeAt(pos);
    if (keyframe >= 0 && !theSelected.contains(keyframe))
        select({keyframe});
    const int frame = keyframe >= 0 ? keyframe : theScale.frameAt(pos.x());
    Q_EMIT menuWanted(frame, viewport()->mapToGlobal(pos));
}
