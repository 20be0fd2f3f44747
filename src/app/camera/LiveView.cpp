#include "LiveView.h"

#include "CameraDevice.h"
#include "Document.h"
#include "LiveSource.h"
#include "LmCvEditor.h"
#include "LmImage.h"
#include "Media.h"
#include "Workbench.h"

#include <QApplication>
#include <QDir>
#include <QMouseEvent>
#include <QStandardPaths>

namespace {

QString usualFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QDir(pictures).filePath(QStringLiteral("MeasureTools"));
}

} // namespace

LiveView::LiveView(Workbench& aBench, QObject* aParent)
    : QObject(aParent), theBench(aBench), theFeed(nullptr), thePicturesFolder(usualFolder())
{
    connect(&theFeed, &CameraFeed::arrived, this, &LiveView::pictureArrived);
    connect(&theBench.media(), &Media::aboutToLeave, this, &LiveView::sourceLeft);
    connect(&theBench.media(), &Media::frameShown, this, &LiveView::changed);
    theBench.document().setKeeper([this](QString& aError) { return keepForProject(aError); });
    theBench.editor().viewport()->installEventFilter(this);
}

LiveView::~LiveView()
{
    stop();
    theBench.document().setKeeper({});
}

bool LiveView::eventFilter(QObject* aObject, QEvent* aEvent)
{
    switch (aEvent->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        theMouseDown = static_cast<QMouseEvent*>(aEvent)->buttons() != Qt::NoButton;
        break;
    case QEvent::ContextMenu: // the release goes to the menu
        theMouseDown = false;
        break;
    default:
        break;
    }
    return QObject::eventFilter(aObject, aEvent);
}

void LiveView::start(std::unique_ptr<CameraDevice> aDevice, const QByteArray& aId,
                     const std::function<bool()>& aMayReplace)
{
    stop();
    theFrozen = false;
    theDevice = std::move(aDevice);
    theDeviceId = aId;
    theMayReplace = aMayReplace;
    connect(theDevice.get(), &CameraDevice::failed, this, &LiveView::lose);
    Q_EMIT told(tr("Waiting for the first picture of the camera %1...").arg(theDevice->name()));
    // A camera that comes back goes on in the size that the series has.
    if (goesOnWith(aId) && theDevice->sizes().contains(theSource->size()))
        theDevice->setSize(theSource->size());
    theDevice->start(theFeed.sink());
    Q_EMIT changed();
}

void LiveView::stop()
{
    if (!theDevice)
        return;
    theDevice->disconnect(this);
    theDevice->stop();
    theDevice.release()->deleteLater(); // it may be what calls
    theFeed.drop();
    Q_EMIT changed();
}

void LiveView::lose(const QString& aReason)
{
    if (!theDevice)
        return;
    const QString name = theDevice->name();
    const bool wasOpen = goesOnWith(theDeviceId);
    stop();
    if (wasOpen && isShown())
        showLast(false);
    Q_EMIT told(wasOpen ? tr("The camera %1 sends no more pictures (%2); its last one stays, and choosing "
                             "the camera again goes on from there.")
                              .arg(name, aReason)
                        : tr("The camera %1 sends no pictures (%2); see whether it is connected and used by "
                             "no other program.")
                              .arg(name, aReason));
}

void LiveView::sourceLeft()
{
    theSource = nullptr;
    if (!theReplacing)
        stop();
}

bool LiveView::isShown() const
{
    return theSource && theBench.media().frame() == theSource->frameCount() - 1;
}

void LiveView::pictureArrived()
{
    std::unique_ptr<LmImage> image = theFeed.take();
    if (!image || !theDevice || theAsking)
        return;
    const bool isNew = !goesOnWith(theDeviceId);
    const bool isOther = !isNew && image->size() != theSource->size();
    // What would replace or scale the work waits for the next picture while somebody is in the middle of it.
    if ((isNew || isOther) && isBusy())
        return;
    if (isNew)
        open(std::move(image));
    else if (!theFrozen)
        show(std::move(image));
}

bool LiveView::isHeld() const
{
    return theMouseDown || theBench.editor().mouseGrabber();
}

bool LiveView::isBusy() const
{
    return isHeld() || QApplication::activeModalWidget() || QApplication::activePopupWidget();
}

void LiveView::open(std::unique_ptr<LmImage> aImage)
{
    theAsking = true;
    const bool mayReplace = theMayReplace();
    theAsking = false;
    if (!theDevice) // gone meanwhile
        return;
    if (!mayReplace) {
        stop();
        return;
    }
    auto source = std::make_unique<LiveSource>(thePicturesFolder, std::move(aImage));
    LiveSource* opened = source.get();
    QString error;
    theReplacing = true;
    const bool isOpen =
        theBench.document().openLive(std::move(source), tr("Camera %1").arg(theDevice->name()), error);
    theReplacing = false;
    if (!isOpen)
        return;
    theSource = opened;
    theSourceId = theDeviceId;
    Q_EMIT told(tr("The camera %1 is live; take pictures to keep them.").arg(theDevice->name()));
    Q_EMIT changed();
}

void LiveView::show(std::unique_ptr<LmImage> aImage)
{
    if (aImage->size() != theSource->size()) {
        showResized(std::move(aImage));
        return;
    }
    theSource->setLive(std::move(aImage));
    if (isShown())
        showNext();
}

/// While the mouse holds something the tools are left alone: the values follow with the next picture.
void LiveView::showNext()
{
    Media& media = theBench.media();
    QString error; // the live picture is always there
    std::unique_ptr<LmImage> image = theSource->readFrame(media.frame(), error);
    if (isHeld())
        media.exchangeImage(std::move(image));
    else
        media.showLive(std::move(image));
}

void LiveView::showLast(bool aPlaying)
{
    Media& media = theBench.media();
    const int last = theSource->frameCount() - 1;
    QString error; // as above
    if (aPlaying)
        media.showPlayed(theSource->readFrame(last, error), last);
    else
        media.showFrame(last, error);
}

/// A series has one size, so another one begins.
void LiveView::showResized(std::unique_ptr<LmImage> aImage)
{
    Media& media = theBench.media();
    const QSize size = aImage->size();
    const int taken = theSource->takenCount();
    const QString folder = QDir::toNativeSeparators(theSource->path());
    theSource->beginSeries(std::move(aImage));
    media.followSource(0, 0);
    QString error;
    media.showResized(theSource->readFrame(0, error));
    theBench.document().startAnew(taken > 0);
    QString text = tr("The camera sends %1 x %2 pixels now: the objects were scaled, keyframes were not, and "
                      "earlier steps can't be undone any more.")
                       .arg(size.width())
                       .arg(size.height());
    if (taken > 0)
        text += QLatin1Char(' ') +
                tr("A new series begins; the %n picture(s) of the former one are in %1.", nullptr, taken)
                    .arg(folder);
    Q_EMIT told(text);
}

void LiveView::setFrozen(bool aFrozen)
{
    if (theFrozen == aFrozen)
        return;
    theFrozen = aFrozen;
    theFeed.drop();
    if (aFrozen && isShown())
        showLast(false);
    Q_EMIT changed();
}

bool LiveView::take(QString& aError)
{
    if (!isShown()) {
        aError = tr("There is no live picture on the screen; go to the last frame first.");
        return false;
    }
    if (!theSource->take(aError))
        return false;
    theBench.media().followSource(theSource->frameCount() - 1, theSource->takenCount());
    showLast(theDevice && !theFrozen);
    Q_EMIT told(tr("Picture %1 was taken; it is in %2.")
                    .arg(theSource->takenCount())
                    .arg(QDir::toNativeSeparators(theSource->path())));
    return true;
}

/// A project names files, and what is shown live is in none.
bool LiveView::keepForProject(QString& aError)
{
    if (!theSource || (!isShown() && theSource->takenCount() > 0))
        return true;
    if (!isShown()) {
        aError = tr("There is no picture to save yet; take one first.");
        return false;
    }
    return take(aError);
}
