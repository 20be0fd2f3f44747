#ifndef FAKECAMERAS_H
#define FAKECAMERAS_H

#include "CameraList.h"

#include <QPointer>

/// A camera that streams what a test gives it.
class FakeCamera : public CameraDevice
{
    Q_OBJECT

public:
    explicit FakeCamera(const QString& aName) : theName(aName) {}

    QString name() const override { return theName; }
    QList<QSize> sizes() const override { return {QSize(800, 600), QSize(400, 300)}; }
    void setSize(const QSize& aSize) override { theSize = aSize; }
    void start(QVideoSink& aSink) override { theSink = &aSink; }
    void stop() override { theSink = nullptr; }

    bool isRunning() const { return theSink != nullptr; }
    /// The size that was asked for last.
    QSize wantedSize() const { return theSize; }
    /// False when it doesn't run.
    bool send(const QImage& aPicture);
    void fail() { Q_EMIT failed(QStringLiteral("the cable was pulled")); }

private:
    QString theName;
    QSize theSize;
    QVideoSink* theSink = nullptr; // not owned
};

/// Cameras that come and go as a test wants.
class FakeCameras : public CameraList
{
    Q_OBJECT

public:
    QList<Camera> cameras() override;
    std::unique_ptr<CameraDevice> open(const QByteArray& aId) override;

    /// The identity of a camera is its name.
    void connectCameras(const QStringList& aNames);
    /// The one that was opened last; null when it is gone.
    FakeCamera* opened() const { return theOpened; }

private:
    QStringList theNames;
    QPointer<FakeCamera> theOpened;
};

#endif
