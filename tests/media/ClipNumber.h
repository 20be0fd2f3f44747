#ifndef CLIPNUMBER_H
#define CLIPNUMBER_H

#include <QSize>

class LmImage;

/// The number that every frame of a test clip carries: 16 black and white blocks for its bits and the same
/// blocks inverted, in a grid of 8 x 4, so that it survives compression and a wrong frame can't look right.
namespace ClipNumber {

constexpr int kColumns = 8;
constexpr int kRows = 4;
constexpr int kMost = 65535;

/// The block of the grid in which a pixel lies.
int blockAt(int aX, int aY, const QSize& aSize);
bool isBlockWhite(int aNumber, int aBlock);
/// The number on a frame, gray or coloured; -1 where there is none.
int read(const LmImage& aImage);

} // namespace ClipNumber

#endif
