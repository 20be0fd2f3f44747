#include "PictureChecks.h"

#include "LmImage.h"
#include "PictureFile.h"

#include <QImage>

std::unique_ptr<LmImage> openedImage(const QString& aPath)
{
    QString error;
    const auto file = PictureFile::open(aPath, error);
    auto image = file ? file->readFrame(0, error) : nullptr;
    if (!image)
        qWarning("%s", qPrintable(error));
    return image;
}

QColor pixel(const LmImage& aImage, int aX, int aY)
{
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;
    aImage.getDataAt(aX, aY, red, green, blue, 0);
    return QColor(red, green, blue);
}

QString difference(const LmImage& aImage, const QImage& aPicture)
{
    if (aImage.size() != aPicture.size())
        return QStringLiteral("size");
    for (int y = 0; y < aPicture.height(); ++y)
        for (int x = 0; x < aPicture.width(); ++x)
            if (pixel(aImage, x, y).rgb() != (aPicture.pixel(x, y) | 0xff000000))
                return QStringLiteral("at %1, %2").arg(x).arg(y);
    return QString();
}
