#include "FakeCameras.h"

#include <QImage>
#include <QVideoFrame>
#include <QVideoFrameFormat>
#include <QVideoSink>

#include <cstring>

bool FakeCamera::send(const QImage& aPicture)
{
    if (!theSink)
        return false;
    const QImage picture = aPicture.convertToFormat(QImage::Format_RGB32);
    QVideoFrame frame(QVideoFrameFormat(picture.size(), QVideoFrameFormat::Format_BGRX8888));
    if (!frame.map(QVideoFrame::WriteOnly))
        return false;
    for (int y = 0; y < picture.height(); ++y)
        std::memcpy(frame.bits(0) + qsizetype(y) * frame.bytesPerLine(0), picture.constScanLine(y),
                    size_t(picture.width()) * 4);
    frame.unmap();
    theSink->setVideoFrame(frame);
    return true;
}

QList<CameraList::Camera> FakeCameras::cameras()
{
    QList<Camera> found;
    for (const QString& name : theNames)
        found.append({name.toUtf8(), name});
    return found;
}

std::unique_ptr<CameraDevice> FakeCameras::open(const QByteArray& aId)
{
    const QString name = QString::fromUtf8(aId);
    if (!theNames.contains(name))
        return nullptr;
    auto camera = std::make_unique<FakeCamera>(name);
    theOpened = camera.get();
    return camera;
}

void FakeCameras::connectCameras(const QStringList& aNames)
{
    theNames = aNames;
    Q_EMIT changed();
}
