#include "ScaleBar.h"

#include "Calibration.h"
#include "LmKSKernelData.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kShareOfRoom = 5.0;
// In a picture, letters are this share of its height, and never too small to be read.
constexpr int kTextShare = 40;
constexpr int kMinTextHeight = 10;
// White shows on the plate, and the plate's edge shows on a picture as dark as the plate.
const QColor kPlate(40, 40, 40);
const QColor kEdge(150, 150, 150);

QFont fontOf(int aTextHeight)
{
    QFont font(QStringLiteral("Lucida Grande"));
    font.setPixelSize(aTextHeight);
    return font;
}

int margin(int aTextHeight)
{
    return std::max(3, aTextHeight / 2);
}

int thickness(int aTextHeight)
{
    return std::max(2, aTextHeight / 4);
}

/// Fractions are divided, so that five thousandths are the same number as 0.005.
double tenTo(int aPower, double aFactor)
{
    return aPower < 0 ? aFactor / std::pow(10.0, -aPower) : aFactor * std::pow(10.0, aPower);
}

} // namespace

double ScaleBar::roundLength(double aPixelsPerUnit, double aRoom)
{
    const double wanted = aRoom / kShareOfRoom / aPixelsPerUnit;
    if (!(aPixelsPerUnit > 0.0) || !(wanted >= std::numeric_limits<double>::min()) || !std::isfinite(wanted))
        return 0.0;
    const int power = int(std::floor(std::log10(wanted)));
    double best = 0.0;
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        const double length = tenTo(power, factor);
        if (best <= 0.0 || std::abs(std::log(length / wanted)) < std::abs(std::log(best / wanted)))
            best = length;
    }
    return std::isfinite(best) ? best : 0.0;
}

ScaleBar ScaleBar::forPicture(double aZoom, double aRoom)
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    ScaleBar bar;
    if (kernel->getCurrentImageSize().isEmpty())
        return bar;
    QString unit;
    const double step = kernel->currentStep(unit);
    const bool calibrated = step > 0.0;
    const double pixelsPerUnit = calibrated ? step * aZoom : aZoom;
    bar.theLength = roundLength(pixelsPerUnit, aRoom);
    if (bar.isNull())
        return bar;
    if (!calibrated) {
        bar.theLength = std::max(bar.theLength, 1.0);
        unit = QCoreApplication::translate("ScaleBar", "px");
    }
    bar.thePixels = bar.theLength * pixelsPerUnit;
    bar.theText = QCoreApplication::translate("ScaleBar", "%1 %2")
                      .arg(Calibration::numberText(bar.theLength), unit)
                      .trimmed();
    return bar;
}

bool ScaleBar::operator==(const ScaleBar& aOther) const
{
    return qFuzzyCompare(1.0 + thePixels, 1.0 + aOther.thePixels) && theText == aOther.theText;
}

QSize ScaleBar::size(int aTextHeight) const
{
    const QFontMetrics metrics(fontOf(aTextHeight));
    const int inner = std::max(metrics.horizontalAdvance(theText), int(std::ceil(thePixels)));
    const int space = margin(aTextHeight);
    return QSize(inner + 2 * space, metrics.height() + thickness(aTextHeight) + 2 * space);
}

void ScaleBar::paint(QPainter& aPainter, int aTextHeight) const
{
    const QSize plate = size(aTextHeight);
    const int space = margin(aTextHeight);
    const int thick = thickness(aTextHeight);
    aPainter.save();
    aPainter.fillRect(QRect(QPoint(0, 0), plate), kEdge);
    aPainter.fillRect(QRect(QPoint(1, 1), plate - QSize(2, 2)), kPlate);
    const int length = int(std::round(thePixels));
    const QRect bar((plate.width() - length) / 2, plate.height() - space - thick, length, thick);
    aPainter.fillRect(bar, Qt::white);
    aPainter.setFont(fontOf(aTextHeight));
    aPainter.setPen(Qt::white);
    aPainter.drawText(QRectF(0, space / 2.0, plate.width(), bar.top() - space / 2.0), Qt::AlignCenter,
                      theText);
    aPainter.restore();
}

void ScaleBar::paintInto(QPainter& aPainter, const QSize& aPicture)
{
    const ScaleBar bar = forPicture(1.0, aPicture.width());
    const int textHeight = std::max(kMinTextHeight, aPicture.height() / kTextShare);
    const QSize plate = bar.size(textHeight);
    const int space = margin(textHeight);
    if (bar.isNull() || plate.width() + 2 * space > aPicture.width() ||
        plate.height() + 2 * space > aPicture.height())
        return;
    aPainter.save();
    aPainter.translate(space, aPicture.height() - space - plate.height());
    bar.paint(aPainter, textHeight);
    aPainter.restore();
}
