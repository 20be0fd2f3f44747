#ifndef REGIONFIXTURE_H
#define REGIONFIXTURE_H

#include "ItemMouse.h"
#include "LmCvRegion.h"
#include "Q3Canvas.h"
#include "TestFont.h"

#include <QRandomGenerator>

#include <initializer_list>
#include <limits>

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

/// A region on a canvas of 1000 x 800 pixels, with what a mouse does to it.
struct RegionFixture
{
    RegionFixture() : theItem(new LmCvRegion(nullptr, &theCanvas, QStringLiteral("7"), nullptr))
    {
        theItem->show();
    }

    /// Appends a node with its handles at the given ways from the anchor, not selected.
    void add(const QPoint& aAnchor, const QPoint& aLeft = QPoint(), const QPoint& aRight = QPoint())
    {
        theItem->addNode(node(aAnchor, aLeft, aRight), -1, LmNodeState());
        theItem->theNodesChanged = false;
    }
    void addThree()
    {
        add(QPoint(100, 100), QPoint(-10, 0), QPoint(10, 5));
        add(QPoint(200, 150), QPoint(-20, -5), QPoint(20, 5));
        add(QPoint(300, 120), QPoint(-30, 0), QPoint(30, 0));
    }
    static LmBezierPoint node(const QPoint& aAnchor, const QPoint& aLeft = QPoint(),
                              const QPoint& aRight = QPoint())
    {
        LmBezierPoint points(true, false, LmBezierPoint::kSynchroDirection);
        points[0] = aAnchor + aLeft;
        points[1] = aAnchor;
        points[2] = aAnchor + aRight;
        return points;
    }
    QPoint left(int aNode) const { return theItem->thePoints.at(3 * aNode); }
    QPoint anchor(int aNode) const { return theItem->thePoints.at(3 * aNode + 1); }
    QPoint right(int aNode) const { return theItem->thePoints.at(3 * aNode + 2); }
    LmNodeState& state(int aNode) { return theItem->theNodeStates[aNode]; }
    QList<int> selected() const
    {
        QList<int> nodes;
        for (const int node : theItem->getSelectedNodes())
            nodes << node;
        return nodes;
    }
    bool isWhole() const { return theItem->thePoints.size() == 3 * theItem->theNodeStates.size(); }

    bool press(QPoint aPoint, Qt::KeyboardModifiers aModifiers = {}, Qt::MouseButton aButton = Qt::LeftButton)
    {
        Mouse event(QEvent::MouseButtonPress, aPoint, aModifiers, aButton);
        theItem->mousePressEvent(&event, aPoint);
        return event.isAccepted();
    }
    /// The event counts as accepted before, as the item has to say no by itself.
    bool move(QPoint& aPoint, Qt::KeyboardModifiers aModifiers)
    {
        Mouse event(QEvent::MouseMove, aPoint, aModifiers);
        event.accept();
        theItem->mouseMoveEvent(&event, aPoint);
        return event.isAccepted();
    }
    bool move(QPoint aPoint) { return move(aPoint, Qt::NoModifier); }
    void release(QPoint aPoint)
    {
        Mouse event(QEvent::MouseButtonRelease, aPoint);
        theItem->mouseReleaseEvent(&event, aPoint);
    }

    Q3Canvas theCanvas{1000, 800};
    LmCvRegion* theItem; // owned by the canvas
};

inline QPoint randomPoint(QRandomGenerator& aRandom, int aReach)
{
    const auto next = [&] { return int(qint64(aRandom.generate64() % (2 * quint64(aReach) + 1)) - aReach); };
    const int x = next();
    return QPoint(x, next());
}

#endif
