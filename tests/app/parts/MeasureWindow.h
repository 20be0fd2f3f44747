#ifndef MEASUREWINDOW_H
#define MEASUREWINDOW_H

#include "WindowFixture.h"

#include <QColor>
#include <QStringList>

class QDockWidget;
class Q3Table;
class QToolButton;

/// A window whose measurement dock is used. Its picture is calibrated so that 10 pixels are a millimetre.
class MeasureWindow : public WindowFixture
{
public:
    MeasureWindow();

    /// Calibrates again, after another picture was opened.
    void calibrate();

    /// The tool that owns the dock.
    LmCvManipulator& tool();
    QDockWidget& dock();
    Q3Table& table();
    /// The text of the table's row heading.
    QString rowKey(int aRow);
    /// The row of an object, or -1.
    int rowOf(const QString& aKey);
    /// The middle of a cell on the table's clipper.
    QPoint cellPlace(int aRow, int aPosition = 0);

    /// The same on the screen, as "x,y".
    QString placeText(int aRow);

    /// Three distances of 100 pixels; the second one's row is current.
    void addThree();
    QColor color(int aDistance);
    /// Whether the distance is shown, by its record and on the canvas.
    bool isShown(int aDistance);

    /// The entries of the menu of a row, a separator as "---". The menu is closed by Esc.
    QStringList menuEntries(int aRow);
    /// A press of the right button in a cell, with the menu that the press asks for.
    void rightPress(int aRow);
    /// Asks for the menu at the place of a row, without a press.
    void askForMenu(int aRow);
    void clickExport();

    /// What the file of an export begins with, up to the line of headings.
    QByteArray exportHead(const QByteArray& aUnit = "mm");
};

#endif
