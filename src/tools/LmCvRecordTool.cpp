#include "LmCvRecordTool.h"

#include "CmdCreateObject.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <QPolygon>
#include <QToolButton>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

// Held at the ends of the range of int.
int scaled(int aCoordinate, double aRatio)
{
    using Range = std::numeric_limits<int>;
    return qRound(std::clamp(aCoordinate * aRatio, double(Range::min()), double(Range::max())));
}

QPoint scaled(const QPoint& aPoint, double aRatio)
{
    return QPoint(scaled(aPoint.x(), aRatio), scaled(aPoint.y(), aRatio));
}

// A point or each point of a list times the ratio; an invalid variant for a value without points.
QVariant scaled(const QVariant& aValue, double aRatio)
{
    if (aValue.typeId() == QMetaType::QPoint)
        return scaled(aValue.toPoint(), aRatio);
    if (aValue.typeId() != QMetaType::QPolygon)
        return QVariant();
    QPolygon points = aValue.value<QPolygon>();
    for (QPoint& point : points)
        point = scaled(point, aRatio);
    return QVariant::fromValue<QPolygon>(points);
}

} // namespace

LmCvRecordTool::LmCvRecordTool(int aObjectType, QObject* aParent) : LmCvManipulator(aParent)
{
    theObjectType = aObjectType;
}

LmCvRecordTool::~LmCvRecordTool() = default;

QStringList LmCvRecordTool::getObjectTypeNames()
{
    return {typeName()};
}

QString LmCvRecordTool::getObjectName(int)
{
    return typeName();
}

QString LmCvRecordTool::getObjectName(const LmCvObject*)
{
    return typeName();
}

QIcon& LmCvRecordTool::getIconSet(const QString&)
{
    return theToolIcon;
}

void LmCvRecordTool::initManipulator(QToolBar* aToolBar)
{
    LmCvManipulator::initManipulator(aToolBar);
    if (!registerWithKernel())
        return;
    connectKernel();

    const Texts own = texts();
    theToolIcon.addFile(own.theIconFile, QSize(-1, -1), QIcon::Normal, QIcon::Off);
    if (theToolButton) {
        theToolButton->setIcon(theToolIcon);
        theToolButton->setToolTip(own.theToolTip);
        theToolButton->setWhatsThis(own.theHelp);
        theToolButton->setAccessibleName(own.theToolTip);
    }
    theValueNames += own.theValueNames;
}

bool LmCvRecordTool::registerWithKernel()
{
    theInitDone = theKernelData->registerObjectType(this, theObjectType);
    if (!theInitDone)
        return false;
    std::unique_ptr<LmKernelObjectDataDescr> ours(createDescriptor());
    theInitDone = theKernelData->registerDataDescriptor(ours.get(), theObjectType);
    if (theInitDone)
        ours.release(); // the kernel owns it now
    return theInitDone;
}

LmKernelObjectDataDescr* LmCvRecordTool::createDescriptor() const
{
    const QList<ParamDescr> own = ownParams();
    auto* descr = new LmKernelObjectDataDescr(theObjectType, kFirstOwnParam + int(own.size()));
    descr->addParamDescr(kVisible, QStringLiteral("vis"), QMetaType::Bool, ParamDescr::kWhole);
    descr->addParamDescr(kColor, QStringLiteral("col"), QMetaType::QColor, ParamDescr::kWhole);
    descr->addParamDescr(kShownValue, QStringLiteral("dispv"), QMetaType::QString, ParamDescr::kWhole);
    unsigned int index = kFirstOwnParam;
    for (const ParamDescr& param : own)
        descr->addParamDescr(index++, param.theName, param.theType, param.theKeyframeType);
    return descr;
}

void LmCvRecordTool::setCvEditor(LmCvEditor* aEditor)
{
    LmCvManipulator::setCvEditor(aEditor);
    if (!aEditor)
        return;
    connect(aEditor, SIGNAL(signalCanvasObjectChanged(LmCvObject*)), this,
            SLOT(slotCanvasObjectChanged(LmCvObject*)));
    connect(aEditor->canvas(), &Q3Canvas::itemRemoved, this, &LmCvRecordTool::forgetItem);
}

void LmCvRecordTool::forgetItem(const Q3CanvasItem*) {}

void LmCvRecordTool::tellHint()
{
    const QString now = hint();
    if (now == theToldHint)
        return;
    theToldHint = now;
    Q_EMIT signalHintChanged();
}

bool LmCvRecordTool::canDraw() const
{
    return theInitDone && theCvEditor;
}

LmKernelObjectDataDescr* LmCvRecordTool::descriptor() const
{
    return theKernelData->getDataDescriptor(theObjectType);
}

LmKernelObjectData* LmCvRecordTool::recordOf(int aIdx) const
{
    return theKernelData->getObject(theObjectType, aIdx);
}

QVariant LmCvRecordTool::sharedValue(const LmParamKeyframeVector& aValues, CommonParam aParam) const
{
    return aValues[aParam].getValue();
}

LmParamKeyframeVector LmCvRecordTool::vectorOf(const NamedValues& aValues) const
{
    const LmKernelObjectDataDescr* descr = descriptor();
    LmParamKeyframeVector vector = descr->createKeyframeVector();
    for (const auto& [name, value] : aValues)
        if (!descr->setValue(vector, name, value))
            break;
    return vector;
}

void LmCvRecordTool::pushCreation(int aIdx, const NamedValues& aValues)
{
    auto* record = new LmKernelObjectData(vectorOf(aValues), descriptor()->getKeyframeTypes(), 0);
    pushOwn(new CmdCreateObject(theObjectType, aIdx, record));
}

void LmCvRecordTool::slotFrameReadyStopInKernel(Int64 aFrame)
{
    if (!theSelfChange)
        recreateCanvasObjects(theKernelData->origin(), aFrame, theCurrentViewAnimated);
}

void LmCvRecordTool::slotCurrentResChangedByCameraInKernel(QSize aOldSize, QSize aNewSize)
{
    if (aOldSize.width() <= 0)
        return;
    // Only the default keyframes are rescaled: the keyframes of an animated object keep their old scale.
    const double ratio = double(aNewSize.width()) / aOldSize.width();
    for (const int index : shownIndexes()) {
        LmKernelObjectData* record = recordOf(index);
        if (!record)
            continue;
        LmParamKeyframeVector values = record->getDefaultKeyframes();
        for (int param = kFirstOwnParam; param < values.size(); ++param) {
            const QVariant value = scaled(values[param].getValue(), ratio);
            if (value.isValid())
                values.setValue(param, value);
        }
        record->update(values);
    }
    recreateCanvasObjects(theKernelData->origin(), kDefaultFrame, true);
}
