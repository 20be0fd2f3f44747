#include "RegionFrame.h"

#include <QPainter>

namespace {

constexpr double kTopmost = 1e9;

} // namespace

RegionFrame::RegionFrame(Q3Canvas* aCanvas) : Q3CanvasRectangle(aCanvas)
{
    setZ(kTopmost);
}

RegionFrame::~RegionFrame() = default;

void RegionFrame::setRect(const QRect& aRect)
{
    move(aRect.x(), aRect.y());
    setSize(aRect.width(), aRect.height());
}

void RegionFrame::drawShape(QPainter& aPainter)
{
    const QRectF frame(rect());
    aPainter.setBrush(Qt::NoBrush);
    aPainter.setPen(QPen(Qt::white, 0));
    aPainter.drawRect(frame);
    aPainter.setPen(QPen(Qt::black, 0, Qt::DashLine));
    aPainter.drawRect(frame);
}
