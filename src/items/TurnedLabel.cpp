#include "TurnedLabel.h"

#include "PointMath.h"
#include "TurnedGlyphs.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace {

// Turns the painter about the pivot, which keeps its place on the screen. The new translation is worked out
// in whole pixels from the pivot's two images, so that the box stands still while a line is dragged through
// nearby slopes.
void turnAbout(QPainter& aPainter, const QPoint& aPivot, double aDegrees)
{
    const QTransform before = aPainter.worldTransform();
    const QTransform linear(before.m11(), before.m12(), before.m21(), before.m22(), 0.0, 0.0);
    const QPoint kept = linear.map(aPivot);

    aPainter.rotate(aDegrees);
    const QTransform turned = aPainter.worldTransform();
    const QPoint image = PointMath::difference(turned.map(aPivot), PointMath::cut(turned.dx(), turned.dy()));
    const QPoint shift = PointMath::difference(kept, image);
    aPainter.setWorldTransform(QTransform(turned.m11(), turned.m12(), turned.m21(), turned.m22(),
                                          turned.dx() + shift.x(), turned.dy() + shift.y()));
}

} // namespace

QRect TurnedLabel::boxOf(const QString& aText, const QFont& aFont)
{
    return QFontMetrics(aFont).boundingRect(aText);
}

void TurnedLabel::place(QRect& aBox, const QPoint& aCentre, int aRaise)
{
    const QPoint centre = PointMath::nearby(aCentre);
    aBox.moveCenter(centre);
    aBox.moveBottom(centre.y() - aRaise);
}

double TurnedLabel::angleOf(const QPoint& aStart, const QPoint& aEnd)
{
    constexpr double kDegreesPerRadian = 57.295779513260925;
    const double dx = double(aEnd.x()) - aStart.x();
    const double dy = double(aEnd.y()) - aStart.y();
    if (dx == 0.0 && dy == 0.0)
        return 0.0;
    return std::atan(dy / dx) * kDegreesPerRadian;
}

// An outline in the colour of the box is drawn as half a device pixel more of box all round: the same pixels,
// without the stroking of a turned path, which costs twice as much as the filling.
void TurnedLabel::drawBox(QPainter& aPainter) const
{
    aPainter.setBrush(theFill);
    if (theOutlinePen.widthF() > 0.0 || theOutlinePen.color() != theFill.color()) {
        aPainter.setPen(theOutlinePen);
        aPainter.drawRects(&theBox, 1);
        return;
    }
    const QTransform toDevice = aPainter.deviceTransform();
    const double half = 0.5 / std::max(std::hypot(toDevice.m11(), toDevice.m12()), 1e-6);
    const QRectF widened = QRectF(theBox).adjusted(-half, -half, half, half);
    aPainter.setPen(Qt::NoPen);
    aPainter.drawRects(&widened, 1);
}

void TurnedLabel::draw(QPainter& aPainter, const QPoint& aPivot, double aDegrees) const
{
    aPainter.save();
    turnAbout(aPainter, PointMath::nearby(aPivot), aDegrees);
    paint(aPainter);
    aPainter.restore();
}

void TurnedLabel::drawUpright(QPainter& aPainter) const
{
    aPainter.save();
    paint(aPainter);
    aPainter.restore();
}

// Leaves the painter changed.
void TurnedLabel::paint(QPainter& aPainter) const
{
    drawBox(aPainter);
    if (!TurnedGlyphs::getInstance().drawCentred(aPainter, theBox, theText, theFont, theTextPen.color())) {
        aPainter.setFont(theFont);
        aPainter.setPen(theTextPen);
        aPainter.drawText(theBox, Qt::AlignCenter, theText);
    }
}
