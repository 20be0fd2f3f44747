#include "LmCvManipAngle.h"

#include "ArmDirection.h"
#include "DegreeValue.h"
#include "LmCvAngle.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PointMath.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace {

const QPoint kFirstArms(10, 10); // from the press until the first move; an arm needs a length
constexpr double kHalfTurn = 3.141592653589793;

} // namespace

LmCvManipAngle::LmCvManipAngle(QObject* aParent) : LmCvObjectTool(LmCvAngle::kRtti, aParent)
{
    loadRulerCursor(QStringLiteral(":/AngleCursor.png"));
}

LmCvManipAngle::LmCvManipAngle(QToolBar* aToolBar, QObject* aParent) : LmCvManipAngle(aParent)
{
    LmCvManipAngle::initManipulator(aToolBar);
}

LmCvManipAngle::~LmCvManipAngle() = default;

LmCvObjectTool::Texts LmCvManipAngle::texts() const
{
    return {tr("Angle tool"),
            tr("Tool for create angles on the image view"),
            QStringLiteral(":/Angle.svg"),
            {tr("Angle")}};
}

QList<ParamDescr> LmCvManipAngle::ownParams() const
{
    return {{QStringLiteral("pos"), QMetaType::QPoint, ParamDescr::kBlended},
            {QStringLiteral("ep1"), QMetaType::QPoint, ParamDescr::kBlended},
            {QStringLiteral("ep2"), QMetaType::QPoint, ParamDescr::kBlended}};
}

QString LmCvManipAngle::typeName() const
{
    return tr("Angle");
}

LmCvObject* LmCvManipAngle::newItem(const QString& aLabel)
{
    return new LmCvAngle(this, theCvEditor->canvas(), aLabel, theCvEditor);
}

LmCvObjectTool::NamedValues LmCvManipAngle::geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                                                       const LmKernelObjectData*) const
{
    const auto* angle = static_cast<const LmCvAngle*>(aItem);
    return {{QStringLiteral("pos"), PointMath::sum(angle->theVertex, aOrigin)},
            {QStringLiteral("ep1"), PointMath::difference(angle->theEnd1, angle->theVertex)},
            {QStringLiteral("ep2"), PointMath::difference(angle->theEnd2, angle->theVertex)}};
}

void LmCvManipAngle::applyGeometry(LmCvObject* aItem, const LmParamKeyframeVector& aValues,
                                   const QPoint& aOrigin) const
{
    const QPoint vertex = PointMath::difference(aValues[kPos].getValue().toPoint(), aOrigin);
    static_cast<LmCvAngle*>(aItem)->setPoints(vertex,
                                              PointMath::sum(vertex, aValues[kEp1].getValue().toPoint()),
                                              PointMath::sum(vertex, aValues[kEp2].getValue().toPoint()));
}

QString LmCvManipAngle::hint() const
{
    if (theStage == kSecondStroke)
        return tr("Click at the end of the other arm (Shift: steps of 45 degrees); Esc drops the angle.");
    if (theCurrent)
        return tr("Release at the end of one arm (Shift: steps of 45 degrees).");
    return tr("Press on the vertex of an angle and pull to the end of one arm.");
}

void LmCvManipAngle::mousePressEvent(QMouseEvent* aEvent)
{
    if (!canDraw()) {
        aEvent->ignore();
        return;
    }
    // The second stroke ends with the release; its press does nothing by itself.
    if (theStage == kFirstStroke)
        startDrawing(aEvent->pos());
    aEvent->accept();
}

void LmCvManipAngle::startDrawing(const QPoint& aPoint)
{
    thePressPoint = aPoint;
    theCurrent = static_cast<LmCvAngle*>(newItem(QString::number(nextObjectIdx())));
    const QPoint end = PointMath::sum(thePressPoint, kFirstArms);
    theCurrent->setPoints(thePressPoint, end, end);
    presentNewItem(theCurrent);
    Q_EMIT signalHintChanged();
}

void LmCvManipAngle::mouseMoveEvent(QMouseEvent* aEvent)
{
    if (!theCurrent) {
        aEvent->ignore();
        return;
    }
    const QPoint point = drawnPoint(*aEvent);
    theCurrent->setPoints(thePressPoint, point, theStage == kFirstStroke ? point : theCurrent->theEnd2);
    updateDisplayValue(theCurrent, theLastUsedValueName, false, true);
    aEvent->accept();
}

void LmCvManipAngle::mouseReleaseEvent(QMouseEvent* aEvent)
{
    if (!theCurrent)
        return;
    if (theStage == kFirstStroke)
        startSecondStroke();
    else
        finishDrawing();
    aEvent->accept();
}

void LmCvManipAngle::startSecondStroke()
{
    theCvEditor->setMouseGrabber(this, true);
    theStage = kSecondStroke;
    Q_EMIT signalHintChanged();
}

void LmCvManipAngle::finishDrawing()
{
    storeNewItem(std::exchange(theCurrent, nullptr), theLastUsedValueName);
    endDrawing();
}

// The item of the drawing is stored or gone.
void LmCvManipAngle::endDrawing()
{
    theStage = kFirstStroke;
    // An action may end while another tool holds the mouse.
    if (theCvEditor && theCvEditor->mouseGrabber() == this)
        theCvEditor->setMouseGrabber(nullptr, false);
    Q_EMIT signalHintChanged();
}

void LmCvManipAngle::forgetItem(const Q3CanvasItem* aItem)
{
    if (aItem != theCurrent)
        return;
    theCurrent = nullptr;
    endDrawing();
}

bool LmCvManipAngle::abortAction()
{
    if (!discard(theCurrent))
        return false;
    endDrawing();
    return true;
}

void LmCvManipAngle::removeCvObject(LmCvObject* aObject)
{
    if (aObject && aObject == theCurrent)
        abortAction();
    else
        LmCvObjectTool::removeCvObject(aObject);
}

void LmCvManipAngle::keyPressEvent(QKeyEvent* aEvent)
{
    const bool deletes = aEvent->key() == Qt::Key_Delete || aEvent->key() == Qt::Key_Backspace;
    aEvent->setAccepted(deletes && abortAction());
}

double LmCvManipAngle::calcAngle(const QPoint& aVertex, const QPoint& aA, const QPoint& aB)
{
    const double toA = ArmDirection::of(aVertex, aA, 1.0, kHalfTurn);
    const double toB = ArmDirection::of(aVertex, aB, 1.0, kHalfTurn);
    return toB > toA ? toA - toB + 2.0 * kHalfTurn : toA - toB;
}

QVariant LmCvManipAngle::getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit)
{
    aUnit = QString();
    if (!aObject || aObject->rtti() != theObjectType || aName != tr("Angle"))
        return QVariant();
    aUnit = DegreeValue::unit();
    const auto* angle = static_cast<const LmCvAngle*>(aObject);
    return DegreeValue::ofRadians(calcAngle(angle->theVertex, angle->theEnd1, angle->theEnd2));
}

QLinkedList<QVariant> LmCvManipAngle::getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                                QStringList& aUnits)
{
    const LmParamKeyframeVector keyframes = aData->getKeyframesAt(theKernelData->theCurrentFrame);
    const QPoint pos = keyframes[kPos].getValue().toPoint();
    const QPoint end1 = PointMath::sum(pos, keyframes[kEp1].getValue().toPoint());
    const QPoint end2 = PointMath::sum(pos, keyframes[kEp2].getValue().toPoint());
    return valuesOf(aNames, aUnits, [&](const QString& aName, QString& aUnit) {
        aUnit = DegreeValue::unit();
        return aName == tr("Angle") ? QVariant(DegreeValue::ofRadians(calcAngle(pos, end1, end2)))
                                    : QVariant();
    });
}
