#ifndef CLIPWRITER_H
#define CLIPWRITER_H

#include <QMap>
#include <QSize>
#include <QString>

#include <array>
#include <optional>
#include <vector>

/// What a test clip is like.
struct ClipOptions
{
    QString codec = QStringLiteral("mpeg4"); // the encoder
    QString container;                       // the muxer; by the ending of the file if empty
    QSize size{320, 240};                    // even numbers
    int count = 50;
    int rate = 25;
    int groupSize = 12; // from one key frame to the next
    int bFrames = 0;
    bool openGroups = false;
    int ticksPerSecond = 0;     // of the stamps; the rate if 0
    std::vector<qint64> stamps; // of the frames in ticks, ascending; equal distances from 0 if empty
    QString pixelFormat = QStringLiteral("yuv420p");
    QString matrix; // of the colours, "bt709" or "smpte170m"; not told if empty
    bool fullRange = false;
    std::optional<std::array<int, 3>> flat; // every pixel's Y, U, V instead of the frame's number
    bool texture = false;                   // a moving pattern over the blocks
    int rotation = 0;                       // degrees clockwise, noted as cameras do
    QSize pixelAspect{1, 1};
    int threads = 1; // of the encoder; 0 for as many as there are cores
    QMap<QString, QString> encoder;
    QMap<QString, QString> muxer;
};

/// Writes clips for tests with the encoders of the machine. Every frame carries its number, counted from 0 in
/// the order in which the frames are shown, for ClipNumber::read.
namespace ClipWriter {

/// False, with a warning that tells why, if the clip can't be made.
bool write(const QString& aPath, const ClipOptions& aOptions);
/// Whether this machine has the encoder.
bool hasEncoder(const QString& aName);

} // namespace ClipWriter

#endif
