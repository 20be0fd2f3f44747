#include "SamplePictures.h"

#include "OutlineScan.h"
#include "TestSamples.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>

const std::array<MeasuredEllipse, 24> SamplePictures::kCoins{{
    {44.6, 54.7, 22.2, 19.4},   {100.6, 56.5, 19.4, 17.3},  {155.5, 50.9, 23.5, 22.7},
    {216.1, 51.5, 24.1, 21.7},  {276.0, 52.9, 20.8, 19.1},  {334.8, 44.0, 29.8, 28.0},
    {46.0, 124.7, 21.0, 20.6},  {103.1, 126.0, 18.9, 18.8}, {153.9, 127.3, 19.9, 17.5},
    {206.3, 124.8, 20.3, 19.8}, {270.7, 119.7, 25.3, 24.7}, {336.8, 124.8, 19.4, 19.8},
    {44.1, 197.1, 18.8, 20.1},  {102.3, 196.0, 21.8, 21.2}, {154.6, 198.0, 19.4, 19.2},
    {212.8, 193.3, 23.9, 23.5}, {273.9, 194.3, 22.8, 22.5}, {347.2, 187.4, 32.2, 31.8},
    {46.6, 260.4, 28.4, 27.6},  {114.2, 265.8, 21.7, 21.7}, {172.7, 261.9, 28.5, 25.9},
    {244.3, 264.0, 24.9, 24.0}, {301.1, 264.0, 25.4, 25.2}, {358.4, 268.3, 23.2, 21.1},
}};
const MeasuredEllipse SamplePictures::kCell{428.0, 374.3, 64.5, 64.2};
const MeasuredEllipse SamplePictures::kCoffee{286.5, 145.0, 84.0, 50.5};
const MeasuredEllipse SamplePictures::kCup{290.5, 113.0, 117.5, 95.0};

bool MeasuredEllipse::holds(int aColumn, int aRow) const
{
    const double x = (aColumn + 0.5 - theX) / theRadiusX;
    const double y = (aRow + 0.5 - theY) / theRadiusY;
    return x * x + y * y <= 1.0;
}

double MeasuredEllipse::area() const
{
    return 3.14159265 * theRadiusX * theRadiusY;
}

namespace {

void drawEllipse(QPainter& aPainter, const MeasuredEllipse& aEllipse, const QColor& aColor)
{
    aPainter.setBrush(aColor);
    aPainter.drawEllipse(QPointF(aEllipse.theX, aEllipse.theY), aEllipse.theRadiusX, aEllipse.theRadiusY);
}

QImage drawn(const QSize& aSize, const std::function<void(QPainter&)>& aDraw)
{
    QImage picture(aSize, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QLinearGradient ground(0, 0, aSize.width(), aSize.height());
    ground.setColorAt(0, QColor(80, 80, 80));
    ground.setColorAt(1, QColor(30, 30, 30));
    painter.fillRect(picture.rect(), ground);
    aDraw(painter);
    return picture;
}

/// What stands for a sample that isn't there; a null picture for an unknown name.
QImage standIn(const QString& aName)
{
    if (aName == QLatin1String("coins.png"))
        return drawn(QSize(384, 303), [](QPainter& aPainter) {
            for (const MeasuredEllipse& coin : SamplePictures::kCoins)
                drawEllipse(aPainter, coin, QColor(150, 150, 150));
        });
    if (aName == QLatin1String("cell.png"))
        return drawn(QSize(550, 660), [](QPainter& aPainter) {
            drawEllipse(aPainter, SamplePictures::kCell, QColor(150, 150, 150));
        });
    if (aName == QLatin1String("coffee.png"))
        return drawn(QSize(600, 400), [](QPainter& aPainter) {
            drawEllipse(aPainter, SamplePictures::kCup, QColor(240, 230, 220));
            drawEllipse(aPainter, SamplePictures::kCoffee, QColor(200, 130, 60));
        });
    return QImage();
}

} // namespace

std::unique_ptr<LmImage> SamplePictures::load(const QString& aName, int aChannels)
{
    const QString path = sharedSample(aName);
    const QImage picture =
        (path.isEmpty() ? standIn(aName) : QImage(path))
            .convertToFormat(aChannels == 1 ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    auto image = std::make_unique<LmImage>(picture.width(), picture.height(), aChannels, nullptr, 4);
    for (int y = 0; y < picture.height(); ++y)
        std::copy_n(picture.constScanLine(y), qsizetype(picture.width()) * aChannels, image->row(y));
    return image;
}

Overlap SamplePictures::overlap(const LmCVSequence& aOutline, const MeasuredEllipse& aEllipse,
                                const LmImage& aImage)
{
    int both = 0;
    OutlineScan scan(aOutline, aImage.width(), aImage.height());
    while (scan.nextRow())
        for (const OutlineScan::Run& run : scan.runs())
            for (int x = run.theFirst; x < run.theEnd; ++x)
                both += aEllipse.holds(x, scan.row()) ? 1 : 0;
    return {both / (aEllipse.area() + pixelCount(aOutline, aImage) - both), both / aEllipse.area()};
}

int SamplePictures::pixelCount(const LmCVSequence& aOutline, const LmImage& aImage)
{
    int pixels = 0;
    OutlineScan scan(aOutline, aImage.width(), aImage.height());
    while (scan.nextRow())
        for (const OutlineScan::Run& run : scan.runs())
            pixels += run.theEnd - run.theFirst;
    return pixels;
}
