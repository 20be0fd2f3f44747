#ifndef VIDEOFILE_H
#define VIDEOFILE_H

#include "MediaSource.h"

#include <QCoreApplication>
#include <QSize>
#include <QStringList>

class VideoDecoder;
class VideoIndex;
class VideoInput;
class VideoPixels;
class VideoReader;

/// A video whose every frame can be had exactly, in any order. Opening reads the whole file once to learn
/// which frames there are; frames are decoded when they are asked for, and those around the present one are
/// kept.
///
/// What a camera noted of how it was held is applied. Interlaced frames stay as they are, both fields woven.
class VideoFile : public MediaSource
{
    Q_DECLARE_TR_FUNCTIONS(VideoFile)

public:
    /// Videos of more pixels are refused; the decoders can't have many more.
    static constexpr qint64 kMaxPixels = 250'000'000;
    static constexpr qint64 kCacheBytes = 512 * 1024 * 1024;

    /// Null, and aError is then one sentence for the user, when that fails or the progress is stopped.
    /// aCacheLimit is for the decoded frames that are kept.
    static std::unique_ptr<VideoFile> open(const QString& aPath, QString& aError,
                                           const Progress& aProgress = Progress(),
                                           qint64 aCacheLimit = kCacheBytes);
    /// Whether the content of the file is of a kind that may hold a video.
    static bool isVideo(const QString& aPath);
    /// Usual endings of videos, without dot, in lower case.
    static QStringList suffixes();

    ~VideoFile() override;

    const QString& path() const override { return thePath; }
    int frameCount() const override;
    const FrameTimes& times() const override { return theTimes; }
    QString remark() const override;
    /// Tells also a variable rate.
    QString rateText() const override;
    qint64 cachedBytes() const;

    /// A frame that can't be decoded is an empty gray image, and aError tells so.
    std::unique_ptr<LmImage> readFrame(int aFrame, QString& aError) override;
    std::unique_ptr<LmImage> readQuickFrame(int aFrame, QString& aError) override;

private:
    explicit VideoFile(const QString& aPath);

    bool openInput(QString& aError);
    bool checkStream(QString& aError) const;
    bool index(const Progress& aProgress, qint64 aCacheLimit, QString& aError);
    void readTimes();
    std::unique_ptr<LmImage> read(int aFrame, bool aAccurate, QString& aError);
    std::unique_ptr<LmImage> convert(int aFrame, bool aAccurate, QString& aError);
    /// "The video NAME" as the beginning of a sentence.
    QString subject() const;

    QString thePath;
    std::unique_ptr<VideoInput> theInput;
    std::unique_ptr<VideoDecoder> theDecoder;
    std::unique_ptr<VideoIndex> theIndex;
    std::unique_ptr<VideoPixels> thePixels;
    std::unique_ptr<VideoReader> theReader; // uses the others
    FrameTimes theTimes;
    QSize theSize;           // of the shown frames
    int theChannels = 3;     // of the last image
    bool theMayLack = false; // something of it couldn't be decoded and isn't among the frames
    int theRestart = 0;      // the first frame whose stamp starts anew; 0 if there is none
    double theEnd = 0.0;     // of the last packet of any stream, in seconds
};

#endif
