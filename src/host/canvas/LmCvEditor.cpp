#include "LmCvEditor.h"

#include "LmCvGestures.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmCvSelection.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kMinZoom = 0.02;
constexpr double kMaxZoom = 64.0;
constexpr double kStepsPerDoubling = 4.0;

/// The buttons of the tool and those of its tool bar.
QList<QToolButton*> buttonsOf(const LmCvManipulator& aTool)
{
    QList<QToolButton*> buttons;
    if (aTool.theToolBar)
        buttons = aTool.theToolBar->findChildren<QToolButton*>(QStringLiteral("manipulator button"));
    if (aTool.theToolButton && !buttons.contains(aTool.theToolButton))
        buttons.append(aTool.theToolButton);
    return buttons;
}

} // namespace

LmCvEditor::LmCvEditor(QWidget* aParent)
    : Q3CanvasView(nullptr, aParent), theImageCanvas(new LmCvCanvas(this)),
      theGestures(std::make_unique<LmCvGestures>(*this)), theSelection(std::make_unique<LmCvSelection>(*this))
{
    setCanvas(theImageCanvas);
    connect(theImageCanvas, &Q3Canvas::itemRemoved, this, &LmCvEditor::forgetItem);
}

LmCvEditor::~LmCvEditor()
{
    // The canvas goes after this, and its items with it.
    disconnect(theImageCanvas, nullptr, this, nullptr);
}

void LmCvEditor::setCurrentTrack(LmCvObject* aItem, bool aReveal)
{
    if (aItem && aReveal)
        ensureVisible(aItem->boundingRect().center());
    if (theCurrentTrack == aItem)
        return;
    theCurrentTrack = aItem;
    Q_EMIT signalCurrentObjectChanged(aItem);
}

void LmCvEditor::activateItem(LmCvObject* aItem)
{
    if (theCurrentTrack && theCurrentTrack != aItem)
        theCurrentTrack->setActive(false);
    setCurrentTrack(aItem, false);
    if (aItem)
        aItem->setActive(true);
    canvas()->update();
}

void LmCvEditor::leaveItem(LmCvObject* aItem)
{
    // The group goes first: a drag of it ends with its last member.
    if (theSelection->contains(aItem))
        theSelection->toggle(aItem);
    theGestures->forget(aItem);
    if (theCurrentTrack == aItem)
        activateItem(nullptr);
}

void LmCvEditor::setCurrentManipulator(LmCvManipulator* aTool, QToolButton* aButton)
{
    noticeToolChange();
    LmCvManipulator* former = theCurrentManipulator;
    if (aTool != former) {
        theCurrentManipulator = aTool;
        noticeToolChange();
    }
    // Whoever heard of the change may have chosen yet another tool.
    if (theCurrentManipulator == aTool && (aTool != former || aButton))
        checkOnly(aButton || !aTool ? aButton : aTool->theToolButton, {former, aTool});
    theGestures->updateCursor();
}

void LmCvEditor::noticeToolChange()
{
    if (theCurrentManipulator == theKnownTool)
        return;
    LmCvManipulator* former = std::exchange(theKnownTool, theCurrentManipulator);
    theGestures->abort();
    if (former) {
        former->abortAction();
        theGestures->forget(former);
        if (theMouseGrabber == former)
            setMouseGrabber(nullptr, false);
    }
    disconnect(theToolWatch);
    if (LmCvManipulator* tool = theCurrentManipulator)
        theToolWatch = connect(tool, &QObject::destroyed, this, [this, tool] { forgetManipulator(tool); });
    Q_EMIT signalCurrentManipulatorChanged(theCurrentManipulator);
}

/// A second button of a tool, and its first one when the tool goes on with the second, would take being
/// switched off for a click of the user, so they aren't told.
void LmCvEditor::checkOnly(QToolButton* aButton, const QList<LmCvManipulator*>& aTools)
{
    for (const LmCvManipulator* tool : aTools) {
        if (!tool)
            continue;
        for (QToolButton* button : buttonsOf(*tool)) {
            if (button->isChecked() == (button == aButton))
                continue;
            const bool left = button == tool->theToolButton && tool != theCurrentManipulator;
            const bool told = button == aButton || left;
            const bool blocked = button->blockSignals(!told || button->signalsBlocked());
            button->setChecked(button == aButton);
            button->blockSignals(blocked);
        }
    }
}

void LmCvEditor::setMouseGrabber(LmCvManipulator* aTool, bool aOn)
{
    theMouseGrabber = aOn ? aTool : nullptr;
}

void LmCvEditor::forgetManipulator(const LmCvManipulator* aTool)
{
    theItemWatchers.removeAll(const_cast<LmCvManipulator*>(aTool));
    theGestures->forget(aTool);
    if (theMouseGrabber == aTool)
        theMouseGrabber = nullptr;
    for (LmCvObject* item : cvItems())
        if (item->theManipulator == aTool)
            item->theManipulator = nullptr;
    if (theKnownTool == aTool)
        theKnownTool = nullptr;
    if (theCurrentManipulator != aTool)
        return;
    theCurrentManipulator = nullptr;
    Q_EMIT signalCurrentManipulatorChanged(nullptr);
}

void LmCvEditor::forgetItem(const Q3CanvasItem* aItem)
{
    theSelection->forget(aItem);
    theGestures->forget(aItem);
    if (theCurrentTrack == aItem)
        setCurrentTrack(nullptr, false);
}

bool LmCvEditor::setWorldMatrix(const QTransform& aMatrix)
{
    const double former = zoom();
    if (!Q3CanvasView::setWorldMatrix(aMatrix))
        return false;
    if (zoom() == former)
        return true;
    for (LmCvObject* item : cvItems())
        item->adjustScale(worldMatrix());
    canvas()->update();
    Q_EMIT signalZoomChanged(zoom());
    return true;
}

void LmCvEditor::setZoom(double aZoom)
{
    zoomAbout(std::clamp(aZoom, kMinZoom, kMaxZoom), QRectF(viewport()->rect()).center());
}

void LmCvEditor::zoomStep(int aSteps, const QPointF& aViewportPos)
{
    // Steps from a zoom of the series stay in it exactly, so that as many steps back give the very same zoom.
    constexpr double kRounding = 1e-6;
    double place = std::log2(zoom()) * kStepsPerDoubling;
    if (std::abs(place - std::round(place)) < kRounding)
        place = std::round(place);
    const double wanted = std::exp2((place + aSteps) / kStepsPerDoubling);
    zoomAbout(std::clamp(wanted, kMinZoom, kMaxZoom), aViewportPos);
}

void LmCvEditor::zoomToFit()
{
    const QSize picture = canvas()->size();
    const QSize room = maximumViewportSize();
    if (picture.isEmpty() || room.isEmpty())
        return;
    double fit = std::min(double(room.width()) / picture.width(), double(room.height()) / picture.height());
    // Rounded up by the least amount it would already bring a scroll bar.
    while (fit * picture.width() > room.width() || fit * picture.height() > room.height())
        fit = std::nextafter(fit, 0.0);
    setZoom(fit);
}

QList<LmCvObject*> LmCvEditor::itemsNear(const QPoint& aCanvasPoint) const
{
    const int tolerance = int(LmCvObject::kDefaultSelSize / std::min(zoom(), 1.0));
    const QPoint reach(tolerance, tolerance);
    QList<LmCvObject*> items;
    for (Q3CanvasItem* candidate : canvas()->collisions(QRect(aCanvasPoint - reach, aCanvasPoint + reach)))
        if (auto* item = dynamic_cast<LmCvObject*>(candidate); item && item->isVisible())
            items.append(item);
    if (const qsizetype current = items.indexOf(theCurrentTrack); current > 0)
        items.move(current, 0);
    return items;
}

LmCvObject* LmCvEditor::itemAt(const QPoint& aCanvasPoint, const LmCvManipulator* aOnlyOf) const
{
    const int tolerance = int(LmCvObject::kDefaultSelSize / std::min(zoom(), 1.0));
    int node = 0;
    for (LmCvObject* item : itemsNear(aCanvasPoint))
        if ((!aOnlyOf || item->theManipulator == aOnlyOf) &&
            item->isPointOnObject(aCanvasPoint, node, tolerance))
            return item;
    return nullptr;
}

QList<LmCvObject*> LmCvEditor::cvItems() const
{
    QList<LmCvObject*> items;
    for (Q3CanvasItem* candidate : canvas()->allItems())
        if (auto* item = dynamic_cast<LmCvObject*>(candidate))
            items.append(item);
    return items;
}

void LmCvEditor::drawForeground(QPainter& aPainter)
{
    const QRect band = theGestures->rubberBand();
    if (band.isNull())
        return;
    // White under black dashes shows on every picture.
    const QRectF frame = canvasToViewport().mapRect(QRectF(band));
    aPainter.setBrush(Qt::NoBrush);
    aPainter.setPen(QPen(Qt::white, 0));
    aPainter.drawRect(frame);
    aPainter.setPen(QPen(Qt::black, 0, Qt::DashLine));
    aPainter.drawRect(frame);
}

bool LmCvEditor::hasForeground() const
{
    return !theGestures->rubberBand().isNull();
}
