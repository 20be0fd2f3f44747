#ifndef SYSTEMCAMERA_H
#define SYSTEMCAMERA_H

#include "CameraDevice.h"

#include <QCamera>
#include <QMediaCaptureSession>

/// A camera of the system.
class SystemCamera : public CameraDevice
{
    Q_OBJECT

public:
    explicit SystemCamera(const QCameraDevice& aDevice);
    ~SystemCamera() override;

    QString name() const override;
    QList<QSize> sizes() const override;
    void setSize(const QSize& aSize) override;
    void start(QVideoSink& aSink) override;
    void stop() override;

private:
    QCamera theCamera;
    QMediaCaptureSession theSession;
};

#endif
