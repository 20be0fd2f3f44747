#ifndef TURNEDLABEL_H
#define TURNEDLABEL_H

#include <QBrush>
#include <QFont>
#include <QPen>
#include <QRect>
#include <QString>

class QPainter;

/// A label: a filled box with centred text that lies along a line or stands upright. All items draw
/// their labels through it.
struct TurnedLabel
{
    /// The text's bounding rectangle at the origin, in the pixels of the font.
    static QRect boxOf(const QString& aText, const QFont& aFont);
    /// Moves a box so that its centre is at the point and then its bottom edge aRaise above it.
    static void place(QRect& aBox, const QPoint& aCentre, int aRaise);
    /// The slope of a line in degrees from -90 to 90, so that text along it never stands on its head; 0 for a
    /// point.
    static double angleOf(const QPoint& aStart, const QPoint& aEnd);

    /// Draws box and text, turned about the point, which keeps its place on the screen.
    void draw(QPainter& aPainter, const QPoint& aPivot, double aDegrees) const;
    /// Draws box and text where they are.
    void drawUpright(QPainter& aPainter) const;

    QRect theBox;
    QString theText;
    QFont theFont;
    QPen theOutlinePen;
    QBrush theFill;
    QPen theTextPen;

private:
    void paint(QPainter& aPainter) const;
    void drawBox(QPainter& aPainter) const;
};

#endif
