#ifndef PICTUREFOLDER_H
#define PICTUREFOLDER_H

#include "MediaSource.h"

#include <QCoreApplication>
#include <QSize>
#include <QStringList>

/// The pictures of a folder as frames, in the order of their names with numbers counted as numbers. Only
/// those of the first one's size take part; of a picture with several pages only the first does.
class PictureFolder : public MediaSource
{
    Q_DECLARE_TR_FUNCTIONS(PictureFolder)

public:
    /// Null with one sentence in aError when there is no picture in it or the progress was stopped.
    static std::unique_ptr<PictureFolder> open(const QString& aPath, QString& aError,
                                               const Progress& aProgress = Progress());

    ~PictureFolder() override;

    const QString& path() const override { return thePath; }
    QString framePath(int aFrame) const override { return theFiles.value(aFrame); }
    int frameCount() const override { return int(theFiles.size()); }
    QString remark() const override;
    /// A picture that can't be read any more is an empty gray image, and aError tells so.
    std::unique_ptr<LmImage> readFrame(int aFrame, QString& aError) override;

private:
    explicit PictureFolder(const QString& aPath);

    bool collect(const Progress& aProgress);
    QString subject() const;

    QString thePath;
    QStringList theFiles; // absolute paths
    QSize theSize;
    int theLeftOut = 0; // pictures of another size, or without one
};

#endif
