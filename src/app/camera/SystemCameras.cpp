#include "SystemCameras.h"

#include "SystemCamera.h"

#include <QMediaDevices>

namespace {

/// The media library remarks upon a system without sound or graphics card, which nobody asked for.
class QuietLibrary
{
public:
    QuietLibrary() : theFormer(qInstallMessageHandler(&QuietLibrary::drop)) {}
    ~QuietLibrary() { qInstallMessageHandler(theFormer); }
    Q_DISABLE_COPY_MOVE(QuietLibrary)

private:
    static void drop(QtMsgType, const QMessageLogContext&, const QString&) {}

    QtMessageHandler theFormer;
};

} // namespace

QList<CameraList::Camera> SystemCameras::cameras()
{
    const QuietLibrary quiet;
    const QList<QCameraDevice> devices = QMediaDevices::videoInputs();
    if (!theDevices) {
        theDevices = new QMediaDevices(this);
        connect(theDevices, &QMediaDevices::videoInputsChanged, this, &CameraList::changed);
    }
    QList<Camera> found;
    for (const QCameraDevice& device : devices)
        found.append({device.id(), device.description()});
    return found;
}

std::unique_ptr<CameraDevice> SystemCameras::open(const QByteArray& aId)
{
    const QuietLibrary quiet;
    const QList<QCameraDevice> devices = QMediaDevices::videoInputs();
    for (const QCameraDevice& device : devices)
        if (device.id() == aId)
            return std::make_unique<SystemCamera>(device);
    return nullptr;
}
