#include "LmKsMeasureWidget.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QTabBar>

namespace {

/// A sheet of which an arrow leads away, in the blue of the tool icons.
QPixmap exportPictogram()
{
    constexpr int kSize = 20;
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x77, 0x81, 0x8d), 1.5));
    painter.drawPolyline(QPolygonF({{12.0, 3.0}, {3.0, 3.0}, {3.0, 17.0}, {14.0, 17.0}, {14.0, 14.0}}));
    painter.drawLine(QPointF(6.0, 7.0), QPointF(11.0, 7.0));
    painter.setPen(QPen(QColor(0x2b, 0x84, 0xdc), 2.0));
    painter.drawLine(QPointF(7.0, 11.0), QPointF(18.0, 11.0));
    painter.drawPolyline(QPolygonF({{15.0, 7.5}, {18.5, 11.0}, {15.0, 14.5}}));
    return pixmap;
}

} // namespace

LmKsMeasureWidget::LmKsMeasureWidget(QWidget* aParent, const char* aName, Qt::WindowFlags aFlags)
    : QWidget(aParent, aFlags)
{
    if (aName)
        setObjectName(QLatin1String(aName));
    setupUi(this);
    theTbExport->setIcon(exportPictogram());
    theTabType->tabBar()->setAccessibleName(theTabType->accessibleName());
}

LmKsMeasureWidget::~LmKsMeasureWidget() = default;

void LmKsMeasureWidget::contextMenuEvent(QContextMenuEvent* aEvent)
{
    const QWidget* clipper = theTable->clipper();
    const QRect cells(QPoint(0, 0), clipper->size());
    if (cells.contains(clipper->mapFromGlobal(aEvent->globalPos())) && theTable->numRows() != 0)
        Q_EMIT signalContextMenu(aEvent->globalPos(), theTable->currentRow());
}
