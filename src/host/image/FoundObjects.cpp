#include "FoundObjects.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Objects = std::vector<FoundObject>;

template <class Test>
void removeIf(Objects& aObjects, Test aTest)
{
    aObjects.erase(std::remove_if(aObjects.begin(), aObjects.end(), aTest), aObjects.end());
}

/// The contrast that half of all pixels of objects reach.
int typicalContrast(const Objects& aObjects)
{
    std::array<long long, 256> pixels{};
    long long total = 0;
    for (const FoundObject& object : aObjects) {
        pixels[size_t(object.theContrast)] += object.thePixels;
        total += object.thePixels;
    }
    int contrast = 255;
    for (long long above = 0; contrast > 0; --contrast)
        if (2 * (above += pixels[size_t(contrast)]) >= total)
            break;
    return contrast;
}

/// How much of the picture a kind makes: strong things count more than wide shades.
double weightOf(const Objects& aObjects, bool aDark)
{
    double sum = 0.0;
    for (const FoundObject& object : aObjects)
        if (object.theDark == aDark)
            sum += double(object.thePixels) * object.theContrast * object.theContrast;
    return sum;
}

void fill(cv::Mat& aField, const PixelOutline& aOutline, int aValue, const QPoint& aCorner = QPoint())
{
    std::vector<cv::Point> points;
    points.reserve(aOutline.size());
    for (const QPoint& point : aOutline)
        points.emplace_back(point.x() - aCorner.x(), point.y() - aCorner.y());
    cv::fillPoly(aField, std::vector<std::vector<cv::Point>>{points}, aValue);
}

/// The greatest value of the field on and inside an outline.
int greatestIn(const cv::Mat& aField, const PixelOutline& aOutline)
{
    const QRect box = PixelOutlines::boundingRect(aOutline);
    cv::Mat inside = cv::Mat::zeros(box.height(), box.width(), CV_8U);
    fill(inside, aOutline, 255, box.topLeft());
    double greatest = 0.0;
    cv::minMaxLoc(aField(cv::Rect(box.x(), box.y(), box.width(), box.height())), nullptr, &greatest, nullptr,
                  nullptr, inside);
    return int(greatest);
}

bool touchesEdge(const FoundObject& aObject, const QSize& aField)
{
    const QRect box = PixelOutlines::boundingRect(aObject.theOutline);
    return box.left() == 0 || box.top() == 0 || box.right() == aField.width() - 1 ||
           box.bottom() == aField.height() - 1;
}

// Pixels that the fringe of an object reaches: its lens's or filter's halo and bits of its rim.
constexpr int kReach = 2;

void widen(cv::Mat& aField)
{
    const cv::Size size(2 * kReach + 1, 2 * kReach + 1);
    cv::dilate(aField, aField, cv::getStructuringElement(cv::MORPH_RECT, size));
}

void dropCrumbs(Objects& aObjects, const QSize& aField)
{
    // Sizes as logarithms, which fit into a byte.
    constexpr double kSteps = 8.0;
    constexpr double kCrumb = 50.0; // so many times smaller
    const auto sizeOf = [](const FoundObject& aObject) {
        return std::min(255, int(kSteps * std::log2(double(aObject.thePixels) + 1.0)));
    };
    const int difference = int(kSteps * std::log2(kCrumb));
    int least = 255;
    int greatest = 0;
    for (const FoundObject& object : aObjects) {
        least = std::min(least, sizeOf(object));
        greatest = std::max(greatest, sizeOf(object));
    }
    if (greatest - least < difference)
        return;
    cv::Mat sizes = cv::Mat::zeros(aField.height(), aField.width(), CV_8U);
    for (const FoundObject& object : aObjects)
        if (sizeOf(object) - least >= difference)
            fill(sizes, object.theOutline, sizeOf(object));
    widen(sizes);
    removeIf(aObjects, [&](const FoundObject& aObject) {
        const QPoint at = aObject.theOutline.front();
        return sizes.at<unsigned char>(at.y(), at.x()) >= sizeOf(aObject) + difference;
    });
}

void dropShades(Objects& aObjects, const QSize& aField)
{
    const double light = weightOf(aObjects, false);
    const double dark = weightOf(aObjects, true);
    if (light == 0.0 || dark == 0.0)
        return;
    const bool minor = dark < light;
    constexpr double kHardlyAny = 0.25;
    if (std::min(light, dark) < kHardlyAny * std::max(light, dark))
        removeIf(aObjects, [&](const FoundObject& aObject) {
            return aObject.theDark == minor && touchesEdge(aObject, aField);
        });
    // Half the contrast of the strongest object within reach.
    cv::Mat half = cv::Mat::zeros(aField.height(), aField.width(), CV_8U);
    for (const FoundObject& object : aObjects)
        if (object.theDark != minor)
            fill(half, object.theOutline, object.theContrast / 2);
    widen(half);
    removeIf(aObjects, [&](const FoundObject& aObject) {
        return aObject.theDark == minor && greatestIn(half, aObject.theOutline) > aObject.theContrast;
    });
}

void dropInner(Objects& aObjects, const QSize& aField)
{
    const auto isDark = [](const FoundObject& aObject) { return aObject.theDark; };
    if (std::all_of(aObjects.begin(), aObjects.end(), isDark) ||
        std::none_of(aObjects.begin(), aObjects.end(), isDark))
        return; // those of one kind have no others inside
    std::stable_sort(
        aObjects.begin(), aObjects.end(),
        [](const FoundObject& aOne, const FoundObject& aOther) { return aOne.thePixels > aOther.thePixels; });
    cv::Mat taken = cv::Mat::zeros(aField.height(), aField.width(), CV_8U);
    removeIf(aObjects, [&](const FoundObject& aObject) {
        const PixelOutline& outline = aObject.theOutline;
        const bool inside = std::all_of(outline.begin(), outline.end(), [&](const QPoint& aPoint) {
            return taken.at<unsigned char>(aPoint.y(), aPoint.x()) != 0;
        });
        if (!inside)
            fill(taken, outline, 255);
        return inside;
    });
}

} // namespace

void FoundObjects::select(std::vector<FoundObject>& aObjects, double aGroundSpread, const QSize& aField)
{
    dropCrumbs(aObjects, aField);
    dropShades(aObjects, aField);
    dropInner(aObjects, aField);
    constexpr double kFaint = 0.3;          // of the typical contrast
    constexpr double kFarAboveNoise = 10.0; // standard deviations
    const double least = std::min(kFaint * typicalContrast(aObjects), kFarAboveNoise * aGroundSpread);
    removeIf(aObjects, [&](const FoundObject& aObject) { return aObject.theContrast < least; });
}
