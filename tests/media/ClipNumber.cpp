#include "ClipNumber.h"

#include "LmImage.h"

namespace {

constexpr int kBits = 16;

/// The mean of the inner half of a block, where its neighbours don't shine in.
int meanOf(const LmImage& aImage, int aBlock)
{
    const int width = aImage.width() / ClipNumber::kColumns;
    const int height = aImage.height() / ClipNumber::kRows;
    const QRect block(aBlock % ClipNumber::kColumns * width, aBlock / ClipNumber::kColumns * height, width,
                      height);
    const QRect inner = block.adjusted(width / 4, height / 4, -(width / 4), -(height / 4));
    qint64 sum = 0;
    for (int y = inner.top(); y <= inner.bottom(); ++y)
        for (int x = inner.left(); x <= inner.right(); ++x)
            sum += aImage.row(y)[x * aImage.channels() + aImage.channels() / 2];
    return int(sum / (qint64(inner.width()) * inner.height()));
}

} // namespace

int ClipNumber::blockAt(int aX, int aY, const QSize& aSize)
{
    const int column = aX * kColumns / aSize.width();
    const int row = aY * kRows / aSize.height();
    return row * kColumns + column;
}

bool ClipNumber::isBlockWhite(int aNumber, int aBlock)
{
    const bool isSet = (aNumber >> (aBlock % kBits)) & 1;
    return aBlock < kBits ? isSet : !isSet;
}

int ClipNumber::read(const LmImage& aImage)
{
    constexpr int kDark = 90;
    constexpr int kBright = 165;
    if (aImage.width() < 2 * kColumns || aImage.height() < 2 * kRows)
        return -1;
    int number = 0;
    for (int block = 0; block < kColumns * kRows; ++block) {
        const int mean = meanOf(aImage, block);
        if (mean > kDark && mean < kBright)
            return -1;
        if (block < kBits && mean >= kBright)
            number |= 1 << block;
        if (block >= kBits && (mean >= kBright) != isBlockWhite(number, block))
            return -1;
    }
    return number;
}
