#include "TurnedGlyphs.h"

#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr qsizetype kMaxBytes = 32 << 20;
constexpr std::size_t kMaxFaces = 32; // a zoom above 1 has a face of its own
constexpr double kStepsPerDegree = 2.0;
constexpr int kLatinEnd = 0x250; // behind Latin Extended-B: no combining, no shaping
constexpr double kPi = 3.14159265358979323846;

bool isLatin(const QString& aText)
{
    return std::all_of(aText.cbegin(), aText.cend(), [](QChar aChar) { return aChar.unicode() < kLatinEnd; });
}

bool turnsAndScalesEvenly(const QTransform& aTransform)
{
    const double slack = 1e-6 * (std::abs(aTransform.m11()) + std::abs(aTransform.m12()));
    return aTransform.isAffine() && std::abs(aTransform.m11() - aTransform.m22()) <= slack &&
           std::abs(aTransform.m12() + aTransform.m21()) <= slack;
}

struct Glyph
{
    QImage thePicture; // null for a blank
    QPoint theOffset;  // device pixels from the character's origin to the picture's corner
};

} // namespace

class TurnedGlyphs::Face
{
public:
    Face(const QFont& aFont, double aScale, double aPixelRatio, const QColor& aColor)
        : theFont(aFont), theScale(aScale), thePixelRatio(aPixelRatio), theColor(aColor), theDeviceFont(aFont)
    {
        const QFontMetricsF metrics(aFont);
        theBaseline = (metrics.ascent() - metrics.descent()) / 2.0;
        theAdvances.fill(-1.0);
        theDeviceFont.setPointSizeF(aFont.pointSizeF() * aScale);
    }

    bool is(const QFont& aFont, double aScale, double aPixelRatio, const QColor& aColor) const
    {
        return theScale == aScale && thePixelRatio == aPixelRatio && theColor == aColor && theFont == aFont;
    }

    /// In the pixels of the font before scaling.
    double advance(QChar aChar)
    {
        double& known = theAdvances[aChar.unicode()];
        if (known < 0.0)
            known = QFontMetricsF(theFont).horizontalAdvance(aChar);
        return known;
    }

    const Glyph& glyph(QChar aChar, int aStep, qsizetype& aBytes)
    {
        const quint32 key = quint32(aChar.unicode()) << 16 | quint16(aStep);
        auto known = theGlyphs.find(key);
        if (known == theGlyphs.end()) {
            known = theGlyphs.insert(key, drawn(aChar, aStep));
            aBytes += known->thePicture.sizeInBytes() + qsizetype(sizeof(Glyph));
        }
        return *known;
    }

    double theBaseline = 0.0; // below the middle of a line

private:
    const QPainterPath& upright(QChar aChar)
    {
        QPainterPath& path = theUpright[aChar.unicode()];
        if (path.isEmpty())
            path.addText(0.0, 0.0, theDeviceFont, aChar);
        return path;
    }

    Glyph drawn(QChar aChar, int aStep)
    {
        const QPainterPath shape = QTransform().rotate(aStep / kStepsPerDegree).map(upright(aChar));
        const QRect area = shape.boundingRect().toAlignedRect();
        if (shape.isEmpty())
            return Glyph();
        Glyph glyph{QImage(area.size(), QImage::Format_ARGB32_Premultiplied), area.topLeft()};
        glyph.thePicture.fill(Qt::transparent);
        QPainter painter(&glyph.thePicture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(-area.topLeft());
        painter.fillPath(shape, theColor);
        painter.end();
        glyph.thePicture.setDevicePixelRatio(thePixelRatio);
        return glyph;
    }

    QFont theFont;
    double theScale;      // device pixels per font pixel
    double thePixelRatio; // device pixels per logical pixel
    QColor theColor;
    QFont theDeviceFont;
    std::array<double, kLatinEnd> theAdvances;
    QHash<ushort, QPainterPath> theUpright;
    QHash<quint32, Glyph> theGlyphs; // by character and angle step
};

TurnedGlyphs::TurnedGlyphs() = default;

TurnedGlyphs::~TurnedGlyphs() = default;

TurnedGlyphs& TurnedGlyphs::getInstance()
{
    static TurnedGlyphs glyphs;
    return glyphs;
}

void TurnedGlyphs::clear()
{
    theFaces.clear();
    theBytes = 0;
}

TurnedGlyphs::Face& TurnedGlyphs::faceFor(const QFont& aFont, double aScale, double aPixelRatio,
                                          const QColor& aColor)
{
    // Labels keep their size on the screen below zoom 1, but for the last bits of the product.
    const double scale = std::round(aScale * aFont.pointSizeF() * 64.0) / 64.0 / aFont.pointSizeF();
    const auto known = std::find_if(theFaces.begin(), theFaces.end(), [&](const auto& aFace) {
        return aFace->is(aFont, scale, aPixelRatio, aColor);
    });
    if (known == theFaces.end())
        theFaces.insert(theFaces.begin(), std::make_unique<Face>(aFont, scale, aPixelRatio, aColor));
    else
        std::rotate(theFaces.begin(), known, known + 1);
    return *theFaces.front();
}

bool TurnedGlyphs::drawCentred(QPainter& aPainter, const QRectF& aRect, const QString& aText,
                               const QFont& aFont, const QColor& aColor)
{
    const QTransform toDevice = aPainter.deviceTransform();
    if (aFont.pointSizeF() <= 0.0 || !isLatin(aText) || !turnsAndScalesEvenly(toDevice) ||
        (toDevice.m12() == 0.0 && toDevice.m11() > 0.0) ||
        aPainter.paintEngine()->type() != QPaintEngine::Raster)
        return false;

    if (theBytes > kMaxBytes || theFaces.size() > kMaxFaces)
        clear();
    aPainter.setWorldTransform(QTransform());
    const QTransform toPixels = aPainter.deviceTransform();
    const double ratio = toPixels.m11(); // device pixels per logical pixel
    Face& face = faceFor(aFont, std::hypot(toDevice.m11(), toDevice.m12()), ratio, aColor);
    double width = 0.0;
    for (const QChar character : aText)
        width += face.advance(character);
    const int step = qRound(std::atan2(toDevice.m12(), toDevice.m11()) * 180.0 / kPi * kStepsPerDegree);

    double x = aRect.center().x() - width / 2.0;
    const double y = aRect.center().y() + face.theBaseline;
    for (const QChar character : aText) {
        const Glyph& glyph = face.glyph(character, step, theBytes);
        if (!glyph.thePicture.isNull()) {
            const QPoint corner = toDevice.map(QPointF(x, y)).toPoint() + glyph.theOffset;
            aPainter.drawImage(QPointF(corner.x() - toPixels.dx(), corner.y() - toPixels.dy()) / ratio,
                               glyph.thePicture);
        }
        x += face.advance(character);
    }
    return true;
}
