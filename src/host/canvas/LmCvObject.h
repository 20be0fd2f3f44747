#ifndef LMCVOBJECT_H
#define LMCVOBJECT_H

#include "Q3CanvasPolygonalItem.h"
#include "QMatrix.h"

#include <QLinkedList>
#include <QString>

class LmCvManipulator;
class Q3CanvasView;
class QMouseEvent;

/// Base class of all measuring items on the canvas. It carries what all of them share: label, unit, step,
/// pens and the three states. Selected is the state of a group, active that of the one current item, locked
/// is kept for the host.
///
/// Mouse positions and points are canvas coordinates. An item's mouse operations may correct the position
/// they are given; they accept an event that they used and ignore it otherwise.
class LmCvObject : public Q3CanvasPolygonalItem
{
public:
    static const int kDefaultFntSize; // points, label size at zoom 1 and above
    static const int kDefaultSelSize; // pixels, side of the hit test square at zoom 1 and above

    LmCvObject(LmCvManipulator* aTool, Q3Canvas* aCanvas, const QString& aLabel, Q3CanvasView* aView);
    ~LmCvObject() override;

    void setSelected(bool aOn) override;
    void setActive(bool aOn) override;
    void setPen(QPen aPen) override;

    /// Colours both line pens; the label's text stays white.
    virtual void setColor(const QColor& aColor);
    virtual QColor getColor();
    virtual void setPenStyle(Qt::PenStyle aStyle);
    virtual bool isActive();
    virtual bool isLocked();
    virtual void setLocked(bool aOn);
    virtual QLinkedList<int> getSelectedNodes();
    /// Takes a calibration: aStep pixels per aUnit, 0 for none. The label isn't built again; its text is the
    /// tool's.
    virtual void setStep(double aStep, const QString& aUnit);
    /// Follows the zoom, aMatrix.m11(), so that below zoom 1 label, handles and heads keep their size on the
    /// screen.
    virtual void adjustScale(const QMatrix& aMatrix) = 0;
    /// Whether a square of side aTol around the point touches the item; aNode is the part that is touched.
    virtual bool isPointOnObject(const QPoint& aPoint, int& aNode, int aTol) = 0;
    virtual bool isRectContainsObject(const QRect& aRect) = 0;
    virtual void mousePressEvent(QMouseEvent* aEvent, QPoint& aPoint) = 0;
    virtual void mouseReleaseEvent(QMouseEvent* aEvent, QPoint& aPoint) = 0;
    virtual void mouseMoveEvent(QMouseEvent* aEvent, QPoint& aPoint) = 0;
    virtual void moveObjectBy(const QPoint& aDelta) = 0;
    /// The last edit changed the geometry.
    virtual bool isNodesChanged() = 0;
    virtual void selectNodes(const QPoint& aCorner, const QSize& aSize);
    virtual void updateLabel();

    /// Stores the value text and builds the label again.
    void setDisplayValue(const QString& aText);
    /// The whole text on the label: the number between blanks and behind it, if any, the value in angle
    /// brackets.
    QString labelText() const;

    QString theLabel;
    Q3CanvasView* theView; // not owned
    QString theUnit;
    double theStep = 0.0; // pixels per unit, 0 without calibration
    QPen thePen;          // selected or active
    QPen theThinPen;      // plain, and all outlines
    QPen theTextPen;
    Qt::PenStyle thePenStyle = Qt::SolidLine;
    QString theDisplayValue;
    bool theShowNodes = true;
    bool theActive = false;
    bool theLocked = false;
    LmCvManipulator* theManipulator; // not owned, outlives the item

protected:
    /// What follows the zoom in every item.
    struct ScaledSizes
    {
        double theZoom;        // at most 1; what keeps its size on the screen is divided by it
        double theFontSize;    // points
        int theSelSize;        // canvas pixels
        double theArrowLength; // canvas pixels
    };

    /// Sets thePen's width to 2 screen pixels and gives the sizes at the zoom.
    ScaledSizes scaleTo(const QMatrix& aMatrix);
    /// The pen for the item's lines in its present state.
    const QPen& linePen() const { return (isSelected() || theActive) ? thePen : theThinPen; }
};

#endif
