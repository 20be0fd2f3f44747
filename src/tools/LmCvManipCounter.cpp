#include "LmCvManipCounter.h"

#include "LmCvArrow.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"

#include <QMouseEvent>
#include <QPixmap>

#include <algorithm>

namespace {

constexpr int kCounterType = 1107;
// Colour (4), custom actions (32), automatic creation (256), a place in the measurement window (512). Hiding
// and removing a whole counter are custom actions.
constexpr int kCounterFlags = 804;

enum Action { kRemoveCounter = 0, kHideCounter = 1, kShowCounter = 2 };

} // namespace

LmCvManipCounter::LmCvManipCounter(QObject* aParent)
    : LmCvRecordTool(kCounterType, aParent),
      theCounterCursor(QPixmap(QStringLiteral(":/CounterCursor.png")), 16, 16)
{
}

LmCvManipCounter::LmCvManipCounter(QToolBar* aToolBar, QObject* aParent) : LmCvManipCounter(aParent)
{
    LmCvManipCounter::initManipulator(aToolBar);
}

LmCvManipCounter::~LmCvManipCounter() = default;

LmCvRecordTool::Texts LmCvManipCounter::texts() const
{
    return {tr("Counter tool"),
            tr("Tool for counting objects on the image view"),
            QStringLiteral(":/Counter.svg"),
            {tr("Count"), tr("% Of Total")}};
}

QList<ParamDescr> LmCvManipCounter::ownParams() const
{
    return {{QStringLiteral("pos"), QMetaType::QPolygon, ParamDescr::kHeld},
            {QStringLiteral("nm"), QMetaType::QString, ParamDescr::kWhole},
            {QStringLiteral("fnt"), QMetaType::QFont, ParamDescr::kWhole}};
}

void LmCvManipCounter::initManipulator(QToolBar* aToolBar)
{
    LmCvRecordTool::initManipulator(aToolBar);
    if (!theInitDone)
        return;
    theAutoCreationIcon.addFile(QStringLiteral(":/Counter auto.svg"));
    theCounterIcon = theToolIcon;
}

void LmCvManipCounter::setCvEditor(LmCvEditor* aEditor)
{
    LmCvRecordTool::setCvEditor(aEditor);
    if (!aEditor)
        return;
    if (!aEditor->theItemWatchers.contains(this))
        aEditor->theItemWatchers.append(this);
    connect(aEditor, &LmCvEditor::signalCurrentObjectChanged, this, &LmCvManipCounter::tellHint);
    connect(aEditor, &QObject::destroyed, this, [this] {
        theCounters.clear(); // the canvas is about to delete the marks
        theKnownLooks.forgetAll();
    });
}

QString LmCvManipCounter::typeName() const
{
    return tr("Counter");
}

int LmCvManipCounter::getCvObjectFlags(LmCvObject*)
{
    return kCounterFlags;
}

bool LmCvManipCounter::allObjectsNeedRecalc()
{
    return true; // each counter's share of the total
}

QStringList LmCvManipCounter::getAnimatedValueNames()
{
    return {};
}

QIcon& LmCvManipCounter::getIconSet(const QString&)
{
    return theCounterIcon;
}

QIcon& LmCvManipCounter::getAutoCreationIconSet(const QString&)
{
    return theAutoCreationIcon;
}

const QCursor& LmCvManipCounter::getCursor() const
{
    return theCounterCursor;
}

QLinkedList<QPair<QString, int>> LmCvManipCounter::getCustomActions()
{
    QLinkedList<QPair<QString, int>> actions;
    actions.append(qMakePair(tr("Hide whole counter"), int(kHideCounter)));
    actions.append(qMakePair(tr("Show whole counter"), int(kShowCounter)));
    actions.append(qMakePair(tr("Remove whole counter"), int(kRemoveCounter)));
    return actions;
}

void LmCvManipCounter::actionOnCvObject(LmCvObject* aObject, QPoint, int aAction)
{
    if (!aObject || aObject->rtti() != LmCvArrow::kRtti)
        return;
    if (aAction == kHideCounter)
        showCvObject(aObject, false);
    else if (aAction == kShowCounter)
        showCvObject(aObject, true);
    else if (aAction == kRemoveCounter)
        removeCounter(aObject);
}

void LmCvManipCounter::mousePressEvent(QMouseEvent* aEvent)
{
    if (!canDraw()) {
        aEvent->ignore();
        return;
    }
    theLastPress = aEvent->pos();
    createCounterElement(theLastPress, true);
    aEvent->accept();
}

// The tool drags nothing: the editor drags marks as it does all items.

void LmCvManipCounter::mouseMoveEvent(QMouseEvent*) {}

void LmCvManipCounter::mouseReleaseEvent(QMouseEvent*) {}

/// Esc puts the current counter down, so that the next click begins another one. A mark under the mouse comes
/// first, and a tool that is being left keeps its counter for when it comes back.
bool LmCvManipCounter::abortAction()
{
    if (!theCvEditor || theCvEditor->theCurrentManipulator != this || currentCounter() < 0 || isAnyPressed())
        return false;
    theCvEditor->activateItem(nullptr);
    return true;
}

bool LmCvManipCounter::isAnyPressed() const
{
    const auto isPressed = [](const LmCvArrow* aMark) {
        return (aMark->theMovingLabel || aMark->theMovingTip) && !aMark->theDragFinished;
    };
    return std::any_of(theCounters.cbegin(), theCounters.cend(), [&isPressed](const auto& aMarks) {
        return std::any_of(aMarks.cbegin(), aMarks.cend(), isPressed);
    });
}

QString LmCvManipCounter::hint() const
{
    if (const int current = currentCounter(); current >= 0)
        return tr("Click to add a mark to counter %1, or on one of its marks to take it away; drag a mark or "
                  "its tip to move it; Esc ends the counter.")
            .arg(current);
    return tr("Click to begin a new counter; to go on with another one, select one of its marks first.");
}

LmCvArrow* LmCvManipCounter::currentMark() const
{
    LmCvObject* current = theCvEditor ? theCvEditor->theCurrentTrack : nullptr;
    return current && current->rtti() == LmCvArrow::kRtti ? static_cast<LmCvArrow*>(current) : nullptr;
}

int LmCvManipCounter::currentCounter() const
{
    int count = 0;
    int maxIdx = 0;
    return findCounterIndex(currentMark(), count, maxIdx, nullptr);
}

int LmCvManipCounter::indexOf(const LmCvObject& aObject) const
{
    if (aObject.rtti() != LmCvArrow::kRtti)
        return -1;
    int count = 0;
    int maxIdx = 0;
    return findCounterIndex(static_cast<const LmCvArrow*>(&aObject), count, maxIdx, nullptr);
}

LmCvObject* LmCvManipCounter::getCvObject(int aIdx)
{
    return theCounters.value(aIdx).value(0);
}

QList<int> LmCvManipCounter::shownIndexes() const
{
    return theCounters.keys();
}

void LmCvManipCounter::repaint()
{
    if (theCvEditor)
        theCvEditor->canvas()->update();
}

void LmCvManipCounter::forgetItem(const Q3CanvasItem* aItem)
{
    if (aItem == theCreatedArrow)
        theCreatedArrow = nullptr;
}
