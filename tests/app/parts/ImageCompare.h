#ifndef IMAGECOMPARE_H
#define IMAGECOMPARE_H

#include <QColor>
#include <QString>

class LmImage;
class QImage;

/// The image's colour at a pixel.
QColor pixel(const LmImage& aImage, int aX, int aY);

/// The first difference in colour, or an empty text.
QString difference(const LmImage& aImage, const QImage& aPicture);

#endif
