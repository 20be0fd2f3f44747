#include "WorkProgress.h"

#include <QCoreApplication>
#include <QProgressDialog>

namespace {

constexpr int kMoment = 100; // ms; shorter work seems to be done at once
constexpr int kRedraw = 50;  // ms between two looks at the dialog
constexpr int kParts = 1000;

} // namespace

WorkProgress::WorkProgress(const QString& aText, QWidget* aParent) : theText(aText), theParent(aParent)
{
    theSinceStart.start();
    theSinceLook.start();
}

WorkProgress::~WorkProgress() = default;

bool WorkProgress::report(qint64 aDone, qint64 aCount)
{
    if (!theParent || theSinceStart.elapsed() < kMoment || theSinceLook.elapsed() < kRedraw)
        return true;
    theSinceLook.restart();
    if (!theDialog) {
        theDialog =
            std::make_unique<QProgressDialog>(theText, QProgressDialog::tr("Cancel"), 0, kParts, theParent);
        theDialog->setWindowModality(Qt::ApplicationModal);
        theDialog->setAutoClose(false);
        theDialog->setAutoReset(false);
        theDialog->setMinimumDuration(0);
        theDialog->show();
    }
    theDialog->setValue(aCount > 0 ? int(aDone * kParts / aCount) : 0);
    QCoreApplication::processEvents();
    return !theDialog->wasCanceled();
}
