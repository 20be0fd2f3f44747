#ifndef VALUETREE_H
#define VALUETREE_H

#include "AnimatedValues.h"

#include <QSet>
#include <QTreeWidget>

/// The animated objects and their values; those that are checked are shown as curves. One value of the
/// current object is checked by itself for as long as the object is current, unless the user decides about
/// it.
class ValueTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ValueTree(QWidget* aParent);

    /// Builds the tree anew only where it has become another one. What is checked and open stays so, also for
    /// an object that is gone for a while.
    void setObjects(const QList<ObjectValues>& aObjects);
    /// Forgets all that is checked.
    void clearChecks();
    /// The value of the current object; a key without a name for none.
    void follow(const ValueKey& aKey);
    /// In the order of the tree.
    QList<ValueKey> checked() const;
    /// Checks or clears as a click does.
    void setChecked(const ValueKey& aKey, bool aChecked);
    /// The row of a value, null without one.
    QTreeWidgetItem* itemOf(const ValueKey& aKey) const { return theItems.value(aKey); }
    /// Colors of the curves, for the same keys.
    void setColors(const QList<ValueKey>& aKeys, const QList<QColor>& aColors);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has checked or cleared a value.
    void toggled(const ValueKey& aKey, bool aChecked);

private:
    void build();
    void addObject(const ObjectValues& aObject, bool aOpen);
    void applyChecks();
    void itemTouched(QTreeWidgetItem* aItem);

    QList<ObjectValues> theObjects;
    QHash<ValueKey, QTreeWidgetItem*> theItems; // owned by the tree
    QSet<ValueKey> theChecked;
    ValueKey theCurrent;
    bool theByItself = false; // theCurrent was checked by itself
    bool theFilling = false;
};

#endif
