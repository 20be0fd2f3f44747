#include "CmdAnimateView.h"

#include "LmKSKernelData.h"

#include <QCoreApplication>

namespace {

constexpr int kView = 0; // the one view of this program

} // namespace

CmdAnimateView::CmdAnimateView(bool aAnimated)
    : QUndoCommand(aAnimated ? QCoreApplication::translate("UndoCommand", "Animate the view")
                             : QCoreApplication::translate("UndoCommand", "Stop animating the view")),
      theAnimated(aAnimated)
{
}

void CmdAnimateView::show(bool aAnimated)
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    kernel->announceCurrentView(kView, aAnimated ? 1 : 0);
    kernel->showFrame(kernel->theCurrentFrame, false);
}
