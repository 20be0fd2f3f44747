#include "ValueTree.h"

#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kManyObjects = 12; // so many still fit into the dock when they are open
constexpr int kWidth = 38;       // characters

QIcon swatch(const QColor& aColor, int aSide, qreal aRatio)
{
    QPixmap pixmap(QSize(aSide, aSide) * aRatio);
    pixmap.setDevicePixelRatio(aRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(QPen(aColor, 3.0));
    painter.drawLine(0, aSide / 2, aSide, aSide / 2);
    return QIcon(pixmap);
}

} // namespace

ValueTree::ValueTree(QWidget* aParent) : QTreeWidget(aParent)
{
    setObjectName(QStringLiteral("valueTree"));
    setAccessibleName(tr("Values of the animated objects"));
    setToolTip(tr("Check a value to see its curve"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(fontMetrics().height());
    connect(this, &QTreeWidget::itemChanged, this, &ValueTree::itemTouched);
}

QSize ValueTree::sizeHint() const
{
    return QSize(kWidth * fontMetrics().averageCharWidth(), QTreeWidget::sizeHint().height());
}

void ValueTree::setObjects(const QList<ObjectValues>& aObjects)
{
    if (aObjects == theObjects)
        return;
    theObjects = aObjects;
    build();
}

void ValueTree::build()
{
    QSet<QString> known;
    QSet<QString> closed;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        known.insert(topLevelItem(i)->text(0));
        if (!topLevelItem(i)->isExpanded())
            closed.insert(topLevelItem(i)->text(0));
    }
    const QString current = currentItem() && currentItem()->parent() ? currentItem()->text(0) : QString();
    const QString parent = currentItem() && currentItem()->parent() ? currentItem()->parent()->text(0)
                           : currentItem()                          ? currentItem()->text(0)
                                                                    : QString();
    theFilling = true;
    clear();
    theItems.clear();
    for (const ObjectValues& object : std::as_const(theObjects)) {
        const QString text = AnimatedValues::objectText({object.theType, object.theIdx, QString()});
        addObject(object, known.contains(text) ? !closed.contains(text) : theObjects.size() <= kManyObjects);
        QTreeWidgetItem* top = topLevelItem(topLevelItemCount() - 1);
        for (int i = 0; text == parent && i < top->childCount(); ++i)
            if (top->child(i)->text(0) == current)
                setCurrentItem(top->child(i));
    }
    theFilling = false;
    applyChecks();
}

void ValueTree::addObject(const ObjectValues& aObject, bool aOpen)
{
    auto* top =
        new QTreeWidgetItem(this, {AnimatedValues::objectText({aObject.theType, aObject.theIdx, QString()})});
    top->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    for (const QString& name : aObject.theNames) {
        auto* item = new QTreeWidgetItem(top, {name});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                       Qt::ItemNeverHasChildren);
        theItems.insert({aObject.theType, aObject.theIdx, name}, item);
    }
    top->setExpanded(aOpen);
}

void ValueTree::applyChecks()
{
    theFilling = true;
    for (auto it = theItems.cbegin(); it != theItems.cend(); ++it)
        it.value()->setCheckState(0, theChecked.contains(it.key()) ? Qt::Checked : Qt::Unchecked);
    theFilling = false;
}

void ValueTree::clearChecks()
{
    theChecked.clear();
    theCurrent = ValueKey();
    theByItself = false;
    applyChecks();
}

void ValueTree::follow(const ValueKey& aKey)
{
    if (aKey == theCurrent)
        return;
    if (std::exchange(theByItself, false))
        theChecked.remove(theCurrent);
    const bool other = aKey.theType != theCurrent.theType || aKey.theIdx != theCurrent.theIdx;
    theCurrent = aKey;
    // An object of which the user has chosen values shows those.
    const bool chosen = std::any_of(theChecked.cbegin(), theChecked.cend(), [&](const ValueKey& aChecked) {
        return aChecked.theType == aKey.theType && aChecked.theIdx == aKey.theIdx;
    });
    if (!aKey.theName.isEmpty() && !chosen) {
        theByItself = true;
        theChecked.insert(aKey);
    }
    applyChecks();
    if (QTreeWidgetItem* item = other ? itemOf(aKey) : nullptr)
        scrollToItem(item->parent());
}

QList<ValueKey> ValueTree::checked() const
{
    QList<ValueKey> keys;
    for (const ValueKey& key : AnimatedValues::keys(theObjects))
        if (theChecked.contains(key))
            keys.append(key);
    return keys;
}

void ValueTree::setChecked(const ValueKey& aKey, bool aChecked)
{
    if (QTreeWidgetItem* item = itemOf(aKey))
        item->setCheckState(0, aChecked ? Qt::Checked : Qt::Unchecked);
}

void ValueTree::itemTouched(QTreeWidgetItem* aItem)
{
    if (theFilling)
        return;
    const ValueKey key = theItems.key(aItem);
    const bool isChecked = aItem->checkState(0) == Qt::Checked;
    if (key.theName.isEmpty() || isChecked == theChecked.contains(key))
        return;
    if (isChecked)
        theChecked.insert(key);
    else
        theChecked.remove(key);
    if (key.theType == theCurrent.theType && key.theIdx == theCurrent.theIdx)
        theByItself = false;
    Q_EMIT toggled(key, isChecked);
}

void ValueTree::setColors(const QList<ValueKey>& aKeys, const QList<QColor>& aColors)
{
    const int side = fontMetrics().height();
    theFilling = true;
    for (QTreeWidgetItem* item : std::as_const(theItems))
        item->setIcon(0, swatch(Qt::transparent, side, devicePixelRatioF())); // so that all texts begin alike
    for (qsizetype i = 0; i < aKeys.size(); ++i)
        if (QTreeWidgetItem* item = itemOf(aKeys[i]))
            item->setIcon(0, swatch(aColors.value(i), side, devicePixelRatioF()));
    theFilling = false;
}
