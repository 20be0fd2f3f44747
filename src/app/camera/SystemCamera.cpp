#include "SystemCamera.h"

#include <QCameraDevice>
#include <QVideoSink>

#include <algorithm>

SystemCamera::SystemCamera(const QCameraDevice& aDevice) : theCamera(aDevice)
{
    theSession.setCamera(&theCamera);
    connect(&theCamera, &QCamera::errorOccurred, this, [this](QCamera::Error aError, const QString& aReason) {
        if (aError != QCamera::NoError)
            Q_EMIT failed(aReason);
    });
}

SystemCamera::~SystemCamera()
{
    stop();
}

QString SystemCamera::name() const
{
    return theCamera.cameraDevice().description();
}

QList<QSize> SystemCamera::sizes() const
{
    QList<QSize> sizes;
    const QList<QCameraFormat> formats = theCamera.cameraDevice().videoFormats();
    for (const QCameraFormat& format : formats)
        if (!sizes.contains(format.resolution()))
            sizes.append(format.resolution());
    std::sort(sizes.begin(), sizes.end(), [](const QSize& aOne, const QSize& aOther) {
        return qint64(aOne.width()) * aOne.height() > qint64(aOther.width()) * aOther.height();
    });
    return sizes;
}

/// Of several formats of a size the quickest is the least compressed one that still is fluid.
void SystemCamera::setSize(const QSize& aSize)
{
    constexpr float kFluid = 24.0F;
    const QList<QCameraFormat> formats = theCamera.cameraDevice().videoFormats();
    QCameraFormat best;
    const auto rank = [](const QCameraFormat& aFormat) {
        const bool isExact = aFormat.pixelFormat() != QVideoFrameFormat::Format_Jpeg;
        const float rate = aFormat.maxFrameRate();
        return (rate >= kFluid && isExact ? 1000.0F : 0.0F) + rate;
    };
    for (const QCameraFormat& format : formats)
        if (format.resolution() == aSize && (best.isNull() || rank(format) > rank(best)))
            best = format;
    if (!best.isNull())
        theCamera.setCameraFormat(best);
}

void SystemCamera::start(QVideoSink& aSink)
{
    theSession.setVideoSink(&aSink);
    theCamera.start();
}

void SystemCamera::stop()
{
    theCamera.stop();
    theSession.setVideoSink(nullptr);
}
