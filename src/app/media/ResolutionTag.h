#ifndef RESOLUTIONTAG_H
#define RESOLUTIONTAG_H

class QIODevice;
class QString;

/// How many pixels a picture has to an inch, a centimetre or a metre by the note in its file: of PNG, JPEG
/// (also as cameras write it) and TIFF. Only the file's header is read, and of a damaged one only what is
/// whole.
struct ResolutionTag
{
    enum Unit { kInch, kCentimetre, kMetre };

    /// Not noted where there is no such file, no such note, or one without a real unit.
    static ResolutionTag read(const QString& aPath);
    static ResolutionTag read(QIODevice& aFile);

    bool isNoted() const { return theAcross > 0.0 && theDown > 0.0; }
    /// Whether pixels are as wide as high, up to a thousandth, as calibrations take them to be.
    bool isSquare() const;
    /// Of a square pixel; 0 if nothing is noted.
    double pixelMillimetres() const;

    double theAcross = 0.0; // pixels per unit
    double theDown = 0.0;
    Unit theUnit = kInch;
};

#endif
