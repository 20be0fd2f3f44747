#include "TimelineView.h"

#include "FrameText.h"
#include "KeyframeTrack.h"
#include "Media.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int kFreshTime = 900;   // ms; long enough to be noticed
constexpr int kRulerTextRows = 2; // frame numbers and times
constexpr int kRowHeight = 28;
constexpr int kFirstWidth = 480;
constexpr double kRounding = 1e-6; // frames

/// The lists' own comparison hands null to memcmp where one of two empty ones was never filled.
bool areEqual(const QList<int>& aOne, const QList<int>& aOther)
{
    return std::equal(aOne.begin(), aOne.end(), aOther.begin(), aOther.end());
}

} // namespace

TimelineView::TimelineView(const Media& aMedia, KeyframeTrack& aTrack, QWidget* aParent)
    : QAbstractScrollArea(aParent), theMedia(aMedia), theTrack(aTrack)
{
    setObjectName(QStringLiteral("timeline"));
    setAccessibleName(tr("Time line"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Base);
    theFreshTimer.setSingleShot(true);
    connect(&theFreshTimer, &QTimer::timeout, this, [this] {
        theFresh.clear();
        viewport()->update();
    });
    connect(&theMedia, &Media::opened, this, &TimelineView::mediaOpened);
    connect(&theMedia, &Media::frameCountChanged, this, &TimelineView::updateScale);
    connect(&theMedia, &Media::frameShown, this, &TimelineView::frameShown);
    connect(&theTrack, &KeyframeTrack::changed, this, &TimelineView::trackChanged);
    mediaOpened();
}

QSize TimelineView::sizeHint() const
{
    const int bar = horizontalScrollBar()->sizeHint().height();
    return QSize(kFirstWidth, rulerHeight() + kRowHeight + bar + 2 * frameWidth());
}

QSize TimelineView::minimumSizeHint() const
{
    return QSize(kFirstWidth / 4, sizeHint().height());
}

int TimelineView::rulerHeight() const
{
    const int rows = theMedia.times().isEmpty() ? 1 : kRulerTextRows;
    return rows * fontMetrics().height() + kTickHeight + 2;
}

int TimelineView::rowMiddle() const
{
    return rulerHeight() + kRowHeight / 2;
}

QPoint TimelineView::keyframePlace(int aFrame) const
{
    return QPoint(int(std::lround(theScale.xOf(aFrame))), rowMiddle());
}

QPoint TimelineView::rulerPlace(int aFrame) const
{
    return QPoint(int(std::lround(theScale.xOf(aFrame))), rulerHeight() / 2);
}

void TimelineView::mediaOpened()
{
    endGesture(true);
    updateScale();
    updateGeometry();
    updateDescription();
}

void TimelineView::frameShown(int aFrame)
{
    const double first = theScale.firstShown();
    theScale.reveal(aFrame);
    if (theScale.firstShown() != first)
        updateScale();
    updateDescription();
    viewport()->update();
}

void TimelineView::trackChanged()
{
    const QString object = theTrack.objectText();
    const QList<int>& frames = theTrack.frames();
    if (!areEqual(frames, theKnown))
        endGesture(true);
    if (object == theKnownObject) {
        QList<int> fresh;
        std::set_difference(frames.begin(), frames.end(), theKnown.begin(), theKnown.end(),
                            std::back_inserter(fresh));
        if (!fresh.isEmpty()) {
            theFresh = fresh;
            theFreshTimer.start(kFreshTime);
        }
    } else {
        endGesture(true);
        theFresh.clear();
        theSelected.clear();
    }
    theKnownObject = object;
    theKnown = frames;
    select(theSelected);
    updateDescription();
    viewport()->update();
}

void TimelineView::select(const QList<int>& aFrames)
{
    std::vector<int> wanted(aFrames.begin(), aFrames.end());
    std::sort(wanted.begin(), wanted.end());
    QList<int> there;
    std::set_intersection(theTrack.frames().begin(), theTrack.frames().end(), wanted.begin(), wanted.end(),
                          std::back_inserter(there));
    const bool isOther = !areEqual(there, theSelected);
    theSelected = there;
    viewport()->update();
    if (isOther)
        Q_EMIT selectionChanged();
}

void TimelineView::selectAll()
{
    select(theTrack.frames());
}

/// The scroll bar counts frames.
void TimelineView::updateScale()
{
    theScale.setExtent(viewport()->width(), 2 * kKeyframeRadius, theMedia.frameCount());
    QScrollBar* bar = horizontalScrollBar();
    const QSignalBlocker blocker(bar);
    const int hidden = int(std::ceil(theScale.frameCount() - 1 - theScale.shownFrames() - kRounding));
    bar->setRange(0, qMax(0, hidden));
    bar->setPageStep(int(theScale.shownFrames()));
    bar->setSingleStep(qMax(1, int(theScale.shownFrames() / 20.0)));
    bar->setValue(int(std::lround(theScale.firstShown())));
    viewport()->update();
}

/// What a screen reader says of the line.
void TimelineView::updateDescription()
{
    QString text = FrameText::frame(theMedia.frame(), theMedia.times());
    text = tr("%1 of %2").arg(text).arg(theMedia.frameCount());
    setAccessibleDescription(tr("%1. %2").arg(text, rowText()));
}

QString TimelineView::rowText() const
{
    if (!theTrack.hasObject())
        return tr("Select an object to see its keyframes.");
    if (!theTrack.isAnimated())
        return tr("%1 is not animated: it is the same on all frames.").arg(theTrack.objectText());
    return tr("%1: %n keyframe(s)", nullptr, int(theTrack.frames().size())).arg(theTrack.objectText());
}

void TimelineView::scrollContentsBy(int, int)
{
    theScale.scrollTo(horizontalScrollBar()->value());
    viewport()->update();
}

void TimelineView::resizeEvent(QResizeEvent* aEvent)
{
    QAbstractScrollArea::resizeEvent(aEvent);
    updateScale();
}

bool TimelineView::viewportEvent(QEvent* aEvent)
{
    if (aEvent->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(aEvent);
        const int frame = theScale.frameAt(help->pos().x());
        QToolTip::showText(help->globalPos(), FrameText::frame(frame, theMedia.times()), viewport());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(aEvent);
}
