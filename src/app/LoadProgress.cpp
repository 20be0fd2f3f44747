#include "LoadProgress.h"

#include <QProgressDialog>

namespace {

// Fewer objects are loaded before a dialog could be read.
constexpr int kLongLoad = 2000;

} // namespace

LoadProgress::LoadProgress(const QString& aText, QWidget* aParent) : theText(aText), theParent(aParent) {}

LoadProgress::~LoadProgress() = default;

bool LoadProgress::report(int aDone, int aCount)
{
    if (!theParent || aCount < kLongLoad)
        return true;
    if (!theDialog) {
        theDialog =
            std::make_unique<QProgressDialog>(theText, QProgressDialog::tr("Cancel"), 0, aCount, theParent);
        theDialog->setWindowModality(Qt::WindowModal);
    }
    theDialog->setValue(aDone);
    return !theDialog->wasCanceled();
}
