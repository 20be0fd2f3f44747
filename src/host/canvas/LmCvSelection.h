#ifndef LMCVSELECTION_H
#define LMCVSELECTION_H

#include <QCoreApplication>
#include <QList>
#include <QRect>
#include <QSet>

#include <functional>

class LmCvEditor;
class LmCvObject;
class Q3CanvasItem;
class QColor;

/// The group of selected items, and what is done to all of them as one undo step.
class LmCvSelection
{
    Q_DECLARE_TR_FUNCTIONS(LmCvSelection)

public:
    explicit LmCvSelection(LmCvEditor& aEditor);

    QList<LmCvObject*> items() const { return theItems; }
    bool contains(const LmCvObject* aItem) const;
    /// The selected items, or the current one where nothing is selected.
    QList<LmCvObject*> targets() const;

    void clear();
    void toggle(LmCvObject* aItem);
    /// Those of the items that are in the group leave it, as one change.
    void leave(const QSet<const LmCvObject*>& aItems);
    /// Selects the visible items that lie in the rectangle; aAdd keeps those selected before.
    void selectIn(const QRect& aCanvasRect, bool aAdd);
    void selectAll();
    /// The item has gone and isn't touched any more.
    void forget(const Q3CanvasItem* aItem);

    /// Moves the group on the canvas without a record yet; finishMove writes all records as one step.
    void moveBy(const QPoint& aDelta);
    void finishMove();
    void remove();
    void setColor(const QColor& aColor);
    void show(bool aShown);
    /// Shows all hidden items, selected or not.
    void showAll();

private:
    void set(const QList<LmCvObject*>& aItems);
    /// Does it to all items of a tool; several make one entry in the undo list.
    void asOneStep(const QString& aText, QList<LmCvObject*> aItems,
                   const std::function<void(LmCvObject*)>& aStep);

    LmCvEditor& theEditor;
    QList<LmCvObject*> theItems;     // owned by the canvas, cleared when they go
    QList<LmCvObject*> theWaiting;   // for their turn in asOneStep, cleared when they go
    LmCvObject* theInTurn = nullptr; // the one whose turn it is; only compared
};

#endif
