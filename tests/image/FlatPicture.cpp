#include "FlatPicture.h"

#include "OutlineScan.h"

namespace {

using FlatPicture::Mask;
using FlatPicture::Places;

constexpr unsigned char kGround[] = {90, 120, 60, 255};
constexpr unsigned char kThing[] = {180, 40, 200, 0};

/// A slow flood of the places that a test holds for, one by one.
Mask flood(const LmImage& aImage, const QRect& aRegion, QPoint aSeed, const Places& aIsIn)
{
    Mask mask(size_t(aImage.theImageSize), false);
    std::vector<QPoint> next{aSeed};
    while (!next.empty()) {
        const QPoint at = next.back();
        next.pop_back();
        if (!aRegion.contains(at) || !aIsIn(at.x(), at.y()) || mask[size_t(at.y() * aImage.width() + at.x())])
            continue;
        mask[size_t(at.y() * aImage.width() + at.x())] = true;
        for (const QPoint& step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
            next.push_back(at + step);
    }
    return mask;
}

} // namespace

std::unique_ptr<LmImage> FlatPicture::draw(const QSize& aSize, int aChannels, const Places& aIsThing)
{
    auto image = std::make_unique<LmImage>(aSize.width(), aSize.height(), aChannels, nullptr, 4);
    for (int y = 0; y < aSize.height(); ++y)
        for (int x = 0; x < aSize.width(); ++x)
            for (int channel = 0; channel < aChannels; ++channel)
                image->row(y)[x * aChannels + channel] = channel == 3
                                                             ? static_cast<unsigned char>(x * 7 + y * 13)
                                                             : (aIsThing(x, y) ? kThing : kGround)[channel];
    return image;
}

FlatPicture::Mask FlatPicture::pixelsOf(const LmCVSequence& aOutline, const LmImage& aImage)
{
    Mask mask(size_t(aImage.theImageSize), false);
    OutlineScan scan(aOutline, aImage.width(), aImage.height());
    while (scan.nextRow())
        for (const OutlineScan::Run& run : scan.runs())
            for (int x = run.theFirst; x < run.theEnd; ++x)
                mask[size_t(scan.row() * aImage.width() + x)] = true;
    return mask;
}

FlatPicture::Mask FlatPicture::filledFlood(const LmImage& aImage, QPoint aSeed, const Places& aIsIn)
{
    const QRect region = aImage.qRoi();
    Mask area = flood(aImage, region, aSeed, aIsIn);
    Mask outside(area.size(), false);
    const auto isOut = [&](int aX, int aY) { return !area[size_t(aY * aImage.width() + aX)]; };
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x) {
            const bool border =
                x == region.left() || x == region.right() || y == region.top() || y == region.bottom();
            if (!border || !isOut(x, y) || outside[size_t(y * aImage.width() + x)])
                continue;
            const Mask part = flood(aImage, region, QPoint(x, y), isOut);
            for (size_t i = 0; i < part.size(); ++i)
                outside[i] = outside[i] || part[i];
        }
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x)
            area[size_t(y * aImage.width() + x)] = !outside[size_t(y * aImage.width() + x)];
    return area;
}
