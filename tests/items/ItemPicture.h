#ifndef ITEMPICTURE_H
#define ITEMPICTURE_H

#include "LmCvObject.h"

#include <QImage>
#include <QPainter>

const QColor kBack(128, 128, 128);
const QColor kBlue(0, 0, 255);
const QColor kWhite(Qt::white);

/// What an item draws on a grey picture of 400 x 400 points.
inline QImage painted(LmCvObject& aItem, const QTransform& aView = QTransform(), int aDevicePixelRatio = 1)
{
    QImage picture(QSize(400, 400) * aDevicePixelRatio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(aDevicePixelRatio);
    picture.fill(kBack);
    QPainter painter(&picture);
    painter.setWorldTransform(aView);
    aItem.drawShape(painter);
    return picture;
}

inline int countOf(const QColor& aColor, const QImage& aPicture, const QRect& aWithin)
{
    int count = 0;
    for (int y = aWithin.top(); y <= aWithin.bottom(); ++y)
        for (int x = aWithin.left(); x <= aWithin.right(); ++x)
            count += aPicture.pixelColor(x, y) == aColor;
    return count;
}

/// How many pixels of the rectangle were drawn on.
inline int drawnIn(const QImage& aPicture, const QRect& aWithin)
{
    return aWithin.width() * aWithin.height() - countOf(kBack, aPicture, aWithin);
}

#endif
