#ifndef HISTOGRAMFIXTURE_H
#define HISTOGRAMFIXTURE_H

#include "LmCVSequence.h"
#include "LmImage.h"
#include "LmImageProcessor.h"

#include <QPolygon>
#include <QRandomGenerator>

#include <numeric>
#include <vector>

/// A gray image of 64 x 48 random pixels, and the histogram in an outline on it.
class HistogramFixture
{
public:
    static constexpr quint32 kSeed = 4503;
    static constexpr int kLimit = 100000;
    static constexpr int kBins = 256;

    struct Result
    {
        bool theAnswer = false;
        std::vector<unsigned int> theTable = std::vector<unsigned int>(kBins, 77U);
        double theMean = -1.0;

        unsigned int pixels() const { return std::accumulate(theTable.begin(), theTable.end(), 0U); }
    };

    HistogramFixture()
    {
        QRandomGenerator random(kSeed);
        for (int y = 0; y < theGray.height(); ++y)
            for (int x = 0; x < theGray.width(); ++x)
                theGray.row(y)[x] = static_cast<unsigned char>(random.bounded(256));
    }

    static LmCVSequence sequenceOf(const QPolygon& aPolygon)
    {
        LmCVSequence sequence(int(aPolygon.size()), 8);
        for (int i = 0; i < aPolygon.size(); ++i)
            sequence.putPoint(i, aPolygon[i].x(), aPolygon[i].y());
        return sequence;
    }

    static Result histogram(const LmImage* aGray, const LmCVSequence* aOutline, int aLimit = kLimit)
    {
        Result result;
        result.theAnswer = LmImageProcessor::getInstance(nullptr)->createHistogram(
            result.theTable.data(), &result.theMean, aGray, aOutline, aLimit, kBins);
        return result;
    }
    Result histogram(const LmCVSequence& aOutline, int aLimit = kLimit) const
    {
        return histogram(&theGray, &aOutline, aLimit);
    }
    Result histogram(const QPolygon& aOutline) const { return histogram(sequenceOf(aOutline)); }

    LmImage theGray{64, 48, 1, nullptr, 4};
};

#endif
