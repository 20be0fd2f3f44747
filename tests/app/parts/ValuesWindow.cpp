#include "ValuesWindow.h"

#include "AnimatedObjects.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "ValueChart.h"
#include "ValueTree.h"
#include "ValuesDock.h"

#include <QChart>
#include <QLabel>
#include <QPushButton>
#include <QValueAxis>
#include <QtTest>

#include <algorithm>

ValuesWindow::ValuesWindow()
{
    openPages(6);
    theIdx = AnimatedObjects::addDistance(
        bench(), {{0, QPoint(100, 100), QPoint(200, 100)}, {5, QPoint(100, 100), QPoint(300, 100)}});
    editor().setCurrentTrack(nullptr, false);
    key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
}

void ValuesWindow::settle()
{
    constexpr int kMostTurns = 5; // what is put off may put off something itself
    for (int i = 0; i < kMostTurns; ++i)
        QCoreApplication::processEvents();
}

ValuesDock& ValuesWindow::dock()
{
    return *window().findChild<ValuesDock*>();
}

ValueChart& ValuesWindow::chart()
{
    return *dock().findChild<ValueChart*>();
}

ValueTree& ValuesWindow::tree()
{
    return *dock().findChild<ValueTree*>();
}

QString ValuesWindow::sentence()
{
    return dock().findChild<QLabel*>(QStringLiteral("valuesSentence"))->text();
}

QPushButton* ValuesWindow::readButton()
{
    auto* button = dock().findChild<QPushButton*>(QStringLiteral("readPictures"));
    return button->isVisible() ? button : nullptr;
}

ValueKey ValuesWindow::valueOf(const QString& aName) const
{
    return {kDistanceType, theIdx, aName};
}

void ValuesWindow::check(const ValueKey& aKey)
{
    QTreeWidgetItem* item = tree().itemOf(aKey);
    if (!item) {
        QTest::qFail(qPrintable(QStringLiteral("there is no value ") + aKey.theName), __FILE__, __LINE__);
        return;
    }
    tree().scrollToItem(item);
    QStyleOptionViewItem option;
    option.initFrom(&tree());
    option.rect = tree().visualItemRect(item);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    const QRect box = tree().style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &tree());
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier, box.center());
    settle();
}

QStringList ValuesWindow::names()
{
    QStringList names;
    for (const Curve& curve : chart().curves())
        names << curve.theObject + QLatin1Char('/') + curve.theKey.theName;
    return names;
}

QList<double> ValuesWindow::values(int aCurve)
{
    const Curve curve = chart().curves().value(aCurve);
    QList<double> values;
    if (curve.theSeries)
        for (const ValueSample& sample : curve.theSeries->theSamples)
            values << sample.theValue;
    return values;
}

QStringList ValuesWindow::axisTitles()
{
    QStringList titles;
    const QList<QAbstractAxis*> axes = chart().chart()->axes(Qt::Vertical);
    for (const QAbstractAxis* axis : axes)
        titles << axis->titleText();
    std::sort(titles.begin(), titles.end());
    return titles;
}
