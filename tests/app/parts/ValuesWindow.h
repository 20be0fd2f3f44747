#ifndef VALUESWINDOW_H
#define VALUESWINDOW_H

#include "ValueSeries.h"
#include "WindowFixture.h"

#include <QStringList>

class QPushButton;
class ValueChart;
class ValueTree;
class ValuesDock;

/// A window with the dock of the values over time and six pages, on which the length of a distance goes from
/// 100 to 200 pixels.
class ValuesWindow : public WindowFixture
{
public:
    ValuesWindow();

    /// Lets everything be done that was put off.
    static void settle();
    ValuesDock& dock();
    ValueChart& chart();
    ValueTree& tree();
    /// What stands in the place of the chart.
    QString sentence();
    /// Null while no pictures have to be read.
    QPushButton* readButton();

    ValueKey valueOf(const QString& aName) const;
    /// Clicks the box of a value.
    void check(const QString& aName) { check(valueOf(aName)); }
    void check(const ValueKey& aKey);
    /// The shown curves, such as "Distance 1/DX".
    QStringList names();
    QList<double> values(int aCurve = 0);
    /// Sorted.
    QStringList axisTitles();

    int theIdx = 0; // of the distance
};

#endif
