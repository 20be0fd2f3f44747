// How TimelineView looks.
#include "TimelineView.h"

#include "FrameText.h"
#include "KeyframeTrack.h"
#include "Media.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kPositionHead = 5;
constexpr double kLeastTick = 5.0;                 // pixels between two ticks
constexpr QColor kPositionColor(0xd6, 0x33, 0x33); // seen on light and dark grounds

/// Text colour mixed into the ground, for what is there but not foremost.
QColor faint(const QPalette& aPalette, double aShare)
{
    QColor color = aPalette.color(QPalette::Text);
    color.setAlphaF(float(aShare));
    return color;
}

} // namespace

void TimelineView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    paintRuler(painter);
    paintKeyframes(painter);
    if (theGesture == kBand && thePress != theMouse) {
        const QRect band(QPoint(thePress.x(), rulerHeight()), QPoint(theMouse.x(), viewport()->height() - 1));
        QColor fill = palette().color(QPalette::Highlight);
        fill.setAlphaF(0.3F);
        painter.fillRect(band.normalized(), fill);
    }
    paintPosition(painter);
}

/// Numbers count from 1, and round ones are labelled; the first frame always is.
void TimelineView::paintRuler(QPainter& aPainter) const
{
    const FrameTimes& times = theMedia.times();
    const QString widest = times.isEmpty() ? QString::number(theScale.frameCount())
                                           : FrameText::time(times.at(times.count() - 1));
    const int labelStep = theScale.tickStep(fontMetrics().horizontalAdvance(widest) * 1.5);
    const int tickStep = qMax(theScale.tickStep(kLeastTick), labelStep / 10);
    const int last =
        qMin(theScale.frameCount(), int(theScale.firstShown() + theScale.shownFrames()) + labelStep);
    const int first = int(theScale.firstShown()) / labelStep * labelStep;
    if (first == 0)
        paintTick(aPainter, 1, true);
    for (int number = qMax(tickStep, first); number <= last; number += tickStep)
        paintTick(aPainter, number, number % labelStep == 0);
    aPainter.setPen(faint(palette(), 0.35));
    aPainter.drawLine(0, rulerHeight(), viewport()->width(), rulerHeight());
}

void TimelineView::paintTick(QPainter& aPainter, int aNumber, bool aLabelled) const
{
    const double x = theScale.xOf(aNumber - 1);
    const int bottom = rulerHeight();
    aPainter.setPen(faint(palette(), aLabelled ? 0.8 : 0.35));
    aPainter.drawLine(QPointF(x, bottom - (aLabelled ? kTickHeight : kTickHeight / 2)), QPointF(x, bottom));
    if (!aLabelled)
        return;
    const FrameTimes& times = theMedia.times();
    const QString time = times.isEmpty() ? QString() : FrameText::time(times.at(aNumber - 1));
    // The labels of the first and the last frame stay inside.
    const int row = fontMetrics().height();
    const double width =
        fontMetrics().horizontalAdvance(time.isEmpty() ? QString::number(aNumber) : time) + 2.0;
    const double left = qBound(1.0, x - width / 2.0, viewport()->width() - width - 1.0);
    const QRectF place(left, 0.0, width, row);
    aPainter.drawText(place, Qt::AlignCenter, QString::number(aNumber));
    aPainter.setPen(faint(palette(), 0.6));
    aPainter.drawText(place.translated(0.0, row), Qt::AlignCenter, time);
}

void TimelineView::paintKeyframes(QPainter& aPainter) const
{
    const QList<int>& frames = theTrack.frames();
    if (frames.isEmpty()) {
        aPainter.setPen(faint(palette(), 0.6));
        const QRect row(0, rulerHeight(), viewport()->width(), 2 * (rowMiddle() - rulerHeight()));
        aPainter.drawText(row, Qt::AlignCenter, rowText());
        return;
    }
    aPainter.setPen(QPen(faint(palette(), 0.35), 2.0));
    aPainter.drawLine(QPointF(theScale.xOf(frames.first()), rowMiddle()),
                      QPointF(theScale.xOf(frames.last()), rowMiddle()));
    // Of several that fall together on the screen the selected one is seen.
    int painted = -1;
    for (const int frame : frames) {
        const int x = keyframePlace(frame).x();
        if (x != painted || std::binary_search(theSelected.begin(), theSelected.end(), frame))
            paintKeyframe(aPainter, frame, 0);
        painted = x;
    }
    if (theDragBy != 0)
        for (const int frame : theSelected)
            paintKeyframe(aPainter, frame, theDragBy);
}

/// A diamond; with a shift it is where the keyframe would go.
void TimelineView::paintKeyframe(QPainter& aPainter, int aFrame, int aShift) const
{
    const double x = theScale.xOf(aFrame + aShift);
    if (x < -2 * kKeyframeRadius || x > viewport()->width() + 2 * kKeyframeRadius)
        return;
    const bool selected = std::binary_search(theSelected.begin(), theSelected.end(), aFrame);
    const QColor highlight = palette().color(QPalette::Highlight);
    aPainter.save();
    aPainter.translate(x, rowMiddle());
    if (aShift == 0 && std::binary_search(theFresh.begin(), theFresh.end(), aFrame)) {
        QColor halo = kPositionColor;
        halo.setAlphaF(0.4F);
        aPainter.setPen(Qt::NoPen);
        aPainter.setBrush(halo);
        aPainter.drawEllipse(QPointF(0.0, 0.0), 2.0 * kKeyframeRadius, 2.0 * kKeyframeRadius);
    }
    aPainter.rotate(45.0);
    const double half = kKeyframeRadius / std::sqrt(2.0);
    const QColor fill = selected ? highlight : faint(palette(), 0.75);
    aPainter.setPen(QPen(palette().color(QPalette::Base), 1.0));
    aPainter.setBrush(aShift == 0 && theDragBy != 0 && selected ? QBrush(highlight, Qt::Dense5Pattern)
                                                                : QBrush(fill));
    aPainter.drawRect(QRectF(-half, -half, 2.0 * half, 2.0 * half));
    aPainter.restore();
}

void TimelineView::paintPosition(QPainter& aPainter) const
{
    const double x = theScale.xOf(theMedia.frame());
    aPainter.setPen(QPen(kPositionColor, 1.5));
    aPainter.drawLine(QPointF(x, rulerHeight() - kPositionHead), QPointF(x, viewport()->height()));
    aPainter.setPen(Qt::NoPen);
    aPainter.setBrush(kPositionColor);
    const double top = rulerHeight() - 2.0 * kPositionHead;
    const QPointF head[] = {
        {x - kPositionHead, top}, {x + kPositionHead, top}, {x, top + 2.0 * kPositionHead}};
    aPainter.drawConvexPolygon(head, 3);
}
