// Outlines of LmImageProcessor: Bezier nodes as polygons, and the pixels in an outline.
#include "LmImageProcessor.h"

#include "ImageRegion.h"
#include "LmCVSequence.h"
#include "OutlineScan.h"

#include <QPolygon>

#include <algorithm>
#include <array>

namespace {

constexpr int kValues = 256;

/// The samples of a cubic behind its begin point, the last one being aLast of aParts.
void addSamples(const std::array<QPoint, 4>& aCubic, int aParts, int aLast, QPolygon& aResult)
{
    const double parts = aParts;
    const double whole = parts * parts * parts;
    for (int step = 1; step <= aLast; ++step) {
        // The weights are whole numbers, so that with few parts every sum is exact and one rounding remains.
        const double to = step;
        const double from = parts - to;
        const double weights[] = {from * from * from, 3.0 * from * from * to, 3.0 * from * to * to,
                                  to * to * to};
        double x = 0.0;
        double y = 0.0;
        for (size_t i = 0; i < 4; ++i) {
            x += weights[i] * aCubic[i].x();
            y += weights[i] * aCubic[i].y();
        }
        aResult.append(QPoint(qRound(x / whole), qRound(y / whole)));
    }
}

/// Counts bytes. Equal neighbours are common, and one counter would make each wait for the one before.
class ByteCounter
{
public:
    void count(const unsigned char* aFirst, const unsigned char* aEnd)
    {
        for (; aEnd - aFirst >= 4; aFirst += 4)
            for (size_t lane = 0; lane < 4; ++lane)
                ++theLanes[lane][aFirst[lane]];
        for (; aFirst != aEnd; ++aFirst)
            ++theLanes[0][*aFirst];
    }

    unsigned int operator[](size_t aValue) const
    {
        return theLanes[0][aValue] + theLanes[1][aValue] + theLanes[2][aValue] + theLanes[3][aValue];
    }

    double mean() const
    {
        quint64 pixels = 0;
        quint64 sum = 0;
        for (size_t value = 0; value < kValues; ++value) {
            pixels += (*this)[value];
            sum += value * (*this)[value];
        }
        return pixels > 0 ? double(sum) / double(pixels) : 0.0;
    }

private:
    std::array<std::array<unsigned int, kValues>, 4> theLanes{};
};

} // namespace

QPolygon LmImageProcessor::divideBezierCurve(const QPolygon& aPoints, int aParts, bool aClosed)
{
    const qsizetype nodes = aPoints.size() / 3;
    const int parts = std::max(aParts, 1);
    QPolygon result;
    if (nodes == 0)
        return result;
    result.reserve(nodes * parts + 1);
    result.append(aPoints[1]);
    for (qsizetype i = 1; i < nodes; ++i) {
        const QPoint* anchor = aPoints.constData() + 3 * i - 2;
        addSamples({anchor[0], anchor[1], anchor[2], anchor[3]}, parts, parts, result);
    }
    if (aClosed)
        addSamples({aPoints[3 * nodes - 2], aPoints[3 * nodes - 1], aPoints[0], aPoints[1]}, parts, parts - 1,
                   result);
    return result;
}

bool LmImageProcessor::createHistogram(unsigned int* aTable, double* aMean, const LmImage* aGray,
                                       const LmCVSequence* aOutline, int, int aBins)
{
    if (aTable)
        std::fill_n(aTable, std::max(aBins, 0), 0U);
    if (aMean)
        *aMean = 0.0;
    if (!aGray || aGray->channels() != 1 || !aOutline || aBins < 1)
        return reject("createHistogram: there is no gray image, no outline or no bin");
    ByteCounter counter;
    if (!ImageRegion::isEmpty(*aGray)) {
        OutlineScan scan(*aOutline, aGray->theRoiWidth, aGray->theRoiHeight);
        while (scan.nextRow()) {
            const unsigned char* row = ImageRegion::row(*aGray, scan.row());
            for (const OutlineScan::Run& run : scan.runs())
                counter.count(row + run.theFirst, row + run.theEnd);
        }
    }
    if (aTable)
        for (size_t value = 0; value < kValues; ++value)
            aTable[value * size_t(aBins) / kValues] += counter[value];
    if (aMean)
        *aMean = counter.mean();
    return true;
}
