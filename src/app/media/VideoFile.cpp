#include "VideoFile.h"

#include "LmImage.h"
#include "MediaFile.h"
#include "PicturePixels.h"
#include "VideoDecoder.h"
#include "VideoIndex.h"
#include "VideoIndexer.h"
#include "VideoInput.h"
#include "VideoOrder.h"
#include "VideoPixels.h"
#include "VideoReader.h"
#include "VideoTimes.h"

#include <QDir>
#include <QFileInfo>

#include <new>

namespace {

/// The usual time between two frames in seconds; 0 if the container doesn't tell.
double usualFrameTime(const AVStream& aStream)
{
    const AVRational rate = aStream.avg_frame_rate.num > 0 ? aStream.avg_frame_rate : aStream.r_frame_rate;
    return rate.num > 0 && rate.den > 0 ? double(rate.den) / rate.num : 0.0;
}

/// How long the container says that it is, in seconds; 0 if it doesn't say it itself.
double toldDuration(const AVFormatContext& aFormat, const AVStream& aStream)
{
    // An AVI file is taken to be as long as what is there of it, but its head tells the number of frames.
    if (qstrcmp(aFormat.iformat->name, "avi") == 0)
        return double(aStream.nb_frames) * av_q2d(aStream.time_base);
    const bool isTold = aFormat.duration != AV_NOPTS_VALUE &&
                        aFormat.duration_estimation_method == AVFMT_DURATION_FROM_STREAM;
    return isTold ? double(aFormat.duration) / AV_TIME_BASE : 0.0;
}

} // namespace

VideoFile::VideoFile(const QString& aPath)
    : thePath(QFileInfo(aPath).absoluteFilePath()), theInput(std::make_unique<VideoInput>()),
      theDecoder(std::make_unique<VideoDecoder>()), theIndex(std::make_unique<VideoIndex>()),
      thePixels(std::make_unique<VideoPixels>())
{
}

VideoFile::~VideoFile() = default;

QString VideoFile::subject() const
{
    return tr("The video %1").arg(QDir::toNativeSeparators(thePath));
}

std::unique_ptr<VideoFile> VideoFile::open(const QString& aPath, QString& aError, const Progress& aProgress,
                                           qint64 aCacheLimit)
{
    std::unique_ptr<VideoFile> file(new VideoFile(aPath));
    aError.clear();
    try {
        if (!MediaFile::check(file->thePath, file->subject(), aError) || !file->openInput(aError) ||
            !file->index(aProgress, aCacheLimit, aError))
            return nullptr;
    } catch (const std::bad_alloc&) {
        aError = tr("%1 does not fit into memory; close other programs.").arg(file->subject());
        return nullptr;
    }
    file->readTimes();
    return file;
}

bool VideoFile::isVideo(const QString& aPath)
{
    return VideoInput::isKnown(aPath);
}

QStringList VideoFile::suffixes()
{
    return {QStringLiteral("mp4"),  QStringLiteral("mov"),  QStringLiteral("m4v"),  QStringLiteral("mkv"),
            QStringLiteral("avi"),  QStringLiteral("webm"), QStringLiteral("ts"),   QStringLiteral("mts"),
            QStringLiteral("m2ts"), QStringLiteral("mpg"),  QStringLiteral("mpeg"), QStringLiteral("wmv"),
            QStringLiteral("flv"),  QStringLiteral("ogv"),  QStringLiteral("3gp"),  QStringLiteral("mxf"),
            QStringLiteral("dv")};
}

bool VideoFile::openInput(QString& aError)
{
    switch (theInput->open(thePath)) {
    case VideoInput::Result::kUnknownKind:
        aError = tr("%1 is of an unknown kind; open an MP4, MOV, MKV, AVI or MPEG file.").arg(subject());
        return false;
    case VideoInput::Result::kDamaged:
        aError = tr("%1 is damaged or cut off; copy it again from its source.").arg(subject());
        return false;
    case VideoInput::Result::kNoVideo:
        aError = tr("%1 holds no moving pictures; choose another file.").arg(subject());
        return false;
    case VideoInput::Result::kOpen:
        break;
    }
    return checkStream(aError);
}

bool VideoFile::checkStream(QString& aError) const
{
    const AVCodecID codec = theInput->stream().codecpar->codec_id;
    if (!avcodec_find_decoder(codec)) {
        aError = tr("%1 is coded in a way that can't be read here (%2); convert it to H.264.")
                     .arg(subject(), QLatin1String(avcodec_get_name(codec)));
        return false;
    }
    const QSize size = theInput->toldSize();
    if (qint64(size.width()) * size.height() > kMaxPixels) {
        aError = tr("%1 is too large with %2 x %3 pixels; make it smaller than %4 million pixels.")
                     .arg(subject())
                     .arg(size.width())
                     .arg(size.height())
                     .arg(kMaxPixels / 1'000'000);
        return false;
    }
    return true;
}

bool VideoFile::index(const Progress& aProgress, qint64 aCacheLimit, QString& aError)
{
    VideoIndexer indexer(*theInput, *theIndex);
    VideoOrder order(*theInput, *theDecoder, *theIndex);
    if (!indexer.run(aProgress) || !order.run(indexer.isPlain(), aProgress)) {
        aError = tr("%1 was not opened because you stopped it; nothing has changed.").arg(subject());
        return false;
    }
    if (theIndex->frameCount() == 0) {
        aError = tr("%1 holds no frame that can be shown; copy it again from its source.").arg(subject());
        return false;
    }
    theEnd = indexer.end();
    theMayLack = order.mayLackFrames();
    thePixels->setOrientation(theInput->stream());
    theSize = thePixels->shownSize(order.frameSize());
    theReader =
        std::make_unique<VideoReader>(*theInput, *theDecoder, *theIndex, !order.isLearned(), aCacheLimit);
    return true;
}

void VideoFile::readTimes()
{
    const AVStream& stream = theInput->stream();
    VideoTimes times(*theIndex, av_q2d(stream.time_base), usualFrameTime(stream));
    theTimes = times.times();
    theRestart = times.restart();
}

int VideoFile::frameCount() const
{
    return theIndex->frameCount();
}

qint64 VideoFile::cachedBytes() const
{
    return theReader->cachedBytes();
}

QString VideoFile::rateText() const
{
    constexpr int kDigits = 4;
    const QString rate = QString::number(theTimes.meanRate(), 'g', kDigits);
    if (frameCount() == 1)
        return tr("one frame");
    return theTimes.isConstant() ? tr("%1 fps").arg(rate) : tr("variable rate, %1 fps on average").arg(rate);
}

QString VideoFile::remark() const
{
    constexpr double kNoticed = 0.5; // seconds; less is lost to rounding and to sound that ends earlier
    QStringList sentences;
    const double duration = toldDuration(theInput->format(), theInput->stream());
    if (duration > theEnd + qMax(kNoticed, 3 * usualFrameTime(theInput->stream())))
        sentences << tr("%1 is cut off after %2 of %3 seconds; copy it again from its source.")
                         .arg(subject())
                         .arg(theEnd, 0, 'f', 1)
                         .arg(duration, 0, 'f', 1);
    if (theMayLack)
        sentences << tr(
            "Parts of this video can't be decoded, so frames may be missing; copy it again from its "
            "source.");
    if (theRestart > 0)
        sentences << tr("The times of this video start again at frame %1; from there on they are continued "
                        "from the "
                        "frame before.")
                         .arg(theRestart + 1);
    if (!theTimes.isConstant())
        sentences << tr("The frames of this video are not equally far apart in time (%1).").arg(rateText());
    const AVRational aspect = av_guess_sample_aspect_ratio(&theInput->format(), &theInput->stream(), nullptr);
    if (aspect.num > 0 && aspect.den > 0 && aspect.num != aspect.den)
        sentences << tr("The pixels of this video are not square (%1 : %2), so that lengths across and along "
                        "differ.")
                         .arg(aspect.num)
                         .arg(aspect.den);
    return sentences.join(QLatin1Char(' '));
}

std::unique_ptr<LmImage> VideoFile::readFrame(int aFrame, QString& aError)
{
    return read(aFrame, true, aError);
}

std::unique_ptr<LmImage> VideoFile::readQuickFrame(int aFrame, QString& aError)
{
    return read(aFrame, false, aError);
}

std::unique_ptr<LmImage> VideoFile::read(int aFrame, bool aAccurate, QString& aError)
{
    aError.clear();
    if (aFrame < 0 || aFrame >= frameCount()) {
        aError = tr("%1 has no frame %2; choose one from 1 to %3.")
                     .arg(subject())
                     .arg(aFrame + 1)
                     .arg(frameCount());
        return nullptr;
    }
    try {
        return convert(aFrame, aAccurate, aError);
    } catch (const std::bad_alloc&) {
        aError = tr("%1 does not fit into memory; close other programs.").arg(subject());
        return nullptr;
    }
}

std::unique_ptr<LmImage> VideoFile::convert(int aFrame, bool aAccurate, QString& aError)
{
    const VideoPicture picture = theReader->read(aFrame);
    const QString name = QDir::toNativeSeparators(thePath);
    std::unique_ptr<LmImage> image;
    if (picture.theFrame)
        image = thePixels->convert(*picture.theFrame, theSize,
                                   aAccurate ? VideoPixels::kAccurate : VideoPixels::kQuick);
    if (!image) {
        aError =
            tr("Frame %1 of %2 is damaged and can't be shown; go to another one.").arg(aFrame + 1).arg(name);
        return PicturePixels::empty(theSize, theChannels);
    }
    theChannels = image->channels();
    const QSize size(picture.theFrame->width, picture.theFrame->height);
    if (thePixels->shownSize(size) != theSize)
        aError = tr("Frame %1 of %2 has another size than the first one, so don't compare lengths with it.")
                     .arg(aFrame + 1)
                     .arg(name);
    else if (picture.theFlawed)
        aError = tr("Frame %1 of %2 is damaged, so values measured in it may be wrong; go to another one.")
                     .arg(aFrame + 1)
                     .arg(name);
    return image;
}
