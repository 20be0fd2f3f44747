#include "TestSamples.h"

#include <QFileInfo>

QString sharedSample(const QString& aName)
{
    const QFileInfo file(QStringLiteral(MEASURETOOLS_SHARED_SAMPLES "/") + aName);
    return file.isReadable() ? file.absoluteFilePath() : QString();
}

QImage madePicture(int aWidth, int aHeight)
{
    constexpr int kSquare = 16;
    QImage picture(aWidth, aHeight, QImage::Format_RGB32);
    for (int y = 0; y < aHeight; ++y)
        for (int x = 0; x < aWidth; ++x) {
            const bool dark = (x / kSquare + y / kSquare) % 2 == 0;
            picture.setPixel(x, y, qRgb(x * 255 / aWidth, y * 255 / aHeight, dark ? 64 : 192));
        }
    return picture;
}
