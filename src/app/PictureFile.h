#ifndef PICTUREFILE_H
#define PICTUREFILE_H

#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

class LmImage;

/// A picture file whose pages are shown as frames. Pages are decoded when they are asked for.
///
/// Everything Qt's image plug-ins read is accepted; 16 bits per channel are reduced to the upper 8. Gray pictures stay
/// gray, all others become red, green, blue (and alpha where there is one).
class PictureFile
{
public:
    /// Pictures of more pixels than this are refused rather than decoded.
    static constexpr qint64 kMaxPixels = 400'000'000;

    /// Opens a file and decodes its first page; null when that fails, and aError is then one sentence for the user.
    static std::unique_ptr<PictureFile> open(const QString& aPath, QString& aError);
    /// Endings of the files that can be opened, without dot, in lower case.
    static QStringList suffixes();

    ~PictureFile();

    const QString& path() const { return thePath; }
    int frameCount() const { return theFrameCount; }
    /// The page as an image, decoded anew; null with aError set when it can't be read.
    std::unique_ptr<LmImage> readFrame(int aFrame, QString& aError) const;

private:
    PictureFile(const QString& aPath, int aFrameCount);

    QString thePath;
    int theFrameCount;
};

#endif
