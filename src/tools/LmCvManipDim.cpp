#include "LmCvManipDim.h"

#include "CanvasEvent.h"
#include "LmCvDimension.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

#include <QMouseEvent>

#include <utility>

namespace {

constexpr int kDimensionType = LmCvDimension::kRtti;
constexpr int kMostPoints = 8; // a height and three widths

} // namespace

LmCvManipDim::LmCvManipDim(QObject* aParent) : LmCvObjectTool(kDimensionType, aParent)
{
    loadRulerCursor(QStringLiteral(":/DimCursor.png"));
    qRegisterMetaType<Q3PointArray>("Q3PointArray");
}

LmCvManipDim::LmCvManipDim(QToolBar* aToolBar, QObject* aParent) : LmCvManipDim(aParent)
{
    LmCvManipDim::initManipulator(aToolBar);
}

LmCvManipDim::~LmCvManipDim() = default;

LmCvObjectTool::Texts LmCvManipDim::texts() const
{
    QStringList names{tr("Height")};
    for (int width = 1; 2 * width < kMostPoints; ++width)
        names << tr("Width") + QString::number(width);
    names << tr("Avg. Width");
    return {tr("Dimension tool"), tr("Tool for create dimensions on the image view"),
            QStringLiteral(":/Dimension.svg"), names};
}

QList<ParamDescr> LmCvManipDim::ownParams() const
{
    return {{QStringLiteral("pos"), QMetaType::QPoint, ParamDescr::kBlended},
            {QStringLiteral("points"), QMetaType::QPolygon, ParamDescr::kBlended}};
}

QString LmCvManipDim::typeName() const
{
    return tr("Dimension");
}

void LmCvManipDim::setCvEditor(LmCvEditor* aEditor)
{
    LmCvObjectTool::setCvEditor(aEditor);
    if (aEditor)
        connect(aEditor, &LmCvEditor::signalCurrentObjectChanged, this, &LmCvManipDim::tellHint);
}

LmCvObject* LmCvManipDim::newItem(const QString& aLabel)
{
    return new LmCvDimension(this, theCvEditor->canvas(), aLabel, theCvEditor);
}

Q3PointArray LmCvManipDim::offsetPoints(const Q3PointArray& aPoints, const QPoint& aOffset)
{
    Q3PointArray moved;
    moved.reserve(aPoints.size());
    for (const QPoint& point : aPoints)
        moved << PointMath::sum(point, aOffset);
    return moved;
}

LmCvObjectTool::NamedValues LmCvManipDim::geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                                                     const LmKernelObjectData*) const
{
    const Q3PointArray& points = static_cast<const LmCvDimension*>(aItem)->thePoints;
    const QPoint middle = PointMath::middle(points.value(0), points.value(1));
    return {{QStringLiteral("pos"), PointMath::sum(middle, aOrigin)},
            {QStringLiteral("points"), QVariant::fromValue<QPolygon>(offsetPoints(points, aOrigin))}};
}

void LmCvManipDim::applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                                 const QPoint& aOrigin) const
{
    const auto points = aValues[kPoints].getValue().value<Q3PointArray>();
    static_cast<LmCvDimension*>(aItem)->setPoints(
        offsetPoints(points, PointMath::difference(QPoint(), aOrigin)));
}

LmCvDimension* LmCvManipDim::currentDimension() const
{
    LmCvObject* item = theCvEditor ? theCvEditor->theCurrentTrack : nullptr;
    return item && item->rtti() == theObjectType ? static_cast<LmCvDimension*>(item) : nullptr;
}

// The current dimension if it has a height and room for a further width.
LmCvDimension* LmCvManipDim::extensible() const
{
    LmCvDimension* item = currentDimension();
    const bool hasRoom = item && item->thePoints.size() >= 2 && item->thePoints.size() < kMostPoints;
    return hasRoom ? item : nullptr;
}

bool LmCvManipDim::claimsPress(QMouseEvent* aEvent, LmCvObject*)
{
    // The right button keeps its menu.
    return aEvent->button() == Qt::LeftButton && CanvasEvent::holds(*aEvent, Qt::AltModifier) && extensible();
}

void LmCvManipDim::mousePressEvent(QMouseEvent* aEvent)
{
    if (!canDraw()) {
        aEvent->ignore();
        return;
    }
    abortAction(); // the release of an earlier press went astray
    thePressPoint = aEvent->pos();
    if (LmCvDimension* item = extensible(); item && CanvasEvent::holds(*aEvent, Qt::AltModifier)) {
        theCurrent = item;
        theNewSegment = int(item->thePoints.size() / 2);
    } else {
        theCurrent = static_cast<LmCvDimension*>(newItem(QString::number(nextObjectIdx())));
        theNewSegment = 0;
        theCurrent->setPoints(Q3PointArray() << thePressPoint << thePressPoint);
        presentNewItem(theCurrent);
    }
    tellHint();
    aEvent->accept();
}

bool LmCvManipDim::showsNewSegment() const
{
    const Q3PointArray& points = theCurrent->thePoints;
    return points.size() == 2 * theNewSegment + 2 && points[2 * theNewSegment] == thePressPoint;
}

// Before the first move, and when undo, redo or a frame brought the dimension back to its record, the new
// width comes behind those that are there. False if there is no place for one.
bool LmCvManipDim::findNewSegment()
{
    if (showsNewSegment())
        return true;
    const qsizetype count = theCurrent->thePoints.size();
    if (count < 2 || count >= kMostPoints)
        return false;
    theNewSegment = int(count / 2);
    tellHint();
    return true;
}

void LmCvManipDim::mouseMoveEvent(QMouseEvent* aEvent)
{
    if (!theCurrent) {
        aEvent->ignore();
        return;
    }
    const QPoint point = drawnPoint(*aEvent);
    if (!findNewSegment()) {
        abortAction();
        aEvent->accept();
        return;
    }
    Q3PointArray points = theCurrent->thePoints;
    points.resize(2 * theNewSegment + 2);
    points[2 * theNewSegment] = thePressPoint;
    points[2 * theNewSegment + 1] = point;
    theCurrent->setPoints(points);
    updateDisplayValue(theCurrent, theDispValueName, false, true);
    aEvent->accept();
}

void LmCvManipDim::mouseReleaseEvent(QMouseEvent* aEvent)
{
    if (!theCurrent)
        return;
    const bool drewSegment = showsNewSegment();
    LmCvDimension* drawn = std::exchange(theCurrent, nullptr);
    if (theNewSegment == 0)
        storeNewItem(drawn, theDispValueName);
    else if (drewSegment) // an Alt click draws no width
        slotCanvasObjectChanged(drawn);
    tellHint();
    aEvent->accept();
}

bool LmCvManipDim::abortAction()
{
    if (!theCurrent)
        return false;
    if (theNewSegment == 0) {
        discard(theCurrent);
    } else {
        // The dimension goes back to what its record has.
        const int index = getObjectIdx(std::exchange(theCurrent, nullptr));
        if (const LmKernelObjectData* record = recordOf(index))
            slotObjectChangedInKernel(theObjectType, index, record);
    }
    tellHint();
    return true;
}

void LmCvManipDim::forgetItem(const Q3CanvasItem* aItem)
{
    if (aItem != theCurrent)
        return;
    theCurrent = nullptr;
    tellHint();
}

void LmCvManipDim::slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData)
{
    LmCvObjectTool::slotObjectChangedInKernel(aType, aIdx, aData);
    tellHint();
}

void LmCvManipDim::recreateCanvasObjects(QPoint aOrigin, long long aFrame, bool aAll)
{
    LmCvObjectTool::recreateCanvasObjects(aOrigin, aFrame, aAll);
    tellHint();
}

QString LmCvManipDim::hint() const
{
    if (theCurrent && theNewSegment > 0)
        return tr("Release to end width %1 (Shift: steps of 45 degrees); Esc drops it.").arg(theNewSegment);
    if (theCurrent)
        return tr("Release to end the height (Shift: steps of 45 degrees); Esc drops it.");
    if (const LmCvDimension* item = extensible())
        return tr("Drag for the height of a new dimension, with Alt for width %1 of dimension %2.")
            .arg(item->thePoints.size() / 2)
            .arg(item->theLabel);
    if (const LmCvDimension* item = currentDimension())
        return tr("Drag for the height of a new dimension; dimension %1 has all its widths.")
            .arg(item->theLabel);
    return tr("Drag for the height of a new dimension.");
}
