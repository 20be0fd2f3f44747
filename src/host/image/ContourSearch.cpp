#include "ContourSearch.h"

#include "BackgroundSurface.h"
#include "DeviationCounter.h"
#include "FoundObjects.h"
#include "ImageRegion.h"
#include "ObjectLevel.h"
#include "PixelRuns.h"
#include "ReadingOrder.h"
#include "TouchingObjects.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>

namespace {

bool isCancelled(const std::atomic_bool* aCancel)
{
    return aCancel && aCancel->load();
}

BytePlane plane(const cv::Mat& aMat)
{
    return {aMat.data, aMat.cols, aMat.rows, aMat.step};
}

/// The region's pixels as OpenCV sees them, which are only read.
cv::Mat regionMat(const LmImage& aImage)
{
    auto* data = const_cast<unsigned char*>(ImageRegion::row(aImage, 0));
    return cv::Mat(aImage.theRoiHeight, aImage.theRoiWidth, CV_8U, data, size_t(aImage.bytesPerLine()));
}

/// The ground at every pixel.
cv::Mat groundOf(const BackgroundSurface& aSurface, const cv::Size& aSize)
{
    const int side = aSurface.blockSide();
    auto* values = const_cast<unsigned char*>(aSurface.values().data());
    const cv::Mat blocks(aSurface.rows(), aSurface.columns(), CV_8U, values);
    if (side == 1)
        return blocks.clone();
    cv::Mat whole;
    cv::resize(blocks, whole, cv::Size(aSurface.columns() * side, aSurface.rows() * side));
    return whole(cv::Rect(cv::Point(), aSize));
}

// A quarter of a million pixels tell the noise of any picture.
constexpr int kSamplesPerSide = 512;

double noiseOf(const cv::Mat& aGray)
{
    const int stepX = std::max(1, aGray.cols / kSamplesPerSide);
    const int stepY = std::max(1, aGray.rows / kSamplesPerSide);
    DeviationCounter counter;
    for (int y = 0; y < aGray.rows; y += stepY)
        for (int x = 1; x + 1 < aGray.cols; x += stepX) {
            const unsigned char* at = aGray.ptr(y) + x;
            counter.add(at[-1] - 2 * at[0] + at[1]);
        }
    return counter.sigma() / DeviationCounter::kSecondDifference;
}

/// How far the ground's pixels lie from its surface, by noise and by marks of its own.
double spreadOf(const cv::Mat& aGray, const cv::Mat& aGround, const BackgroundSurface& aSurface)
{
    const int stepX = std::max(1, aGray.cols / kSamplesPerSide);
    const int stepY = std::max(1, aGray.rows / kSamplesPerSide);
    const int side = aSurface.blockSide();
    DeviationCounter counter;
    for (int y = 0; y < aGray.rows; y += stepY)
        for (int x = 0; x < aGray.cols; x += stepX)
            if (aSurface.isGround(x / side, y / side))
                counter.add(aGray.ptr(y)[x] - aGround.ptr(y)[x]);
    return counter.sigma();
}

/// A picture and what is known of its ground.
struct Scene
{
    explicit Scene(const LmImage& aGray) : theSharp(regionMat(aGray))
    {
        const BackgroundSurface surface(aGray);
        theGround = groundOf(surface, theSharp.size());
        theNoise = noiseOf(theSharp);
        // Blur by sigma leaves 1 / (3.5 sigma) of the noise: no more than about two gray levels then.
        constexpr double kSigmaPerNoise = 1.0 / 8.0;
        constexpr double kLeastSigma = 0.3; // what a filter of bytes can do
        constexpr double kMostSigma = 3.0;
        theSigma = std::min(kMostSigma, theNoise * kSigmaPerNoise);
        theSmooth = theSharp;
        if (theSigma < kLeastSigma)
            theSigma = 0.0;
        else
            cv::GaussianBlur(theSharp, theSmooth = cv::Mat(), cv::Size(), theSigma);
        theSpread = spreadOf(theSmooth, theGround, surface);
    }

    /// How far the pixels stand out on one side of the ground.
    void takeHeights(bool aDark)
    {
        cv::subtract(aDark ? theGround : theSmooth, aDark ? theSmooth : theGround, theHeight);
        if (theSigma > 0.0)
            cv::subtract(aDark ? theGround : theSharp, aDark ? theSharp : theGround, theSharpHeight);
        else
            theSharpHeight = theHeight;
    }

    cv::Mat theSharp;
    cv::Mat theSmooth;
    cv::Mat theGround;
    double theNoise = 0.0;
    double theSigma = 0.0;  // of the blur
    double theSpread = 0.0; // of the smooth ground
    cv::Mat theHeight;      // of the smooth pixels above or below the ground
    cv::Mat theSharpHeight; // of the others
    cv::Mat theMask;
};

bool reaches(const PixelRuns& aRuns, size_t aObject, const cv::Mat& aHeight, int aLevel)
{
    return std::any_of(aRuns.begin(aObject), aRuns.end(aObject), [&](const PixelRuns::Run& aRun) {
        const unsigned char* row = aHeight.ptr(aRun.theRow);
        return std::any_of(row + aRun.theFirst, row + aRun.theEnd,
                           [aLevel](int aValue) { return aValue >= aLevel; });
    });
}

/// Gives the object's pixels in the mask its contrast where they are as high as its cut, or 0 where not.
void cutOut(Scene& aScene, const PixelRuns& aRuns, size_t aObject, int aLowest)
{
    const ObjectLevel level(aRuns, aObject, plane(aScene.theHeight), plane(aScene.theSharpHeight), aLowest,
                            aScene.theSigma);
    // Blur made small things wide: they are cut out of the sharp picture where its noise allows it.
    constexpr double kClear = 3.5;
    const bool clear = level.sharpCut() >= kClear * aScene.theNoise;
    const cv::Mat& height = clear ? aScene.theSharpHeight : aScene.theHeight;
    const int cut = clear ? level.sharpCut() : level.cut();
    const auto mark = static_cast<unsigned char>(level.contrast());
    for (const auto* run = aRuns.begin(aObject); run != aRuns.end(aObject); ++run) {
        const unsigned char* row = height.ptr(run->theRow);
        unsigned char* to = aScene.theMask.ptr(run->theRow);
        for (int x = run->theFirst; x < run->theEnd; ++x)
            to[x] = row[x] >= cut ? mark : 0;
    }
}

void remove(Scene& aScene, const PixelRuns& aRuns, size_t aObject)
{
    for (const auto* run = aRuns.begin(aObject); run != aRuns.end(aObject); ++run) {
        unsigned char* row = aScene.theMask.ptr(run->theRow);
        std::fill(row + run->theFirst, row + run->theEnd, static_cast<unsigned char>(0));
    }
}

/// Adds what stands out on one side of the ground.
void addObjects(Scene& aScene, bool aDark, std::vector<FoundObject>& aObjects)
{
    // An object has a pixel that noise doesn't make in a hundred million, and ends where noise begins.
    constexpr double kSurely = 6.0;
    constexpr double kPerhaps = 2.5;
    // Steps of few gray levels are bands of a picture with few colours rather than objects.
    constexpr double kLeastSure = 6.0;
    constexpr double kLeastPerhaps = 2.0;
    const int sure = int(std::ceil(std::max(kLeastSure, kSurely * aScene.theSpread)));
    const int perhaps = int(std::ceil(std::max(kLeastPerhaps, kPerhaps * aScene.theSpread)));
    aScene.takeHeights(aDark);
    cv::threshold(aScene.theHeight, aScene.theMask, perhaps - 1, 255, cv::THRESH_BINARY);
    const PixelRuns runs(plane(aScene.theMask));
    bool any = false;
    for (size_t object = 0; object < runs.objectCount(); ++object)
        if (reaches(runs, object, aScene.theHeight, sure)) {
            cutOut(aScene, runs, object, perhaps);
            any = true;
        } else {
            remove(aScene, runs, object);
        }
    if (!any)
        return;
    // What the cut leaves beside an object is noise on its slope.
    const PixelRuns pieces(plane(aScene.theMask));
    for (size_t piece = 0; piece < pieces.objectCount(); ++piece)
        if (!reaches(pieces, piece, aScene.theHeight, sure))
            remove(aScene, pieces, piece);
    for (PixelOutline& outline : PixelOutlines::of(plane(aScene.theMask))) {
        const QPoint first = outline.front();
        const long long pixels = PixelOutlines::pixelCount(outline);
        aObjects.push_back({std::move(outline), aScene.theMask.ptr(first.y())[first.x()], aDark, pixels});
    }
}

} // namespace

std::vector<PixelOutline> ContourSearch::outlines(const LmImage& aGray, int aMinArea, int aMaxArea,
                                                  const std::atomic_bool* aCancel)
{
    Scene scene(aGray);
    const QSize field(aGray.theRoiWidth, aGray.theRoiHeight);
    std::vector<FoundObject> objects;
    for (const bool dark : {false, true}) {
        if (isCancelled(aCancel))
            return {};
        addObjects(scene, dark, objects);
    }
    FoundObjects::select(objects, scene.theSpread, field);
    std::vector<PixelOutline> result;
    for (const FoundObject& object : objects) {
        if (isCancelled(aCancel))
            return {};
        for (PixelOutline& part : TouchingObjects::separated(object.theOutline, field))
            if (const long long pixels = PixelOutlines::pixelCount(part);
                pixels >= aMinArea && pixels <= aMaxArea)
                result.push_back(std::move(part));
    }
    ReadingOrder::sort(result);
    return result;
}
