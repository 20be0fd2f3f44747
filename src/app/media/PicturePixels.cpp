#include "PicturePixels.h"

#include "LmImage.h"

#include <QImage>
#include <QRgba64>

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned int kRowAlign = 4;

bool hasGrayPalette(const QImage& aPicture)
{
    const QList<QRgb> colors = aPicture.colorTable();
    return !colors.isEmpty() && std::all_of(colors.begin(), colors.end(), [](QRgb aColor) {
        return qAlpha(aColor) == 255 && qRed(aColor) == qGreen(aColor) && qRed(aColor) == qBlue(aColor);
    });
}

std::unique_ptr<LmImage> makeImage(const QImage& aPicture, int aChannels)
{
    return std::make_unique<LmImage>(aPicture.width(), aPicture.height(), aChannels, nullptr, kRowAlign);
}

std::unique_ptr<LmImage> copyRows(const QImage& aPicture, int aChannels)
{
    if (aPicture.isNull())
        return nullptr;
    auto image = makeImage(aPicture, aChannels);
    for (int y = 0; y < image->height(); ++y)
        std::memcpy(image->row(y), aPicture.constScanLine(y), size_t(image->width()) * size_t(aChannels));
    return image;
}

std::unique_ptr<LmImage> fromPalette(const QImage& aPicture)
{
    if (hasGrayPalette(aPicture))
        return copyRows(aPicture.convertToFormat(QImage::Format_Grayscale8), 1);
    if (aPicture.hasAlphaChannel())
        return copyRows(aPicture.convertToFormat(QImage::Format_RGBA8888), 4);
    return copyRows(aPicture.convertToFormat(QImage::Format_RGB888), 3);
}

std::unique_ptr<LmImage> fromGray16(const QImage& aPicture)
{
    auto image = makeImage(aPicture, 1);
    for (int y = 0; y < image->height(); ++y) {
        const auto* source = reinterpret_cast<const quint16*>(aPicture.constScanLine(y));
        std::transform(source, source + image->width(), image->row(y),
                       [](quint16 aValue) { return static_cast<unsigned char>(aValue >> 8); });
    }
    return image;
}

std::unique_ptr<LmImage> fromColor16(const QImage& aPicture)
{
    const bool hasAlpha = aPicture.hasAlphaChannel();
    auto image = makeImage(aPicture, hasAlpha ? 4 : 3);
    for (int y = 0; y < image->height(); ++y) {
        const auto* source = reinterpret_cast<const QRgba64*>(aPicture.constScanLine(y));
        unsigned char* target = image->row(y);
        for (int x = 0; x < image->width(); ++x) {
            const QRgba64 color = source[x];
            *target++ = static_cast<unsigned char>(color.red() >> 8);
            *target++ = static_cast<unsigned char>(color.green() >> 8);
            *target++ = static_cast<unsigned char>(color.blue() >> 8);
            if (hasAlpha)
                *target++ = static_cast<unsigned char>(color.alpha() >> 8);
        }
    }
    return image;
}

} // namespace

std::unique_ptr<LmImage> PicturePixels::toLmImage(const QImage& aPicture)
{
    if (aPicture.isNull())
        return nullptr;
    switch (aPicture.format()) {
    case QImage::Format_Grayscale8:
        return copyRows(aPicture, 1);
    case QImage::Format_Grayscale16:
        return fromGray16(aPicture);
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
    case QImage::Format_Indexed8:
        return fromPalette(aPicture);
    case QImage::Format_RGBX64:
    case QImage::Format_RGBA64:
        return fromColor16(aPicture);
    case QImage::Format_RGBA64_Premultiplied:
        return fromColor16(aPicture.convertToFormat(QImage::Format_RGBA64));
    default: // the many 8-bit layouts
        if (aPicture.hasAlphaChannel())
            return copyRows(aPicture.convertToFormat(QImage::Format_RGBA8888), 4);
        return copyRows(aPicture.convertToFormat(QImage::Format_RGB888), 3);
    }
}

std::unique_ptr<LmImage> PicturePixels::empty(const QSize& aSize, int aChannels)
{
    // Light enough to be seen as an empty sheet, dark enough for white label text.
    constexpr int kGray = 0x80;
    auto image = std::make_unique<LmImage>(aSize.width(), aSize.height(), aChannels, nullptr, kRowAlign);
    for (int y = 0; y < image->height(); ++y)
        std::memset(image->row(y), kGray, size_t(image->width()) * size_t(aChannels));
    return image;
}

std::unique_ptr<LmImage> PicturePixels::fitted(const LmImage& aImage, const QSize& aSize)
{
    auto image = empty(aSize, aImage.channels());
    const QSize shared = aSize.boundedTo(aImage.size());
    for (int y = 0; y < shared.height(); ++y)
        std::memcpy(image->row(y), aImage.row(y), size_t(shared.width()) * size_t(aImage.channels()));
    return image;
}
