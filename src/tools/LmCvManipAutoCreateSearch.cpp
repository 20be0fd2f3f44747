#include "CanvasEvent.h"
#include "LmCVSequence.h"
#include "LmCvEditor.h"
#include "LmCvManipAutoCreate.h"
#include "LmCvObject.h"
#include "LmImage.h"
#include "LmImageProcessor.h"
#include "LmKSKernelData.h"
#include "PatientRun.h"
#include "Q3CanvasRectangle.h"

#include <QMouseEvent>
#include <QPointer>
#include <QUndoStack>

#include <algorithm>
#include <memory>

namespace {

constexpr int kSmallestThing = 5;     // pixels; less is dust
constexpr double kLargestPart = 0.8;  // of the picture; more is the ground on which the things lie
constexpr unsigned int kRowAlign = 4; // bytes

/// The part of the picture's region that the rubber rectangle covers; canvas.
QRect searchedArea(const Q3CanvasRectangle& aRubber, const LmImage& aImage)
{
    const QRect area(int(aRubber.x()), int(aRubber.y()), aRubber.width(), aRubber.height());
    return area.intersected(QRect(0, 0, aImage.theRoiWidth, aImage.theRoiHeight));
}

/// Takes the last step back and off the stack, as if it had never been made. The stack drops an obsolete step
/// without asking it to undo anything.
void withdrawLast(QUndoStack& aStack)
{
    auto* step = const_cast<QUndoCommand*>(aStack.command(aStack.index() - 1));
    step->undo();
    step->setObsolete(true);
    aStack.undo();
}

/// The object that was current before a search, to be so again after a cancelled one. Its item may be made
/// anew meanwhile.
class FormerCurrent
{
public:
    explicit FormerCurrent(LmCvEditor* aEditor) : theEditor(aEditor)
    {
        LmCvObject* item = aEditor ? aEditor->theCurrentTrack : nullptr;
        theTool = item ? item->theManipulator : nullptr;
        theIdx = theTool ? theTool->getObjectIdx(item) : -1;
    }

    void restore() const
    {
        if (theEditor && theTool && theIdx >= 0)
            theEditor->activateItem(theTool->getCvObject(theIdx));
    }

private:
    QPointer<LmCvEditor> theEditor;
    QPointer<LmCvManipulator> theTool;
    int theIdx = -1;
};

} // namespace

void LmCvManipAutoCreate::mouseReleaseEvent(QMouseEvent* aEvent)
{
    const LmImage* image = picture();
    LmCvManipulator* tool = objectTool();
    if (!image || !tool)
        return;
    if (theOuterRubber && theGroupMode)
        findAll(*image);
    else if (!findOne(*tool, *aEvent))
        return;
    aEvent->accept();
}

/// False when Alt is held without an object that could be reshaped.
bool LmCvManipAutoCreate::findOne(LmCvManipulator& aTool, const QMouseEvent& aEvent)
{
    int index = -1;
    const bool modify = CanvasEvent::holds(aEvent, Qt::AltModifier);
    if (modify && !modifiedObject(aTool, index))
        return false;
    // A plain click still takes what differs by one.
    int lower[3];
    int upper[3];
    for (int i = 0; i < 3; ++i) {
        lower[i] = std::max(1, theSeedColour[i] - theMinColour[i]);
        upper[i] = std::max(1, theMaxColour[i] - theSeedColour[i]);
    }
    const PatientRun busy(QString(), thePatience, theCvEditor);
    if (!aTool.findAndCreate(thePressPos, modify, index, lower, upper, theCurrentTypeName))
        reportFound(0);
    return true;
}

/// The current object, if it is one of the tool's.
bool LmCvManipAutoCreate::modifiedObject(const LmCvManipulator& aTool, int& aIdx) const
{
    const LmCvObject* current = theCvEditor ? theCvEditor->theCurrentTrack : nullptr;
    if (!current || theKernelData->getCvManipulator(current->rtti()) != &aTool)
        return false;
    aIdx = aTool.getObjectIdx(current);
    return aIdx >= 0;
}

void LmCvManipAutoCreate::findAll(const LmImage& aImage)
{
    const QRect area = searchedArea(*theOuterRubber, aImage);
    dropRubber();
    PatientRun run(tr("Finding objects..."), thePatience, theCvEditor);
    QLinkedList<LmCVSequence> contours;
    if (!area.isEmpty() && !searchContours(aImage, area, run, contours))
        return;
    if (contours.isEmpty())
        reportFound(0);
    else
        createAll(contours, run);
    if (theCvEditor)
        theCvEditor->canvas()->update();
}

/// False when the search was cancelled.
bool LmCvManipAutoCreate::searchContours(const LmImage& aImage, const QRect& aArea, PatientRun& aRun,
                                         QLinkedList<LmCVSequence>& aContours)
{
    const auto gray = std::make_shared<LmImage>(aImage.width(), aImage.height(), 1, nullptr, kRowAlign);
    // The picture's region comes to the corner, so that the gray picture's coordinates are canvas ones.
    LmImageProcessor* processor = LmImageProcessor::getInstance(nullptr);
    processor->RGBtoGrayscale(&aImage, gray.get());
    gray->setQRoi(aArea);
    const auto found = std::make_shared<QLinkedList<LmCVSequence>>();
    const int limit = int(aImage.theImageSize * kLargestPart);
    const bool finished = aRun.inThread([=](const std::atomic_bool& aCancelled) {
        processor->findContourSeq(*found, gray.get(), kSmallestThing, limit, false, false, &aCancelled);
    });
    if (finished)
        aContours.swap(*found);
    return finished;
}

void LmCvManipAutoCreate::createAll(const QLinkedList<LmCVSequence>& aContours, PatientRun& aRun)
{
    // While a dialog is shown the tool may go; during the search as well, so it is looked up anew.
    const QPointer<LmCvManipulator> tool(objectTool());
    if (!theUndoStack || !tool)
        return;
    const int count = int(aContours.size());
    // A macro costs what could be redone.
    if (!aRun.goOn(0, count))
        return;
    const FormerCurrent former(theCvEditor);
    int created = 0;
    int done = 0;
    bool cancelled = false;
    theUndoStack->beginMacro(tr("Create objects"));
    for (const LmCVSequence& contour : aContours) {
        cancelled = !aRun.goOn(done++, count);
        LmCvManipulator* stillThere = tool.data();
        if (cancelled || !stillThere)
            break;
        if (stillThere->createObjectFromContour(contour, theCurrentTypeName) >= 0)
            ++created;
    }
    theUndoStack->endMacro();
    if (!cancelled) {
        reportFound(created);
        return;
    }
    withdrawLast(*theUndoStack);
    former.restore();
}

void LmCvManipAutoCreate::reportFound(int aCount)
{
    if (aCount == 1)
        Q_EMIT signalReport(tr("One object found."));
    else if (aCount > 1)
        Q_EMIT signalReport(tr("%1 objects found.").arg(aCount));
    else if (theGroupMode)
        Q_EMIT signalReport(tr("Nothing found here; draw the rectangle around whole things."));
    else
        Q_EMIT signalReport(tr("Nothing found here; drag over the thing to take in more of its colors."));
}
