#include "InterestWindow.h"

#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "Media.h"

#include <QAction>
#include <QLabel>
#include <QLine>
#include <QStatusBar>

void InterestWindow::setRegion(const QRect& aCanvasRect)
{
    actions().theSetRegion->trigger();
    drag(aCanvasRect.topLeft(), aCanvasRect.bottomRight());
}

QRect InterestWindow::region()
{
    return bench().media().region();
}

QRect InterestWindow::place(const LmCvObject* aItem)
{
    return aItem->boundingRect().translated(kernel().origin());
}

QString InterestWindow::field(const char* aName)
{
    return window().statusBar()->findChild<QLabel*>(QLatin1String(aName))->text();
}

QLine InterestWindow::ends(int aIdx)
{
    // The record holds the middle and the way from there to the end.
    const QPoint middle = value(aIdx, QStringLiteral("pos")).toPoint();
    const QPoint way = value(aIdx, QStringLiteral("ep")).toPoint();
    return QLine(middle - way, middle + way);
}
