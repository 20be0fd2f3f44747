#ifndef PICTUREFILE_H
#define PICTUREFILE_H

#include "MediaSource.h"

#include <QCoreApplication>
#include <QSize>
#include <QStringList>

class QImageReader;

/// A picture file whose pages are shown as frames. Pages are decoded when they are asked for.
///
/// What a file is follows from its content, not from its name. 16 bits per channel are reduced to the
/// upper 8. Gray pictures stay gray, all others become red, green, blue (and alpha where there is one). The
/// orientation that a camera noted is applied. Smaller pages are filled up with gray on the right and below.
class PictureFile : public MediaSource
{
    Q_DECLARE_TR_FUNCTIONS(PictureFile)

public:
    /// Pictures of more pixels than this are refused rather than decoded.
    static constexpr qint64 kMaxPixels = 400'000'000;

    /// Opens a file and decodes its first page; null when that fails, and aError is then one sentence for the
    /// user.
    static std::unique_ptr<PictureFile> open(const QString& aPath, QString& aError);
    /// Whether the content of the file has the signature of a picture.
    static bool isPicture(const QString& aPath);
    /// The size of the first page as it is shown, invalid where it can't be told from the beginning of the
    /// file.
    static QSize sizeOf(const QString& aPath);
    /// Endings of the files that can be opened, without dot, in lower case.
    static QStringList suffixes();

    ~PictureFile() override;

    const QString& path() const override { return thePath; }
    int frameCount() const override { return theFrameCount; }
    QString remark() const override;
    /// A page that can't be read is an empty gray image, and aError tells so.
    std::unique_ptr<LmImage> readFrame(int aFrame, QString& aError) override;

private:
    explicit PictureFile(const QString& aPath);

    void measurePages();
    std::unique_ptr<LmImage> decode(int aFrame, QString& aError) const;
    std::unique_ptr<LmImage> decodePage(QImageReader& aReader, QString& aError) const;
    static bool selectPage(QImageReader& aReader, int aFrame);
    bool checkContent(QString& aError);
    /// "The picture NAME" as the beginning of a sentence.
    QString subject() const;

    QString thePath;
    int theFrameCount = 1;
    QSize theSize; // of the largest page across and down
    bool theSizesDiffer = false;
    std::unique_ptr<LmImage> theFirstPage; // from opening, given away when it is first asked for
};

#endif
