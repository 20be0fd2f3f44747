#include "SampleClips.h"

#include "ClipWriter.h"
#include "FieldClip.h"

namespace {

constexpr int kFrames = 150;

/// Small, for quick tests; of H.264, as most videos are.
ClipOptions smallClip()
{
    ClipOptions options;
    options.codec = QStringLiteral("libx264");
    options.size = QSize(64, 48);
    options.count = kFrames;
    return options;
}

ClipOptions reordered(ClipOptions aOptions, bool aOpenGroups, int aGroupSize)
{
    aOptions.bFrames = 3;
    aOptions.openGroups = aOpenGroups;
    aOptions.groupSize = aGroupSize;
    return aOptions;
}

ClipOptions withCodec(ClipOptions aOptions, const char* aCodec)
{
    aOptions.codec = QLatin1String(aCodec);
    return aOptions;
}

} // namespace

bool SampleClips::write()
{
    return theFolder.isValid() && addGroups() && addStamps() && addFields();
}

QStringList SampleClips::names() const
{
    QStringList names;
    for (const auto& [name, clip] : theClips)
        names << name;
    return names;
}

bool SampleClips::add(const QString& aName, const QString& aEnding, const ClipOptions& aOptions)
{
    Clip clip;
    clip.thePath = theFolder.filePath(QString(aName).replace(QLatin1Char(' '), QLatin1Char('-')) +
                                      QLatin1Char('.') + aEnding);
    clip.theCount = aOptions.count;
    clip.theDecoded = aEnding == QLatin1String("avi");
    for (const qint64 stamp : aOptions.stamps)
        clip.theFirst += stamp < 0; // these are cut off by the list of edits
    clip.theCount -= clip.theFirst;
    theClips[aName] = clip;
    return ClipWriter::write(clip.thePath, aOptions);
}

bool SampleClips::addGroups()
{
    const auto mp4 = QStringLiteral("mp4");
    const auto mkv = QStringLiteral("mkv");
    const auto avi = QStringLiteral("avi");
    const auto ts = QStringLiteral("ts");
    const ClipOptions plain = smallClip();
    const ClipOptions mpeg4 = withCodec(plain, "mpeg4");
    const ClipOptions mpeg2 = withCodec(plain, "mpeg2video");
    bool isGood = add(QStringLiteral("constant"), mp4, plain) && add(QStringLiteral("mpeg4"), mp4, mpeg4);
    for (const int size : {12, 60}) {
        const QString groups = QStringLiteral(" groups of %1").arg(size);
        isGood = isGood && add(QStringLiteral("closed") + groups, mp4, reordered(plain, false, size)) &&
                 add(QStringLiteral("open") + groups, mp4, reordered(plain, true, size)) &&
                 add(QStringLiteral("open mkv") + groups, mkv, reordered(plain, true, size)) &&
                 add(QStringLiteral("open ts") + groups, ts, reordered(plain, true, size)) &&
                 add(QStringLiteral("open mpeg2") + groups, ts, reordered(mpeg2, true, size)) &&
                 add(QStringLiteral("avi") + groups, avi, reordered(mpeg4, false, size)) &&
                 add(QStringLiteral("open avi") + groups, avi, reordered(plain, true, size));
    }
    return isGood;
}

bool SampleClips::addStamps()
{
    constexpr int kTicks = 1000;
    ClipOptions variable = reordered(smallClip(), true, 12);
    ClipOptions twins = smallClip();
    ClipOptions edited = reordered(smallClip(), false, 12);
    for (ClipOptions* options : {&variable, &twins, &edited})
        options->ticksPerSecond = kTicks;
    for (int frame = 0; frame < kFrames; ++frame) {
        variable.stamps.push_back(frame * 40 + frame % 3 * 9 + frame / 50 * 500);
        twins.stamps.push_back(frame / 2 * 80);
        edited.stamps.push_back(frame * 40 - 700);
    }
    // Here more packets are hidden than are decoded to see whether the stamps can be trusted.
    ClipOptions hidden = reordered(smallClip(), false, 60);
    hidden.ticksPerSecond = kTicks;
    for (int frame = 0; frame < kFrames; ++frame)
        hidden.stamps.push_back(frame * 40 - 40 * 45);
    ClipOptions late = reordered(smallClip(), false, 12);
    late.stamps = variable.stamps;
    late.ticksPerSecond = kTicks;
    for (qint64& stamp : late.stamps)
        stamp += 5000;
    return add(QStringLiteral("variable"), QStringLiteral("mkv"), variable) &&
           add(QStringLiteral("two frames with one stamp"), QStringLiteral("mkv"), twins) &&
           add(QStringLiteral("edit list"), QStringLiteral("mp4"), edited) &&
           add(QStringLiteral("edit list in a long group"), QStringLiteral("mp4"), hidden) &&
           add(QStringLiteral("late start"), QStringLiteral("mkv"), late) &&
           add(QStringLiteral("edit list mov"), QStringLiteral("mov"), edited);
}

bool SampleClips::addFields()
{
    constexpr int kCount = 60;
    constexpr int kGroupSize = 12;
    for (const char* ending : {"mkv", "mp4", "ts"})
        for (const bool inOnePacket : {true, false}) {
            const QString name =
                QStringLiteral("fields %1 %2")
                    .arg(QLatin1String(ending), QLatin1String(inOnePacket ? "in pairs" : "alone"));
            Clip clip;
            clip.thePath = theFolder.filePath(QString(name).replace(QLatin1Char(' '), QLatin1Char('-')) +
                                              QLatin1Char('.') + QLatin1String(ending));
            clip.theCount = kCount;
            theClips[name] = clip;
            if (!FieldClip::write(clip.thePath, kCount, kGroupSize, inOnePacket))
                return false;
        }
    return true;
}
