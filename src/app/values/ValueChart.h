#ifndef VALUECHART_H
#define VALUECHART_H

#include "CurvePoints.h"
#include "ValueSeries.h"

#include <QChartView>
#include <QColor>
#include <QTimer>

class CurveMarks;
class Media;
class QLineSeries;
class QValueAxis;

/// A series as it is shown.
struct Curve
{
    ValueKey theKey;
    QString theObject; // such as "Distance 3"
    QColor theColor;
    ValueSeriesPtr theSeries;
};

/// Curves over time, or over frames where these have no times, with an axis for each unit. A line stands at
/// the present frame; a press goes to the frame there, the wheel zooms.
class ValueChart : public QChartView
{
    Q_OBJECT

public:
    ValueChart(const Media& aMedia, QWidget* aParent);

    void setCurves(const QList<Curve>& aCurves);
    const QList<Curve>& curves() const { return theCurves; }

    /// Where a sample stands, or a frame on the height of the plot's middle, on the viewport.
    QPoint placeOf(const Curve& aCurve, const ValueSample& aSample) const;
    QPoint placeOf(int aFrame) const;
    /// What the tool tip over the place tells; empty far from all curves.
    QString textAt(const QPoint& aPlace);

Q_SIGNALS:
    void frameWanted(int aFrame);

protected:
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* aEvent) override;
    void leaveEvent(QEvent* aEvent) override;
    void wheelEvent(QWheelEvent* aEvent) override;
    void keyPressEvent(QKeyEvent* aEvent) override;
    void changeEvent(QEvent* aEvent) override;

private:
    using Lines = QList<QList<QPointF>>;
    struct Hit
    {
        const Curve* theCurve = nullptr;
        const ValueSample* theSample = nullptr;
    };

    void mediaOpened();
    void frameShown(int aFrame);
    void showWhole();
    void zoom(double aFactor, double aMiddle);
    void moveTo(double aFirst);
    double wholeFirst() const { return xOf(0); }
    double wholeLast() const;

    void rebuild();
    void makeTimeAxis();
    QValueAxis* makeValueAxis(const QString& aUnit, Qt::Alignment aSide);
    void addLines(const Curve& aCurve, const Lines& aLines, QValueAxis& aAxis);
    QString axisTitle(const QString& aUnit) const;
    void applyPalette();
    void styleAxis(QValueAxis& aAxis) const;
    void placeMarks();
    void placeLine();
    void updateDescription();

    /// Seconds, or frames from 1 on.
    double xOf(int aFrame) const;
    int frameAt(const QPoint& aPlace) const;
    int frameNear(double aX) const;
    CurvePoints::Extent extent() const;
    QPointF chartPlace(const Curve& aCurve, const QPointF& aPoint) const;
    /// The nearest sample of each curve counts; the one that is nearest to the place is taken.
    Hit hitAt(const QPoint& aPlace) const;
    QString text(const Hit& aHit) const;
    void go(const QPoint& aPlace);

    const Media& theMedia;
    QList<Curve> theCurves;
    QList<Lines> theLines;                  // of the curves, as they are drawn
    QHash<QString, QLineSeries*> theScales; // by unit, an empty line that ties the plot to the unit's axis
    QValueAxis* theTimeAxis;                // owned by the chart
    CurveMarks* theMarks;                   // owned by the chart
    QTimer theRebuild;                      // after a change of the size
    QSize theBuiltFor;                      // size of the plot for which lines and axes were made
    double theFirst = 0.0;                  // what is shown of the time axis
    double theLast = 1.0;
    bool theDragging = false;
};

#endif
