#include "DrawnScene.h"

#include "OutlineScan.h"

#include <algorithm>
#include <cmath>
#include <map>

DrawnScene::DrawnScene(int aWidth, int aHeight)
    : theImage(std::make_unique<LmImage>(aWidth, aHeight, 1, nullptr, 4)),
      theOwners(size_t(aWidth) * size_t(aHeight), 0)
{
}

bool DrawnScene::holds(const Thing& aThing, double aX, double aY)
{
    const double dx = aX - aThing.theCentre.x();
    const double dy = aY - aThing.theCentre.y();
    const double u = (dx * std::cos(aThing.theTurn) + dy * std::sin(aThing.theTurn)) / aThing.theRadius;
    const double v = (dy * std::cos(aThing.theTurn) - dx * std::sin(aThing.theTurn)) / aThing.theRadius;
    switch (aThing.theShape) {
    case kDisc:
        return u * u + v * v <= 1.0;
    case kEllipse:
        return u * u + v * v / (0.6 * 0.6) <= 1.0;
    case kRectangle:
        return std::abs(u) <= 1.0 && std::abs(v) <= 0.7;
    case kBlob:
        // A round thing with waves, two long and one short.
        const double angle = std::atan2(v, u);
        const double reach = 0.78 + 0.12 * std::cos(2.0 * angle) + 0.07 * std::cos(3.0 * angle + 1.0) +
                             0.03 * std::cos(7.0 * angle);
        return std::hypot(u, v) <= reach;
    }
    return false;
}

/// The part of the pixel that the thing covers.
double DrawnScene::coverage(const Thing& aThing, double aX, double aY) const
{
    constexpr int kParts = 4;
    int inside = 0;
    for (int i = 0; i < kParts; ++i)
        for (int j = 0; j < kParts; ++j)
            inside += holds(aThing, aX + (i + 0.5) / kParts - 0.5, aY + (j + 0.5) / kParts - 0.5) ? 1 : 0;
    return double(inside) / (kParts * kParts);
}

void DrawnScene::scatter(QRandomGenerator& aRandom, int aCount, double aRadius, double aContrast, double aGap)
{
    // Cells of a grid keep the things apart without trying.
    const double cell = 2.0 * aRadius + aGap;
    const int columns = std::max(1, int(theImage->width() / cell));
    const int rows = std::max(1, int(theImage->height() / cell));
    std::vector<int> places(size_t(columns) * size_t(rows));
    for (size_t i = 0; i < places.size(); ++i)
        places[i] = int(i);
    std::shuffle(places.begin(), places.end(), aRandom);
    const double spareX = theImage->width() - columns * cell;
    const double spareY = theImage->height() - rows * cell;
    for (int i = 0; i < std::min(aCount, int(places.size())); ++i) {
        const int place = places[size_t(i)];
        Thing thing{Shape(i % 4), QPointF(), aRadius};
        thing.theCentre.setX((place % columns + 0.5) * (cell + spareX / columns) + aRandom.bounded(0.5));
        thing.theCentre.setY((place / columns + 0.5) * (cell + spareY / rows) + aRandom.bounded(0.5));
        thing.theTurn = aRandom.bounded(3.14159);
        thing.theContrast = aContrast;
        add(thing);
    }
}

void DrawnScene::paint(QRandomGenerator& aRandom, double aGround, Light aLight, double aRange, double aNoise)
{
    const int width = theImage->width();
    const int height = theImage->height();
    std::vector<double> values(theOwners.size());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const double u = 2.0 * x / std::max(1, width - 1) - 1.0;
            const double v = 2.0 * y / std::max(1, height - 1) - 1.0;
            double light = 0.0;
            if (aLight == kSlope)
                light = aRange * (0.35 * u + 0.15 * v);
            if (aLight == kVignette)
                light = aRange * (0.5 - std::pow(0.5 * (u * u + v * v), 1.5));
            values[size_t(y) * size_t(width) + size_t(x)] = aGround + light;
        }
    const std::vector<double> ground = values;
    for (size_t i = 0; i < theThings.size(); ++i) {
        const Thing& thing = theThings[i];
        const double reach = 1.3 * thing.theRadius + 2.0;
        const int right = std::min(width - 1, int(thing.theCentre.x() + reach));
        const int bottom = std::min(height - 1, int(thing.theCentre.y() + reach));
        for (int y = std::max(0, int(thing.theCentre.y() - reach)); y <= bottom; ++y)
            for (int x = std::max(0, int(thing.theCentre.x() - reach)); x <= right; ++x) {
                const size_t at = size_t(y) * size_t(width) + size_t(x);
                const double covered = coverage(thing, x, y);
                values[at] += covered * (ground[at] + thing.theContrast - values[at]);
                if (covered >= 0.5)
                    theOwners[at] = int(i) + 1;
            }
    }
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            double value = values[size_t(y) * size_t(width) + size_t(x)];
            if (aNoise > 0.0) {
                const double radius = std::sqrt(-2.0 * std::log(1.0 - aRandom.bounded(1.0)));
                value += aNoise * radius * std::cos(6.283185307 * aRandom.bounded(1.0));
            }
            theImage->row(y)[x] = static_cast<unsigned char>(std::clamp(std::lround(value), 0l, 255l));
        }
}

DrawnScene::Outcome DrawnScene::judge(const QLinkedList<LmCVSequence>& aOutlines) const
{
    const QRect region = theImage->qRoi();
    std::vector<int> sizes(theThings.size() + 1, 0);
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x)
            ++sizes[size_t(theOwners[size_t(y) * size_t(theImage->width()) + size_t(x)])];
    Outcome outcome;
    std::vector<bool> found(theThings.size() + 1, false);
    for (const LmCVSequence& outline : aOutlines) {
        std::map<int, int> shared;
        int pixels = 0;
        OutlineScan scan(outline, theImage->width(), theImage->height());
        while (scan.nextRow())
            for (const OutlineScan::Run& run : scan.runs())
                for (int x = run.theFirst; x < run.theEnd; ++x, ++pixels)
                    ++shared[theOwners[size_t(scan.row()) * size_t(theImage->width()) + size_t(x)]];
        double best = 0.0;
        int owner = 0;
        for (const auto& [thing, common] : shared) {
            const double overlap = double(common) / (pixels + sizes[size_t(thing)] - common);
            if (thing > 0 && overlap > best) {
                best = overlap;
                owner = thing;
            }
        }
        if (best < 0.5 || found[size_t(owner)]) {
            ++outcome.theFalse;
            continue;
        }
        found[size_t(owner)] = true;
        ++outcome.theFound;
        outcome.theOverlapSum += best;
        outcome.theLeastOverlap = std::min(outcome.theLeastOverlap, best);
    }
    for (size_t i = 1; i < sizes.size(); ++i)
        outcome.theMissed += sizes[i] > 0 && !found[i] ? 1 : 0;
    return outcome;
}
