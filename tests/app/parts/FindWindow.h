#ifndef FINDWINDOW_H
#define FINDWINDOW_H

#include "RegionWindow.h"

/// A window in which things are counted and found: with the Counter tool, and with the automatic creation
/// that makes regions or marks. Canvas and image coordinates are the same here.
class FindWindow : public RegionWindow
{
public:
    static constexpr int kCounterType = 1107;

    using RegionWindow::RegionWindow;

    /// Opens a picture; the test is over where it can't be.
    void open(const QString& aPath);
    bool openSample(const QString& aName);

    LmCvManipulator* counterTool();
    void pickCounter();
    /// Clicks with the Counter on all the points.
    void count(const QList<QPoint>& aPoints);
    int counterCount();
    QPolygon marks(int aIdx);
    int markCount(int aIdx) { return int(marks(aIdx).size()) / 2; }
    /// What the marks on the canvas point to, in the order of their numbers.
    QList<QPoint> tips(int aIdx);
    /// The middle of a mark's label, for a click that meets it; the first mark is 0.
    QPoint labelOf(int aIdx, int aMark);
    LmCvObject* markAt(const QPoint& aCanvasPoint);

    QToolButton* autoButton();
    /// Takes the automatic creation with this entry of its menu after the other.
    void pickAuto(const QStringList& aEntries);
    /// A drag that passes over several pixels on its way, as a hand does.
    void slowDrag(const QPoint& aFrom, const QPoint& aTo);
};

#endif
