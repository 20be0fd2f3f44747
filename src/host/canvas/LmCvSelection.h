#ifndef LMCVSELECTION_H
#define LMCVSELECTION_H

#include <QList>
#include <QRect>

class LmCvEditor;
class LmCvObject;
class QColor;

/// The group of selected items, and what is done to all of them as one undo step.
class LmCvSelection
{
public:
    explicit LmCvSelection(LmCvEditor& aEditor);

    QList<LmCvObject*> items() const { return theItems; }
    bool contains(const LmCvObject* aItem) const;
    /// The selected items, or the current one where nothing is selected.
    QList<LmCvObject*> targets() const;

    void clear();
    void toggle(LmCvObject* aItem);
    /// Selects the visible items that lie in the rectangle; aAdd keeps those selected before.
    void selectIn(const QRect& aCanvasRect, bool aAdd);
    void selectAll();
    void forget(const LmCvObject* aItem);

    /// Moves the group on the canvas without a record yet; finishMove writes all records as one step.
    void moveBy(const QPoint& aDelta);
    void finishMove();
    void remove();
    void setColor(const QColor& aColor);
    void show(bool aShown);

private:
    void set(const QList<LmCvObject*>& aItems);

    LmCvEditor& theEditor;
    QList<LmCvObject*> theItems; // owned by the canvas
};

#endif
