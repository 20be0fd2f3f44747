#ifndef SCALEBAR_H
#define SCALEBAR_H

#include <QSize>
#include <QString>

class QPainter;

/// A bar of a round length that tells how large things in the picture are, with the length as text on a dark
/// plate that shows on every picture.
struct ScaleBar
{
    double theLength = 0.0; // in the unit: 1, 2 or 5 times a power of ten; 0 where no bar makes sense
    double thePixels = 0.0; // the same on what it is drawn on
    QString theText;

    /// The round length nearest to a fifth of the room, measured by their ratio. Nothing that isn't above 0
    /// and finite has a bar.
    static double roundLength(double aPixelsPerUnit, double aRoom);
    /// For the present picture and calibration: aZoom pixels to a pixel of the picture, and aRoom pixels to
    /// draw on. Without a calibration it counts picture pixels, at least one.
    static ScaleBar forPicture(double aZoom, double aRoom);

    bool isNull() const { return theLength <= 0.0; }
    bool operator==(const ScaleBar& aOther) const;
    /// The whole plate with letters of this height in pixels.
    QSize size(int aTextHeight) const;
    /// Draws the plate with its upper left corner at the painter's origin.
    void paint(QPainter& aPainter, int aTextHeight) const;
    /// Draws it in the lower left corner of a picture, at a size that fits the picture's; nothing where there
    /// is no room for it.
    static void paintInto(QPainter& aPainter, const QSize& aPicture);
};

#endif
