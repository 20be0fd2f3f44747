#include "CameraWindow.h"

#include "CameraCommands.h"
#include "Document.h"
#include "FakeCameras.h"
#include "LiveView.h"
#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "Media.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>
#include <QtTest>

CameraWindow::CameraWindow(Start aStart) : InterestWindow(aStart)
{
    auto cameras = std::make_unique<FakeCameras>();
    theCameras = cameras.get();
    window().camera().setCameras(std::move(cameras));
    theCameras->connectCameras({QStringLiteral("Fake")});
    view().setPicturesFolder(seriesFolder());
}

LiveView& CameraWindow::view()
{
    return window().camera().view();
}

FakeCamera& CameraWindow::camera()
{
    if (!theCameras->opened())
        qFatal("no camera was opened");
    return *theCameras->opened();
}

QMenu& CameraWindow::menu()
{
    return *actions().theCameraMenu;
}

QStringList CameraWindow::menuTexts()
{
    Q_EMIT menu().aboutToShow();
    QStringList texts;
    const QList<QAction*> entries = menu().actions();
    for (const QAction* entry : entries)
        texts << (entry->isSeparator() ? QStringLiteral("---") : entry->text().remove(QLatin1Char('&')));
    return texts;
}

bool CameraWindow::choose(const QString& aName)
{
    Q_EMIT menu().aboutToShow();
    QAction* entry = find(menu(), aName);
    if (!entry || !entry->isEnabled())
        return false;
    entry->trigger();
    return true;
}

void CameraWindow::goLive(const QImage& aPicture)
{
    if (!choose())
        QTest::qFail("the camera isn't in the menu", __FILE__, __LINE__);
    send(aPicture);
}

void CameraWindow::send(const QImage& aPicture)
{
    QSignalSpy arrived(&view().feed(), &CameraFeed::arrived);
    if (!camera().send(aPicture) || (arrived.isEmpty() && !arrived.wait()))
        QTest::qFail("the picture didn't arrive", __FILE__, __LINE__);
}

void CameraWindow::take()
{
    actions().theTakePicture->trigger();
}

void CameraWindow::freeze()
{
    actions().theFreeze->trigger();
}

QImage CameraWindow::picture(int aNumber, const QSize& aSize)
{
    QImage picture(aSize, QImage::Format_RGB888);
    for (int y = 0; y < aSize.height(); ++y) {
        uchar* pixel = picture.scanLine(y);
        for (int x = 0; x < aSize.width(); ++x) {
            *pixel++ = uchar(x + 40 * aNumber);
            *pixel++ = uchar(y + x * aNumber);
            *pixel++ = uchar(40 * aNumber);
        }
    }
    return picture;
}

QImage CameraWindow::shown()
{
    const LmImage* image = kernel().theCurrentImage;
    if (!image || image->channels() != 3)
        return QImage();
    return QImage(image->row(0), image->width(), image->height(), image->bytesPerLine(),
                  QImage::Format_RGB888)
        .copy();
}

int CameraWindow::frame()
{
    return bench().media().frame();
}

int CameraWindow::frameCount()
{
    return bench().media().frameCount();
}

QString CameraWindow::told()
{
    return window().statusBar()->currentMessage();
}

void CameraWindow::pick(int aType)
{
    QToolButton* button = kernel().getCvManipulator(aType)->theToolButton;
    if (!button->isChecked())
        QTest::mouseClick(button, Qt::LeftButton);
}

QStringList CameraWindow::takenFiles() const
{
    QStringList files;
    const QDir folder(seriesFolder());
    const QStringList series = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& name : series)
        for (const QString& file : QDir(folder.filePath(name)).entryList(QDir::Files, QDir::Name))
            files << folder.filePath(name) + QLatin1Char('/') + file;
    return files;
}

bool CameraWindow::save(const QString& aName)
{
    QString error;
    const bool isSaved = bench().document().save(path(aName), error);
    if (!isSaved)
        qWarning("%s", qUtf8Printable(error));
    return isSaved;
}
