#include "LmCvCanvas.h"

#include "LmImage.h"

#include <QPainter>

namespace {

/// The mean of four pixels, channel by channel; two channels are added at once, since their sums fit in 16
/// bits.
QRgb meanOf(QRgb aFirst, QRgb aSecond, QRgb aThird, QRgb aFourth)
{
    constexpr quint32 kEven = 0x00ff00ff;
    constexpr quint32 kHalf = 0x00020002;
    const quint32 low = (aFirst & kEven) + (aSecond & kEven) + (aThird & kEven) + (aFourth & kEven) + kHalf;
    const quint32 high = ((aFirst >> 8) & kEven) + ((aSecond >> 8) & kEven) + ((aThird >> 8) & kEven) +
                         ((aFourth >> 8) & kEven) + kHalf;
    return ((low >> 2) & kEven) | (((high >> 2) & kEven) << 8);
}

/// Half the size, rounded up. The last pixel of an odd row or column stands for its missing neighbour.
QImage halved(const QImage& aImage)
{
    QImage half((aImage.width() + 1) / 2, (aImage.height() + 1) / 2, aImage.format());
    for (int y = 0; y < half.height(); ++y) {
        const auto* upper = reinterpret_cast<const QRgb*>(aImage.constScanLine(2 * y));
        const auto* lower =
            reinterpret_cast<const QRgb*>(aImage.constScanLine(qMin(2 * y + 1, aImage.height() - 1)));
        auto* out = reinterpret_cast<QRgb*>(half.scanLine(y));
        for (int x = 0; x < half.width(); ++x) {
            const int right = qMin(2 * x + 1, aImage.width() - 1);
            out[x] = meanOf(upper[2 * x], upper[right], lower[2 * x], lower[right]);
        }
    }
    return half;
}

/// The region of interest in one of the two formats that are painted fastest and that have 32 bits per pixel.
QImage toPicture(const LmImage& aImage)
{
    const QRect roi = aImage.qRoi().intersected(QRect(QPoint(0, 0), aImage.size()));
    if (roi.isEmpty())
        return QImage();
    const QImage::Format source = aImage.channels() == 1   ? QImage::Format_Grayscale8
                                  : aImage.channels() == 3 ? QImage::Format_RGB888
                                                           : QImage::Format_RGBA8888;
    const uchar* first = aImage.row(roi.y()) + qsizetype(roi.x()) * aImage.channels();
    const QImage view(first, roi.width(), roi.height(), aImage.bytesPerLine(), source);
    return view.convertToFormat(aImage.channels() == 4 ? QImage::Format_ARGB32_Premultiplied
                                                       : QImage::Format_RGB32);
}

/// What shows through transparent parts: squares of a fixed size on the screen.
QBrush checkerboard(double aScale)
{
    constexpr int kSquare = 8;
    QImage tile(2 * kSquare, 2 * kSquare, QImage::Format_RGB32);
    tile.fill(QColor(Qt::white));
    QPainter painter(&tile);
    painter.fillRect(0, 0, kSquare, kSquare, QColor(Qt::lightGray));
    painter.fillRect(kSquare, kSquare, kSquare, kSquare, QColor(Qt::lightGray));
    painter.end();
    QBrush brush(tile);
    brush.setTransform(QTransform::fromScale(1.0 / aScale, 1.0 / aScale));
    return brush;
}

} // namespace

LmCvCanvas::LmCvCanvas(QObject* aParent) : Q3Canvas(aParent) {}

LmCvCanvas::~LmCvCanvas() = default;

void LmCvCanvas::showImage(const LmImage* aImage)
{
    theLevels.clear();
    const QImage picture = aImage ? toPicture(*aImage) : QImage();
    if (!picture.isNull())
        theLevels.append(picture);
    if (picture.size() != size())
        resize(picture.width(), picture.height());
    setAllChanged();
    update();
}

QImage LmCvCanvas::picture() const
{
    return theLevels.value(0);
}

const QImage& LmCvCanvas::levelFor(double aScale, int& aShift) const
{
    aShift = 0;
    for (double scale = 2.0 * aScale; scale <= 1.0; scale *= 2.0) {
        const QImage& finest = theLevels[aShift];
        if (finest.width() == 1 && finest.height() == 1)
            break;
        if (theLevels.size() == ++aShift)
            theLevels.append(halved(finest));
    }
    return theLevels[aShift];
}

void LmCvCanvas::drawBackground(QPainter& aPainter, const QRect& aCanvasRect)
{
    const QRect shown = aCanvasRect.intersected(rect());
    if (theLevels.isEmpty() || shown != aCanvasRect)
        Q3Canvas::drawBackground(aPainter, aCanvasRect);
    if (theLevels.isEmpty() || shown.isEmpty())
        return;

    const double scale = aPainter.deviceTransform().m11();
    int shift = 0;
    const QImage& level = levelFor(scale, shift);
    // Whole pixels of the level and two more on each side, so that smoothing gives a part the same pixels as
    // the whole.
    const int side = 1 << shift;
    const QRect source = QRect(QPoint(shown.left() / side, shown.top() / side),
                               QPoint(shown.right() / side, shown.bottom() / side))
                             .adjusted(-2, -2, 2, 2)
                             .intersected(level.rect());
    const QRect target(source.topLeft() * side, source.size() * side);

    aPainter.save();
    aPainter.setClipRect(shown, Qt::IntersectClip);
    if (level.hasAlphaChannel())
        aPainter.fillRect(shown, checkerboard(scale));
    aPainter.setRenderHint(QPainter::SmoothPixmapTransform, scale < 1.0);
    aPainter.drawImage(target, level, source);
    aPainter.restore();
}
