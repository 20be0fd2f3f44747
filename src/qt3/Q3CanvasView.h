#ifndef Q3CANVASVIEW_H
#define Q3CANVASVIEW_H

#include <QAbstractScrollArea>
#include <QList>
#include <QTransform>

class Q3Canvas;

/// A window onto a canvas. The world matrix is the zoom; scroll bars and centring come on top of it, so that
/// viewport = canvas * worldMatrix() + offset. A canvas smaller than the viewport stands in its middle.
class Q3CanvasView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit Q3CanvasView(Q3Canvas* aCanvas = nullptr, QWidget* aParent = nullptr);
    ~Q3CanvasView() override;

    Q3Canvas* canvas() const { return theCanvas; }
    virtual void setCanvas(Q3Canvas* aCanvas);

    const QTransform& worldMatrix() const { return theWorldMatrix; }
    const QTransform& inverseWorldMatrix() const { return theInverseMatrix; }
    /// False, without effect, for a matrix that can't be inverted. What stands in the upper left corner of
    /// the viewport stays there as far as the scroll range allows.
    virtual bool setWorldMatrix(const QTransform& aMatrix);
    /// Sets a plain zoom and scrolls so that the canvas point under the viewport position stays there.
    void zoomAbout(double aZoom, const QPointF& aViewportPos);

    /// Canvas coordinates to logical pixels of the viewport.
    QTransform canvasToViewport() const;
    /// The canvas pixel under a viewport position.
    QPoint toCanvas(const QPointF& aViewportPos) const;
    QPointF toViewport(const QPointF& aCanvasPoint) const;
    QRect visibleCanvasRect() const;
    /// Scrolls as little as possible to bring the point into view, with a margin of 20 pixels.
    void ensureVisible(const QPoint& aCanvasPoint);
    /// Moves the viewport over the canvas: positive values show what lies further to the right and further
    /// down.
    void scrollBy(const QPoint& aViewportDelta);

Q_SIGNALS:
    void worldMatrixChanged();

protected:
    void paintEvent(QPaintEvent* aEvent) override;
    void resizeEvent(QResizeEvent* aEvent) override;
    void scrollContentsBy(int aDx, int aDy) override;
    /// Painted on top of all items, in viewport coordinates.
    virtual void drawForeground(QPainter& aPainter);
    /// Whether `drawForeground` shows anything now. It doesn't scroll with the canvas, so all is painted
    /// again then.
    virtual bool hasForeground() const { return false; }

private:
    friend class Q3Canvas;

    void repaintCanvas(const QList<QRect>& aCanvasRects);
    void repaintAll();
    void canvasResized();
    void canvasGone();
    void paintSurroundings(QPainter& aPainter, const QRegion& aExposed) const;
    /// The canvas in viewport pixels before scrolling and centring.
    QRectF mappedCanvas() const;
    QPoint offset() const;
    void updateScrollBars();
    void setScrollRanges(const QSize& aRoom, bool aWider, bool aHigher);
    /// Scrolls so that the canvas point stands at the viewport position, as far as possible.
    void anchor(const QPointF& aCanvasPoint, const QPointF& aViewportPos);

    Q3Canvas* theCanvas = nullptr; // not owned
    QTransform theWorldMatrix;
    QTransform theInverseMatrix;
    QPointF theZoomAnchor;            // viewport position that a change of the matrix leaves in place
    bool theLayoutRunning = false;    // scroll bars follow the canvas; all is painted afterwards
    qsizetype theRepaintsWaiting = 0; // rectangles asked for since the last paint event
};

#endif
