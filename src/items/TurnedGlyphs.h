#ifndef TURNEDGLYPHS_H
#define TURNEDGLYPHS_H

#include <QColor>
#include <QFont>

#include <memory>
#include <vector>

class QPainter;
class QRectF;
class QTransform;

/// Draws short turned texts from ready pictures of their characters.
///
/// Qt keeps the shapes of turned characters for a few angles only, and thousands of labels have thousands of
/// angles: text then costs several times as much as all the rest of an object. Here a character is drawn once
/// for each half degree and kept; a text's characters stand along its exact angle, each on a whole device
/// pixel. The store is bounded.
class TurnedGlyphs
{
public:
    /// The one store; for the GUI thread, as all painting is.
    static TurnedGlyphs& getInstance();
    ~TurnedGlyphs();

    /// Draws the text centred in the rectangle, which the painter's transform turns. False, with nothing
    /// drawn, where it can't or plain text is as quick: for upright text, devices without pixels, transforms
    /// that do more than turn and scale evenly, and characters beyond Latin. The painter's transform is used
    /// up by it.
    bool drawCentred(QPainter& aPainter, const QRectF& aRect, const QString& aText, const QFont& aFont,
                     const QColor& aColor);

    qsizetype storedBytes() const { return theBytes; }
    void clear();

private:
    class Face; // a font in one size and colour on the device, with its characters

    TurnedGlyphs();
    Face& faceFor(const QFont& aFont, double aScale, double aPixelRatio, const QColor& aColor);

    std::vector<std::unique_ptr<Face>> theFaces; // the one used last stands first
    qsizetype theBytes = 0;
};

#endif
