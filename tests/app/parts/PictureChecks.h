#ifndef PICTURECHECKS_H
#define PICTURECHECKS_H

#include <QColor>
#include <QString>

#include <memory>

class LmImage;
class QImage;

/// The first page of a picture file; null, with a warning, if it doesn't open.
std::unique_ptr<LmImage> openedImage(const QString& aPath);

/// The image's colour at a pixel.
QColor pixel(const LmImage& aImage, int aX, int aY);

/// The first difference in colour, or an empty text.
QString difference(const LmImage& aImage, const QImage& aPicture);

#endif
