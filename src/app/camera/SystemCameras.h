#ifndef SYSTEMCAMERAS_H
#define SYSTEMCAMERAS_H

#include "CameraList.h"

class QMediaDevices;

/// The cameras that the system knows.
class SystemCameras : public CameraList
{
    Q_OBJECT

public:
    QList<Camera> cameras() override;
    std::unique_ptr<CameraDevice> open(const QByteArray& aId) override;

private:
    QMediaDevices* theDevices = nullptr; // made at the first look; child
};

#endif
