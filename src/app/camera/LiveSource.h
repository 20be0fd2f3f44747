#ifndef LIVESOURCE_H
#define LIVESOURCE_H

#include "MediaSource.h"

#include <QCoreApplication>
#include <QMutex>
#include <QSize>
#include <QStringList>

/// A camera as a source of frames: first the pictures that were taken, then the live one. A taken picture is
/// a file in the folder of its series from then on; the folder is made for the first one.
///
/// Frames may be read in another thread while the live picture changes.
class LiveSource : public MediaSource
{
    Q_DECLARE_TR_FUNCTIONS(LiveSource)

public:
    /// A series is made in a folder of its own inside aPicturesFolder.
    LiveSource(const QString& aPicturesFolder, std::unique_ptr<LmImage> aLive);
    ~LiveSource() override;

    /// The folder of the series, whether it is there already or not.
    const QString& path() const override { return thePath; }
    int frameCount() const override { return takenCount() + 1; }
    /// A picture that can't be read any more is an empty gray image, and aError tells so.
    std::unique_ptr<LmImage> readFrame(int aFrame, QString& aError) override;

    int takenCount() const;
    QSize size() const;
    /// Of the same size as the one before.
    void setLive(std::unique_ptr<LmImage> aLive);
    /// Writes the live picture as the next one of the series. When that fails nothing has changed.
    bool take(QString& aError);
    /// Begins another series, whose pictures may have another size.
    void beginSeries(std::unique_ptr<LmImage> aLive);

private:
    QString newFolder() const;
    QString nextFile() const;

    QString thePicturesFolder;
    QString thePath;
    mutable QMutex theMutex;                // guards what follows
    std::shared_ptr<const LmImage> theLive; // never null
    QStringList theFiles;                   // absolute paths
};

#endif
