#include "Q3CanvasView.h"

#include "CanvasPlane.h"
#include "Q3Canvas.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace {

// Viewport pixels that an item's pen may reach beyond its area: half of a 2 pixel pen, its square cap or
// join, and one pixel of rounding on each side.
constexpr QMargins kPenReach(4, 4, 4, 4);

// Beyond this number of waiting rectangles the whole viewport is repainted at once.
constexpr qsizetype kMaxRepaintsWaiting = 256;

constexpr int kRevealMargin = 20;

bool isFinite(const QTransform& aMatrix)
{
    for (const double value : {aMatrix.m11(), aMatrix.m12(), aMatrix.m13(), aMatrix.m21(), aMatrix.m22(),
                               aMatrix.m23(), aMatrix.m31(), aMatrix.m32(), aMatrix.m33()})
        if (!std::isfinite(value))
            return false;
    return true;
}

// A position that lies on a pixel's edge but for rounding errors belongs to the pixel that begins there.
int pixelAt(double aPosition)
{
    constexpr double kRounding = 1e-6;
    return CanvasPlane::coordinate(std::floor(aPosition + kRounding));
}

// The least shift that brings a position into the room, margin included.
int shiftInto(double aPosition, int aRoom)
{
    const double margin = std::min(double(kRevealMargin), aRoom / 2.0);
    if (aPosition < margin)
        return CanvasPlane::coordinate(std::floor(aPosition - margin));
    if (aPosition > aRoom - margin)
        return CanvasPlane::coordinate(std::ceil(aPosition - aRoom + margin));
    return 0;
}

int roomFor(Qt::ScrollBarPolicy aPolicy, int aThickness)
{
    return aPolicy == Qt::ScrollBarAsNeeded ? aThickness : 0;
}

bool showsAsNeeded(Qt::ScrollBarPolicy aPolicy, const QScrollBar& aBar, bool aNeeded)
{
    return aPolicy != Qt::ScrollBarAsNeeded || aNeeded == aBar.parentWidget()->isVisibleTo(aBar.window());
}

} // namespace

Q3CanvasView::Q3CanvasView(Q3Canvas* aCanvas, QWidget* aParent) : QAbstractScrollArea(aParent)
{
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    Q3CanvasView::setCanvas(aCanvas);
}

Q3CanvasView::~Q3CanvasView()
{
    if (!theCanvas)
        return;
    theCanvas->removeView(this);
    // A canvas that is a child of this widget outlives this destructor; its signals must not come here any
    // more.
    disconnect(theCanvas, nullptr, this, nullptr);
}

void Q3CanvasView::setCanvas(Q3Canvas* aCanvas)
{
    if (aCanvas == theCanvas)
        return;
    if (theCanvas)
        theCanvas->removeView(this);
    theCanvas = aCanvas;
    if (theCanvas)
        theCanvas->addView(this);
    canvasResized();
}

bool Q3CanvasView::setWorldMatrix(const QTransform& aMatrix)
{
    bool invertible = false;
    const QTransform inverse = aMatrix.inverted(&invertible);
    if (!invertible || !isFinite(aMatrix) || !isFinite(inverse))
        return false;
    if (aMatrix == theWorldMatrix)
        return true;
    const QPointF kept = canvasToViewport().inverted().map(theZoomAnchor);
    theWorldMatrix = aMatrix;
    theInverseMatrix = inverse;
    updateScrollBars();
    anchor(kept, theZoomAnchor);
    repaintAll();
    Q_EMIT worldMatrixChanged();
    return true;
}

void Q3CanvasView::zoomAbout(double aZoom, const QPointF& aViewportPos)
{
    const QScopedValueRollback<QPointF> about(theZoomAnchor, aViewportPos);
    setWorldMatrix(QTransform::fromScale(aZoom, aZoom));
}

QTransform Q3CanvasView::canvasToViewport() const
{
    const QPoint shift = offset();
    return theWorldMatrix * QTransform::fromTranslate(shift.x(), shift.y());
}

QPoint Q3CanvasView::toCanvas(const QPointF& aViewportPos) const
{
    const QPointF exact = theInverseMatrix.map(aViewportPos - offset());
    return QPoint(pixelAt(exact.x()), pixelAt(exact.y()));
}

QPointF Q3CanvasView::toViewport(const QPointF& aCanvasPoint) const
{
    return canvasToViewport().map(aCanvasPoint);
}

QRect Q3CanvasView::visibleCanvasRect() const
{
    if (!theCanvas)
        return QRect();
    const QRectF seen = canvasToViewport().inverted().mapRect(CanvasPlane::exact(viewport()->rect()));
    return CanvasPlane::alignedOut(seen & CanvasPlane::exact(theCanvas->rect()));
}

void Q3CanvasView::ensureVisible(const QPoint& aCanvasPoint)
{
    const QPointF centre = toViewport(QPointF(aCanvasPoint) + QPointF(0.5, 0.5));
    scrollBy(QPoint(shiftInto(centre.x(), viewport()->width()), shiftInto(centre.y(), viewport()->height())));
}

void Q3CanvasView::scrollBy(const QPoint& aViewportDelta)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + aViewportDelta.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + aViewportDelta.y());
}

void Q3CanvasView::paintEvent(QPaintEvent* aEvent)
{
    theRepaintsWaiting = 0;
    QPainter painter(viewport());
    paintSurroundings(painter, aEvent->region());
    if (theCanvas) {
        const QTransform toView = canvasToViewport();
        const QTransform toPlane = toView.inverted();
        QRegion exposed;
        for (const QRect& rect : aEvent->region())
            exposed +=
                CanvasPlane::alignedOut(toPlane.mapRect(CanvasPlane::exact(rect.marginsAdded(kPenReach))));
        // Qt strokes thin lines about twice as fast under a rectangular clip of the painter's own.
        painter.setClipRect(aEvent->rect());
        painter.setWorldTransform(toView);
        theCanvas->drawArea(exposed, painter);
        painter.resetTransform();
        painter.setClipping(false);
    }
    drawForeground(painter);
}

void Q3CanvasView::paintSurroundings(QPainter& aPainter, const QRegion& aExposed) const
{
    const bool upright = theWorldMatrix.type() <= QTransform::TxScale;
    const QRectF covered = theCanvas && upright ? mappedCanvas().translated(offset()) : QRectF();
    for (const QRect& rect : aExposed)
        if (!covered.contains(CanvasPlane::exact(rect)))
            aPainter.fillRect(rect, palette().color(QPalette::Dark));
}

void Q3CanvasView::drawForeground(QPainter&) {}

void Q3CanvasView::resizeEvent(QResizeEvent* aEvent)
{
    QAbstractScrollArea::resizeEvent(aEvent);
    if (theLayoutRunning)
        return;
    updateScrollBars();
    repaintAll();
}

void Q3CanvasView::scrollContentsBy(int aDx, int aDy)
{
    if (theLayoutRunning)
        return;
    if (hasForeground())
        repaintAll();
    else
        viewport()->scroll(aDx, aDy);
}

void Q3CanvasView::repaintCanvas(const QList<QRect>& aCanvasRects)
{
    if (theRepaintsWaiting > kMaxRepaintsWaiting)
        return; // all of the viewport waits for its repaint
    const QTransform toView = canvasToViewport();
    const QRectF seen = CanvasPlane::exact(viewport()->rect());
    QRegion dirty;
    for (const QRect& rect : aCanvasRects) {
        const QRectF mapped = toView.mapRect(CanvasPlane::exact(rect));
        const QRectF grown = mapped.marginsAdded(kPenReach) & seen;
        if (!grown.isEmpty())
            dirty += CanvasPlane::alignedOut(grown);
    }
    if (dirty.isEmpty())
        return;
    theRepaintsWaiting += dirty.rectCount();
    const bool all = theRepaintsWaiting > kMaxRepaintsWaiting;
    viewport()->update(all ? QRegion(viewport()->rect()) : dirty);
}

void Q3CanvasView::repaintAll()
{
    viewport()->update();
}

void Q3CanvasView::canvasResized()
{
    updateScrollBars();
    repaintAll();
}

void Q3CanvasView::canvasGone()
{
    theCanvas = nullptr;
    canvasResized();
}

QRectF Q3CanvasView::mappedCanvas() const
{
    return theCanvas ? theWorldMatrix.mapRect(CanvasPlane::exact(theCanvas->rect())) : QRectF();
}

QPoint Q3CanvasView::offset() const
{
    const QRectF mapped = mappedCanvas();
    const auto along = [](const QScrollBar* aBar, double aStart, double aLength, int aRoom) {
        if (aBar->maximum() > aBar->minimum())
            return -aBar->value();
        return CanvasPlane::coordinate(std::floor((aRoom - aLength) / 2.0 - aStart));
    };
    return QPoint(along(horizontalScrollBar(), mapped.left(), mapped.width(), viewport()->width()),
                  along(verticalScrollBar(), mapped.top(), mapped.height(), viewport()->height()));
}

/// Which bars are needed depends on the widget's size alone, never on the bars that show at the moment: so no
/// two layouts can take turns.
void Q3CanvasView::updateScrollBars()
{
    const QScopedValueRollback<bool> running(theLayoutRunning, true);
    const QSizeF needed = mappedCanvas().size();
    const int barHeight = roomFor(horizontalScrollBarPolicy(), horizontalScrollBar()->sizeHint().height());
    const int barWidth = roomFor(verticalScrollBarPolicy(), verticalScrollBar()->sizeHint().width());
    const QSize most = maximumViewportSize();
    bool wider = needed.width() > most.width();
    const bool higher = needed.height() > most.height() - (wider ? barHeight : 0);
    wider = wider || needed.width() > most.width() - (higher ? barWidth : 0);
    const bool higherThen = needed.height() > most.height() - (wider ? barHeight : 0);
    // Bars come and go with the next event loop turn, which brings a resize; until then the room is foreseen.
    const bool settled = showsAsNeeded(horizontalScrollBarPolicy(), *horizontalScrollBar(), wider) &&
                         showsAsNeeded(verticalScrollBarPolicy(), *verticalScrollBar(), higherThen);
    const QSize foreseen = most - QSize(higherThen ? barWidth : 0, wider ? barHeight : 0);
    setScrollRanges(settled ? viewport()->size() : foreseen, wider, higherThen);
}

void Q3CanvasView::setScrollRanges(const QSize& aRoom, bool aWider, bool aHigher)
{
    const QRectF mapped = mappedCanvas();
    const auto along = [](QScrollBar* aBar, double aStart, double aEnd, int aLength, bool aNeeded) {
        const int first = aNeeded ? CanvasPlane::coordinate(std::floor(aStart)) : 0;
        const int last = aNeeded ? CanvasPlane::coordinate(std::ceil(aEnd)) - aLength : 0;
        aBar->setRange(first, std::max(first, last));
        aBar->setPageStep(aLength);
        aBar->setSingleStep(std::max(1, aLength / 20));
    };
    along(horizontalScrollBar(), mapped.left(), mapped.right(), aRoom.width(), aWider);
    along(verticalScrollBar(), mapped.top(), mapped.bottom(), aRoom.height(), aHigher);
}

void Q3CanvasView::anchor(const QPointF& aCanvasPoint, const QPointF& aViewportPos)
{
    const QScopedValueRollback<bool> running(theLayoutRunning, true);
    const QPointF wanted = theWorldMatrix.map(aCanvasPoint) - aViewportPos;
    horizontalScrollBar()->setValue(CanvasPlane::coordinate(wanted.x()));
    verticalScrollBar()->setValue(CanvasPlane::coordinate(wanted.y()));
}
