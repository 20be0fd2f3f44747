#ifndef CAMERALIST_H
#define CAMERALIST_H

#include "CameraDevice.h"

#include <memory>

/// The cameras that are connected.
class CameraList : public QObject
{
    Q_OBJECT

public:
    struct Camera
    {
        QByteArray theId;
        QString theName;
    };

    /// Looks for them. The first time takes long, so it isn't done before somebody wants to know.
    virtual QList<Camera> cameras() = 0;
    /// Null when it isn't there any more.
    virtual std::unique_ptr<CameraDevice> open(const QByteArray& aId) = 0;

Q_SIGNALS:
    /// A camera came or went; told only after cameras() was called.
    void changed();
};

#endif
