#include "LoadProgress.h"

#include <QProgressDialog>

namespace {

constexpr int kShortestLoad = 500; // ms; what is done sooner needs no dialog

} // namespace

LoadProgress::LoadProgress(const QString& aText, QWidget* aParent, int aLongFrom)
    : theText(aText), theParent(aParent), theLongFrom(aLongFrom)
{
}

LoadProgress::~LoadProgress() = default;

bool LoadProgress::report(int aDone, int aCount)
{
    if (!theParent || aCount < theLongFrom)
        return true;
    if (!theDialog) {
        theDialog =
            std::make_unique<QProgressDialog>(theText, QProgressDialog::tr("Cancel"), 0, aCount, theParent);
        theDialog->setWindowModality(Qt::WindowModal);
        theDialog->setMinimumDuration(kShortestLoad);
    }
    theDialog->setValue(aDone);
    return !theDialog->wasCanceled();
}
