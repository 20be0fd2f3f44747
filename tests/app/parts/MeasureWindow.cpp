#include "MeasureWindow.h"

#include "Drawn.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "PopupAnswer.h"
#include "Q3Table.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QToolButton>
#include <QWindow>
#include <QtTest>

MeasureWindow::MeasureWindow()
{
    calibrate();
}

void MeasureWindow::calibrate()
{
    kernel().setCalibration(QStringLiteral("ruler"), LmCalibData{40.0, QStringLiteral("mm")});
    kernel().setCurrentCalibration(QStringLiteral("ruler"));
}

LmCvManipulator& MeasureWindow::tool()
{
    for (LmCvManipulator* tool : bench().tools())
        if (tool->inherits("LmCvManipMeasure"))
            return *tool;
    qFatal("there is no measurement tool");
}

QDockWidget& MeasureWindow::dock()
{
    auto* found = window().findChild<QDockWidget*>(QStringLiteral("Measurements"));
    if (!found)
        qFatal("there is no measurement dock");
    return *found;
}

Q3Table& MeasureWindow::table()
{
    return *dock().findChild<Q3Table*>(QStringLiteral("theTable"));
}

QString MeasureWindow::rowKey(int aRow)
{
    return table().verticalHeader()->label(aRow);
}

int MeasureWindow::rowOf(const QString& aKey)
{
    for (int row = 0; row < table().numRows(); ++row)
        if (rowKey(row) == aKey)
            return row;
    return -1;
}

QPoint MeasureWindow::cellPlace(int aRow, int aPosition)
{
    QCoreApplication::processEvents(); // a layout may be under way
    const int section = table().horizontalHeader()->mapToSection(aPosition);
    const QModelIndex cell = table().model()->index(aRow, section);
    table().scrollTo(cell);
    return table().visualRect(cell).center();
}

QString MeasureWindow::placeText(int aRow)
{
    const QPoint place = table().clipper()->mapToGlobal(cellPlace(aRow));
    return QStringLiteral("%1,%2").arg(place.x()).arg(place.y());
}

void MeasureWindow::addThree()
{
    for (int i = 1; i <= 3; ++i)
        addDistance(bench(), QPoint(20, 50 * i), QPoint(120, 50 * i));
    table().selectRow(1);
    QCOMPARE(table().currentRow(), 1);
}

QColor MeasureWindow::color(int aDistance)
{
    return value(aDistance, QStringLiteral("col")).value<QColor>();
}

bool MeasureWindow::isShown(int aDistance)
{
    return value(aDistance, QStringLiteral("vis")).toBool() &&
           distanceTool()->getCvObject(aDistance)->isVisible();
}

QStringList MeasureWindow::menuEntries(int aRow)
{
    QStringList entries;
    const PopupAnswer answer({PopupAnswer::note(entries)});
    rightPress(aRow);
    if (!answer.isDone())
        QTest::qFail("no menu opened", __FILE__, __LINE__);
    return entries;
}

void MeasureWindow::rightPress(int aRow)
{
    const QPoint place = cellPlace(aRow);
    QWindow* handle = window().windowHandle();
    const QPoint inWindow = table().clipper()->mapTo(&window(), place);
    QTest::mousePress(handle, Qt::RightButton, {}, inWindow);
    QTest::mouseRelease(handle, Qt::RightButton, {}, inWindow);
}

void MeasureWindow::askForMenu(int aRow)
{
    const QPoint place = cellPlace(aRow);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, table().clipper()->mapToGlobal(place));
    QApplication::sendEvent(table().clipper(), &event);
}

void MeasureWindow::clickExport()
{
    QTest::mouseClick(dock().findChild<QToolButton*>(QStringLiteral("theTbExport")), Qt::LeftButton);
}

QByteArray MeasureWindow::exportHead(const QByteArray& aUnit)
{
    return "Media file:\t" + picturePath().toUtf8() + "\nBase measurement unit:" + aUnit + "\n\n";
}
