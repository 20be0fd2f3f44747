#include "PatientRun.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProgressDialog>
#include <QSemaphore>
#include <QThreadPool>

namespace {

constexpr int kRedraw = 50; // ms between two looks at the dialog; each of them lets the window repaint

} // namespace

/// The busy cursor and the time since the start and since the last look.
class PatientRun::Watch
{
public:
    Watch()
    {
        theSinceStart.start();
        theSinceLook.start();
        QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch() { QGuiApplication::restoreOverrideCursor(); }

    QElapsedTimer theSinceStart;
    QElapsedTimer theSinceLook;
};

PatientRun::PatientRun(const QString& aText, int aPatience, QWidget* aParent)
    : theText(aText), thePatience(aPatience), theParent(aParent), theWatch(std::make_unique<Watch>())
{
}

PatientRun::~PatientRun()
{
    delete theDialog;
}

bool PatientRun::inThread(const std::function<void(const std::atomic_bool& aCancelled)>& aWork)
{
    struct Shared
    {
        QSemaphore theDone;
        std::atomic_bool theCancelled = false;
    };
    const auto shared = std::make_shared<Shared>();
    QThreadPool::globalInstance()->start([shared, aWork] {
        aWork(shared->theCancelled);
        shared->theDone.release();
    });
    if (shared->theDone.tryAcquire(1, thePatience))
        return true;
    showDialog(0);
    while (!shared->theDone.tryAcquire(1, kRedraw)) {
        QCoreApplication::processEvents();
        if (isCancelled()) {
            shared->theCancelled = true;
            return false;
        }
    }
    return true;
}

bool PatientRun::goOn(int aDone, int aCount)
{
    if (theWatch->theSinceStart.elapsed() < thePatience || theWatch->theSinceLook.elapsed() < kRedraw)
        return true;
    theWatch->theSinceLook.restart();
    if (!theDialog)
        showDialog(aCount);
    theDialog->setMaximum(aCount);
    theDialog->setValue(aDone);
    QCoreApplication::processEvents();
    return !isCancelled();
}

bool PatientRun::isCancelled() const
{
    return !theDialog || theDialog->wasCanceled();
}

void PatientRun::showDialog(int aCount)
{
    theDialog = new QProgressDialog(theText, QProgressDialog::tr("Cancel"), 0, aCount, theParent);
    theDialog->setWindowModality(Qt::ApplicationModal);
    theDialog->setAutoClose(false);
    theDialog->setAutoReset(false);
    theDialog->setMinimumDuration(0);
    theDialog->show();
}
