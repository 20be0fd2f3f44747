#include "CurveColors.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kReadable = 3.0; // the contrast that drawn lines need
constexpr double kStep = 0.02;    // of the lightness, from 0 to 1
// Hues that are this part of the circle apart stay apart for as many curves as anybody can read.
constexpr double kGoldenPart = 0.381966;
constexpr double kLeastSaturation = 0.6;
constexpr double kMiddle = 0.5;
constexpr double kFarHue = 0.06;
constexpr double kFarLightness = 0.25;
constexpr int kMostTurns = 24;

double luminance(const QColor& aColor)
{
    const auto linear = [](double aPart) {
        return aPart <= 0.04045 ? aPart / 12.92 : std::pow((aPart + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(double(aColor.redF())) + 0.7152 * linear(double(aColor.greenF())) +
           0.0722 * linear(double(aColor.blueF()));
}

QColor fromHsl(double aHue, double aSaturation, double aLightness)
{
    return QColor::fromHslF(float(aHue), float(aSaturation), float(aLightness));
}

double hueOf(const QColor& aColor)
{
    return std::max(0.0, double(aColor.hslHueF()));
}

bool isGray(const QColor& aColor)
{
    return aColor.hslHueF() < 0.0F || aColor.hslSaturationF() < 0.15F;
}

bool isAlike(const QColor& aOne, const QColor& aOther)
{
    const double apart = std::abs(hueOf(aOne) - hueOf(aOther));
    const bool sameHue =
        isGray(aOne) == isGray(aOther) && (isGray(aOne) || std::min(apart, 1.0 - apart) < kFarHue);
    return sameHue && std::abs(double(aOne.lightnessF()) - double(aOther.lightnessF())) < kFarLightness;
}

/// The color turned along the circle of hues.
QColor turned(const QColor& aColor, int aTurns)
{
    if (aTurns == 0)
        return aColor;
    const double hue = std::fmod(hueOf(aColor) + kGoldenPart * aTurns, 1.0);
    return fromHsl(hue, std::max(kLeastSaturation, double(aColor.hslSaturationF())), kMiddle);
}

} // namespace

double CurveColors::contrast(const QColor& aOne, const QColor& aOther)
{
    const double one = luminance(aOne) + 0.05;
    const double other = luminance(aOther) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor CurveColors::readable(const QColor& aColor, const QColor& aGround)
{
    QColor color = aColor.toRgb();
    color.setAlpha(255);
    const double step = luminance(aGround) > 0.18 ? -kStep : kStep; // 0.18 is in the middle for the eye
    double lightness = double(color.lightnessF());
    const double hue = hueOf(color);
    const double saturation = isGray(color) ? 0.0 : double(color.hslSaturationF());
    while (contrast(color, aGround) < kReadable && lightness + step >= 0.0 && lightness + step <= 1.0) {
        lightness += step;
        color = fromHsl(hue, saturation, lightness);
    }
    return color;
}

QList<QColor> CurveColors::distinct(const QList<QColor>& aWanted, const QColor& aGround)
{
    QList<QColor> colors(aWanted.size());
    const auto isFree = [&colors](const QColor& aColor) {
        return std::none_of(colors.cbegin(), colors.cend(), [&](const QColor& aOther) {
            return aOther.isValid() && isAlike(aColor, aOther);
        });
    };
    // All that can have what they want get it before others take a color that is left.
    for (qsizetype i = 0; i < colors.size(); ++i) {
        const QColor color = readable(aWanted[i], aGround);
        if (isFree(color))
            colors[i] = color;
    }
    for (qsizetype i = 0; i < colors.size(); ++i) {
        QColor color = colors[i];
        for (int turns = 1; turns <= kMostTurns && !color.isValid(); ++turns) {
            const QColor turnedColor = readable(turned(aWanted[i], turns), aGround);
            if (isFree(turnedColor) || turns == kMostTurns)
                color = turnedColor;
        }
        // With very many curves nothing free is found; then at least the numbers differ.
        while (!colors[i].isValid() && colors.contains(color))
            color = QColor::fromRgb(color.rgb() + 1U);
        colors[i] = color;
    }
    return colors;
}
