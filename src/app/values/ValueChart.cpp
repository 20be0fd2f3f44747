// The curves and axes of the chart; ValueChartEvents.cpp has what the mouse and the keys do.
#include "ValueChart.h"

#include "CurveMarks.h"
#include "FrameText.h"
#include "Media.h"
#include "ValueReport.h"

#include <QChart>
#include <QEvent>
#include <QLineSeries>
#include <QLocale>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kTickDistance = 90;   // pixels; more than the widest number
constexpr int kRowDistance = 40;    // pixels
constexpr double kTitlePart = 0.95; // of the plot's height, beside which a title stands
constexpr int kKeyframeDistance = 6;
constexpr QColor kPositionColor(0xd6, 0x33, 0x33); // as on the time line
constexpr double kLineWidth = 1.8;
constexpr double kGridPart = 0.2; // of the text's color in that of the grid

/// The smallest of 1, 2, 5, 10, ... with any power of ten that is at least this.
double niceStep(double aLeast)
{
    const double power = std::pow(10.0, std::floor(std::log10(aLeast)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= aLeast * (1.0 - 1e-9))
            return step * power;
    return 10.0 * power;
}

QColor mixed(const QColor& aGround, const QColor& aText, double aPart)
{
    const auto part = [aPart](float aOne, float aOther) { return aOne + (aOther - aOne) * float(aPart); };
    return QColor::fromRgbF(part(aGround.redF(), aText.redF()), part(aGround.greenF(), aText.greenF()),
                            part(aGround.blueF(), aText.blueF()));
}

} // namespace

ValueChart::ValueChart(const Media& aMedia, QWidget* aParent)
    : QChartView(aParent), theMedia(aMedia), theTimeAxis(new QValueAxis), theMarks(new CurveMarks(chart()))
{
    setObjectName(QStringLiteral("valueChart"));
    setAccessibleName(tr("Chart of the values over time"));
    viewport()->setAccessibleName(accessibleName()); // it takes the focus for the chart
    setFocusPolicy(Qt::StrongFocus);
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    chart()->legend()->hide();
    QLocale numbers = locale();
    numbers.setNumberOptions(QLocale::OmitGroupSeparator); // as frames are written everywhere else
    chart()->setLocale(numbers);
    chart()->setLocalizeNumbers(true);
    chart()->setBackgroundRoundness(0.0);
    chart()->setMargins(QMargins(4, 4, 4, 4));
    chart()->addAxis(theTimeAxis, Qt::AlignBottom);
    connect(chart(), &QChart::plotAreaChanged, this, [this](const QRectF& aArea) {
        placeMarks();
        if (aArea.size().toSize() != theBuiltFor)
            theRebuild.start(0);
    });
    theRebuild.setSingleShot(true);
    connect(&theRebuild, &QTimer::timeout, this, &ValueChart::rebuild);
    connect(&theMedia, &Media::opened, this, &ValueChart::mediaOpened);
    connect(&theMedia, &Media::frameCountChanged, this, &ValueChart::showWhole);
    connect(&theMedia, &Media::frameShown, this, &ValueChart::frameShown);
    applyPalette();
    mediaOpened();
}

void ValueChart::mediaOpened()
{
    theCurves.clear();
    showWhole();
}

/// A frame outside of the shown part brings the next part, as when a page is turned.
void ValueChart::frameShown(int aFrame)
{
    const double x = xOf(aFrame);
    if (x < theFirst || x > theLast)
        moveTo(x);
    placeLine();
    updateDescription();
}

double ValueChart::xOf(int aFrame) const
{
    return theMedia.times().isEmpty() ? aFrame + 1.0 : theMedia.times().at(aFrame);
}

double ValueChart::wholeLast() const
{
    return std::max(xOf(theMedia.frameCount() - 1), wholeFirst() + 1e-6);
}

void ValueChart::showWhole()
{
    theFirst = wholeFirst();
    theLast = wholeLast();
    rebuild();
}

void ValueChart::setCurves(const QList<Curve>& aCurves)
{
    theCurves = aCurves;
    rebuild();
}

CurvePoints::Extent ValueChart::extent() const
{
    return {[this](int aFrame) { return xOf(aFrame); }, theFirst, theLast,
            std::max(1, int(chart()->plotArea().width()))};
}

void ValueChart::rebuild()
{
    theRebuild.stop();
    theMarks->hideRing();
    theLines.clear();
    chart()->removeAllSeries();
    theScales.clear();
    const QList<QAbstractAxis*> axes = chart()->axes(Qt::Vertical);
    for (QAbstractAxis* axis : axes) {
        chart()->removeAxis(axis);
        delete axis;
    }
    makeTimeAxis();
    QHash<QString, QValueAxis*> valueAxes;
    for (const Curve& curve : std::as_const(theCurves)) {
        const QString unit = curve.theSeries->theUnit;
        if (!valueAxes.contains(unit))
            valueAxes.insert(unit,
                             makeValueAxis(unit, valueAxes.size() % 2 == 0 ? Qt::AlignLeft : Qt::AlignRight));
        theLines.append(CurvePoints::lines(*curve.theSeries, extent()));
        addLines(curve, theLines.last(), *valueAxes.value(unit));
    }
    theBuiltFor = chart()->plotArea().size().toSize();
    placeMarks();
    updateDescription();
}

void ValueChart::makeTimeAxis()
{
    const bool timed = !theMedia.times().isEmpty();
    const double room = std::max(1.0, chart()->plotArea().width() / kTickDistance);
    const double step = niceStep((theLast - theFirst) / room);
    theTimeAxis->setRange(theFirst, theLast);
    theTimeAxis->setTickType(QValueAxis::TicksDynamic);
    theTimeAxis->setTickAnchor(0.0);
    theTimeAxis->setTickInterval(timed ? step : std::max(1.0, step));
    theTimeAxis->setLabelFormat(
        timed ? QStringLiteral("%.%1f").arg(std::max(0, int(std::ceil(-std::log10(step) - 1e-9))))
              : QStringLiteral("%.0f"));
    theTimeAxis->setTitleText(timed ? tr("Time [s]") : tr("Frame"));
    styleAxis(*theTimeAxis);
}

QValueAxis* ValueChart::makeValueAxis(const QString& aUnit, Qt::Alignment aSide)
{
    double least = std::numeric_limits<double>::infinity();
    double greatest = -least;
    for (const Curve& curve : std::as_const(theCurves)) {
        if (curve.theSeries->theUnit != aUnit)
            continue;
        for (const ValueSample& sample : curve.theSeries->theSamples) {
            least = std::min(least, sample.theValue);
            greatest = std::max(greatest, sample.theValue);
        }
    }
    if (least > greatest)
        least = greatest = 0.0;
    if (greatest - least <= 1e-9 * std::max(std::abs(least), std::abs(greatest))) {
        const double room = least == 0.0 ? 1.0 : 0.05 * std::abs(least);
        least -= room;
        greatest += room;
    }
    const double step =
        niceStep((greatest - least) / std::max(1.0, chart()->plotArea().height() / kRowDistance));
    auto* axis = new QValueAxis;
    axis->setRange(std::floor(least / step) * step, std::ceil(greatest / step) * step);
    axis->setTickType(QValueAxis::TicksDynamic);
    axis->setTickAnchor(0.0);
    axis->setTickInterval(step);
    const int decimals = std::max(0, int(std::ceil(-std::log10(step) - 1e-9)));
    axis->setLabelFormat(decimals > 6 || greatest > 1e7 ? QStringLiteral("%.3g")
                                                        : QStringLiteral("%.%1f").arg(decimals));
    axis->setTitleText(axisTitle(aUnit));
    axis->setGridLineVisible(theScales.isEmpty()); // two grids over each other can't be read
    styleAxis(*axis);
    chart()->addAxis(axis, aSide);
    auto* scale = new QLineSeries;
    chart()->addSeries(scale);
    scale->attachAxis(theTimeAxis);
    scale->attachAxis(axis);
    theScales.insert(aUnit, scale);
    return axis;
}

/// As many names as the height has room for, and the unit in any case.
QString ValueChart::axisTitle(const QString& aUnit) const
{
    QStringList names;
    for (const Curve& curve : theCurves)
        if (curve.theSeries->theUnit == aUnit && !names.contains(curve.theKey.theName))
            names.append(curve.theKey.theName);
    const QString unit = aUnit.isEmpty() ? QString() : tr("[%1]").arg(aUnit);
    QString title = (names.join(QLatin1String(", ")) + QLatin1Char(' ') + unit).trimmed();
    const double room = kTitlePart * chart()->plotArea().height();
    while (fontMetrics().horizontalAdvance(title) > room && !names.isEmpty()) {
        names.removeLast();
        title = names.isEmpty() ? unit : names.join(QLatin1String(", ")) + QStringLiteral(", … ") + unit;
    }
    return title.toHtmlEscaped(); // the chart takes titles for HTML
}

void ValueChart::addLines(const Curve& aCurve, const Lines& aLines, QValueAxis& aAxis)
{
    for (const QList<QPointF>& line : aLines) {
        if (line.size() < 2)
            continue;
        auto* series = new QLineSeries;
        series->setPen(QPen(aCurve.theColor, kLineWidth));
        series->replace(line);
        chart()->addSeries(series);
        series->attachAxis(theTimeAxis);
        series->attachAxis(&aAxis);
    }
}

QPointF ValueChart::chartPlace(const Curve& aCurve, const QPointF& aPoint) const
{
    return chart()->mapToPosition(aPoint, theScales.value(aCurve.theSeries->theUnit));
}

void ValueChart::placeMarks()
{
    QList<CurveMarks::Marks> all;
    for (qsizetype i = 0; i < theLines.size(); ++i) { // while axes are made there aren't yet lines of all
        const Curve& curve = theCurves[i];
        CurveMarks::Marks marks{curve.theColor, {}, {}};
        const QList<QPointF> keyframes =
            CurvePoints::keyframes(*curve.theSeries, extent(), kKeyframeDistance);
        for (const QPointF& point : keyframes)
            marks.theKeyframes.append(chartPlace(curve, point));
        for (const QList<QPointF>& line : std::as_const(theLines[i]))
            if (line.size() == 1 && line.first().x() >= theFirst && line.first().x() <= theLast)
                marks.theDots.append(chartPlace(curve, line.first()));
        all.append(marks);
    }
    theMarks->setArea(chart()->plotArea());
    theMarks->setMarks(all);
    placeLine();
}

void ValueChart::placeLine()
{
    const QRectF area = chart()->plotArea();
    const double part = (xOf(theMedia.frame()) - theFirst) / (theLast - theFirst);
    theMarks->setLine(area.left() + part * area.width(), kPositionColor);
}

void ValueChart::changeEvent(QEvent* aEvent)
{
    QChartView::changeEvent(aEvent);
    if (aEvent->type() == QEvent::PaletteChange || aEvent->type() == QEvent::FontChange) {
        applyPalette();
        rebuild();
    }
}

void ValueChart::applyPalette()
{
    const QColor ground = palette().color(QPalette::Base);
    setBackgroundBrush(ground);
    chart()->setBackgroundBrush(ground);
    chart()->setBackgroundPen(Qt::NoPen);
}

void ValueChart::styleAxis(QValueAxis& aAxis) const
{
    const QColor text = palette().color(QPalette::Text);
    const QColor grid = mixed(palette().color(QPalette::Base), text, kGridPart);
    aAxis.setLabelsBrush(text);
    aAxis.setTitleBrush(text);
    aAxis.setLabelsFont(font());
    aAxis.setTitleFont(font());
    aAxis.setLinePen(QPen(grid, 1.0));
    aAxis.setGridLinePen(QPen(grid, 1.0));
}
