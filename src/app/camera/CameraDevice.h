#ifndef CAMERADEVICE_H
#define CAMERADEVICE_H

#include <QList>
#include <QObject>
#include <QSize>

class QVideoSink;

/// One connected camera.
class CameraDevice : public QObject
{
    Q_OBJECT

public:
    virtual QString name() const = 0;
    /// The sizes of its pictures, each once, the largest first.
    virtual QList<QSize> sizes() const = 0;
    /// Streams pictures of this size from now on, also while it runs. The stream tells when they come.
    virtual void setSize(const QSize& aSize) = 0;
    /// Streams into the sink, which has to live until stop().
    virtual void start(QVideoSink& aSink) = 0;
    virtual void stop() = 0;

Q_SIGNALS:
    /// The camera can't go on; aReason is no whole sentence.
    void failed(const QString& aReason);
};

#endif
