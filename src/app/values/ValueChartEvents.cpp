// What the mouse and the keys do in the chart.
#include "CurveMarks.h"
#include "FrameText.h"
#include "Media.h"
#include "ValueChart.h"
#include "ValueReport.h"

#include <QChart>
#include <QKeyEvent>
#include <QLineSeries>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kNear = 16.0;        // pixels between the pointer and a value that it means
constexpr double kZoomOfNotch = 1.25; // as on the time line
constexpr double kNotch = 120.0;      // of the wheel's angle
constexpr double kLeastFrames = 2.0;  // shown at the strongest zoom
constexpr double kScrollPart = 0.1;   // of what is shown, for a notch

/// The first sample that isn't before the frame.
std::vector<ValueSample>::const_iterator firstFrom(const ValueSeries& aSeries, int aFrame)
{
    return std::partition_point(aSeries.theSamples.begin(), aSeries.theSamples.end(),
                                [aFrame](const ValueSample& aSample) { return aSample.theFrame < aFrame; });
}

} // namespace

int ValueChart::frameNear(double aX) const
{
    const int last = std::max(0, theMedia.frameCount() - 1);
    if (theMedia.times().isEmpty())
        return std::clamp(int(std::lround(aX)) - 1, 0, last);
    const int before = std::min(theMedia.times().frameAt(aX), last);
    const int behind = std::min(before + 1, last);
    return std::abs(xOf(behind) - aX) < std::abs(xOf(before) - aX) ? behind : before;
}

int ValueChart::frameAt(const QPoint& aPlace) const
{
    const QRectF area = chart()->plotArea();
    const double x = chart()->mapFromScene(mapToScene(aPlace)).x();
    const double part = area.width() > 0.0 ? std::clamp((x - area.left()) / area.width(), 0.0, 1.0) : 0.0;
    return frameNear(theFirst + part * (theLast - theFirst));
}

QPoint ValueChart::placeOf(const Curve& aCurve, const ValueSample& aSample) const
{
    const QPointF place = chartPlace(aCurve, QPointF(xOf(aSample.theFrame), aSample.theValue));
    return mapFromScene(chart()->mapToScene(place));
}

QPoint ValueChart::placeOf(int aFrame) const
{
    const QRectF area = chart()->plotArea();
    const double part = (xOf(aFrame) - theFirst) / (theLast - theFirst);
    return mapFromScene(chart()->mapToScene(QPointF(area.left() + part * area.width(), area.center().y())));
}

ValueChart::Hit ValueChart::hitAt(const QPoint& aPlace) const
{
    Hit hit;
    double nearest = kNear;
    const int frame = frameAt(aPlace);
    for (const Curve& curve : theCurves) {
        const std::vector<ValueSample>& samples = curve.theSeries->theSamples;
        const auto behind = firstFrom(*curve.theSeries, frame);
        const auto first = behind == samples.begin() ? behind : std::prev(behind);
        for (auto it = first; it != samples.end() && it - first < 2; ++it) {
            const QPoint away = placeOf(curve, *it) - aPlace;
            const double distance = std::hypot(away.x(), away.y());
            if (distance < nearest) {
                nearest = distance;
                hit = {&curve, &*it};
            }
        }
    }
    return hit;
}

QString ValueChart::text(const Hit& aHit) const
{
    if (!aHit.theCurve)
        return QString();
    const QString number = ValueReport::numberText(aHit.theSample->theValue);
    const QString unit = aHit.theCurve->theSeries->theUnit;
    return tr("%1, %2\n%3\n%4")
        .arg(aHit.theCurve->theObject, aHit.theCurve->theKey.theName,
             FrameText::frame(aHit.theSample->theFrame, theMedia.times()),
             unit.isEmpty() ? number : number + QLatin1Char(' ') + unit);
}

QString ValueChart::textAt(const QPoint& aPlace)
{
    const Hit hit = hitAt(aPlace);
    if (hit.theCurve)
        theMarks->setRing(
            chartPlace(*hit.theCurve, QPointF(xOf(hit.theSample->theFrame), hit.theSample->theValue)),
            hit.theCurve->theColor);
    else
        theMarks->hideRing();
    return text(hit);
}

void ValueChart::updateDescription()
{
    QStringList parts{FrameText::frame(theMedia.frame(), theMedia.times())};
    for (const Curve& curve : std::as_const(theCurves)) {
        const auto sample = firstFrom(*curve.theSeries, theMedia.frame());
        if (sample == curve.theSeries->theSamples.end() || sample->theFrame != theMedia.frame())
            continue;
        parts.append(tr("%1, %2: %3 %4")
                         .arg(curve.theObject, curve.theKey.theName,
                              ValueReport::numberText(sample->theValue), curve.theSeries->theUnit)
                         .trimmed());
    }
    setAccessibleDescription(parts.join(QLatin1String("; ")));
}

void ValueChart::go(const QPoint& aPlace)
{
    const int frame = frameAt(aPlace);
    if (frame != theMedia.frame())
        Q_EMIT frameWanted(frame);
}

void ValueChart::mousePressEvent(QMouseEvent* aEvent)
{
    theDragging = aEvent->button() == Qt::LeftButton && !theCurves.isEmpty();
    if (theDragging)
        go(aEvent->position().toPoint());
}

void ValueChart::mouseMoveEvent(QMouseEvent* aEvent)
{
    const QPoint place = aEvent->position().toPoint();
    if (theDragging)
        go(place);
    const QString told = textAt(place);
    if (told.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(aEvent->globalPosition().toPoint(), told, viewport());
}

void ValueChart::mouseReleaseEvent(QMouseEvent*)
{
    theDragging = false;
}

void ValueChart::mouseDoubleClickEvent(QMouseEvent* aEvent)
{
    if (aEvent->button() == Qt::LeftButton)
        showWhole();
}

void ValueChart::leaveEvent(QEvent* aEvent)
{
    theMarks->hideRing();
    QChartView::leaveEvent(aEvent);
}

void ValueChart::zoom(double aFactor, double aMiddle)
{
    const double whole = wholeLast() - wholeFirst();
    const double frames = std::max(kLeastFrames, theMedia.frameCount() - 1.0);
    const double part = (aMiddle - theFirst) / (theLast - theFirst);
    const double least = std::min(whole, whole * kLeastFrames / frames);
    const double width = std::clamp((theLast - theFirst) / aFactor, least, whole);
    theLast = theFirst + width; // the width is kept by what follows
    moveTo(aMiddle - part * width);
}

void ValueChart::moveTo(double aFirst)
{
    const double width = theLast - theFirst;
    theFirst = std::max(wholeFirst(), std::min(aFirst, wholeLast() - width));
    theLast = theFirst + width;
    rebuild();
}

void ValueChart::wheelEvent(QWheelEvent* aEvent)
{
    const QPoint turn = aEvent->angleDelta();
    const QRectF area = chart()->plotArea();
    aEvent->accept();
    if (turn.x() != 0 || aEvent->modifiers().testFlag(Qt::ShiftModifier)) {
        const int angle = turn.x() != 0 ? turn.x() : turn.y();
        moveTo(theFirst - angle / kNotch * kScrollPart * (theLast - theFirst));
        return;
    }
    const double x = chart()->mapFromScene(mapToScene(aEvent->position().toPoint())).x();
    const double part = area.width() > 0.0 ? std::clamp((x - area.left()) / area.width(), 0.0, 1.0) : 0.0;
    zoom(std::pow(kZoomOfNotch, turn.y() / kNotch), theFirst + part * (theLast - theFirst));
}

void ValueChart::keyPressEvent(QKeyEvent* aEvent)
{
    const int frame = theMedia.frame();
    const int last = theMedia.frameCount() - 1;
    const double middle = std::clamp(xOf(frame), theFirst, theLast);
    switch (aEvent->key()) {
    case Qt::Key_Left:
        Q_EMIT frameWanted(std::max(0, frame - 1));
        return;
    case Qt::Key_Right:
        Q_EMIT frameWanted(std::min(last, frame + 1));
        return;
    case Qt::Key_Home:
        Q_EMIT frameWanted(0);
        return;
    case Qt::Key_End:
        Q_EMIT frameWanted(last);
        return;
    case Qt::Key_Plus:
        zoom(kZoomOfNotch, middle);
        return;
    case Qt::Key_Minus:
        zoom(1.0 / kZoomOfNotch, middle);
        return;
    default:
        aEvent->ignore();
    }
}
