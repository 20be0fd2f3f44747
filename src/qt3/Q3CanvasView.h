#ifndef Q3CANVASVIEW_H
#define Q3CANVASVIEW_H

#include <QAbstractScrollArea>
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
    /// False, without effect, for a matrix that can't be inverted.
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
    void scrollBy(const QPoint& aViewportDelta);

Q_SIGNALS:
    void worldMatrixChanged();

protected:
    void paintEvent(QPaintEvent* aEvent) override;
    void resizeEvent(QResizeEvent* aEvent) override;
    void scrollContentsBy(int aDx, int aDy) override;
    /// Painted on top of all items, in viewport coordinates.
    virtual void drawForeground(QPainter& aPainter);

private:
    friend class Q3Canvas;

    void repaintCanvas(const QRegion& aCanvasRegion);
    void repaintAll();
    void canvasResized();
    void canvasGone();
    QPoint offset() const;
    void updateScrollBars();
    /// Half the widest pen in canvas pixels at the present zoom, and a pixel for rounding.
    int dirtyMargin() const;

    Q3Canvas* theCanvas = nullptr; // not owned
    QTransform theWorldMatrix;
    QTransform theInverseMatrix;
};

#endif
