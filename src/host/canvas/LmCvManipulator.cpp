#include "LmCvManipulator.h"

#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "Q3PointArray.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolBar>
#include <QToolButton>

QString LmCvManipulator::theLastUsedValueName;
QLinkedList<LmParamKeyframe> LmCvManipulator::theClipboardKeyframes;
bool LmCvManipulator::theCurrentViewAnimated = false;

namespace {

/// "Distance 3": how undo texts call an object.
QString objectText(int aType, int aIdx)
{
    LmCvManipulator* tool = LmKSKernelData::getInstance()->getCvManipulator(aType);
    const QString name = tool ? tool->getObjectName(aIdx) : QString();
    return name + QLatin1Char(' ') + QString::number(aIdx);
}

/// The kernel stores point lists as QPolygon; tools may write and read them as Q3PointArray.
void bridgePolygonTypes()
{
    if (QMetaType::hasRegisteredConverterFunction<Q3PointArray, QPolygon>())
        return;
    QMetaType::registerConverter<Q3PointArray, QPolygon>(
        [](const Q3PointArray& aPoints) { return static_cast<const QPolygon&>(aPoints); });
    QMetaType::registerConverter<QPolygon, Q3PointArray>(
        [](const QPolygon& aPolygon) { return Q3PointArray(aPolygon); });
}

} // namespace

LmCvManipulator::LmCvManipulator(QObject* aParent) : QObject(aParent)
{
    initMembers();
}

LmCvManipulator::LmCvManipulator(QToolBar* aToolBar, QObject* aParent)
    : QObject(aParent), theToolBar(aToolBar)
{
    initMembers();
}

LmCvManipulator::~LmCvManipulator()
{
    theKernelData->unregisterManipulator(this);
    if (theCvEditor)
        theCvEditor->forgetManipulator(this);
}

void LmCvManipulator::initMembers()
{
    theKernelData = LmKSKernelData::getInstance();
    theKernel = theKernelData;
    theKernelData->setObjectNamer(&objectText);
    bridgePolygonTypes();
}

void LmCvManipulator::initManipulator(QToolBar* aToolBar)
{
    theToolBar = aToolBar;
    if (!theToolBar || theToolButton)
        return;
    connect(theToolBar, &QObject::destroyed, this, [this] { theToolBar = nullptr; });
    theToolButton = makeToolButton();
    theToolBar->addWidget(theToolButton);
}

QToolButton* LmCvManipulator::newToolButton()
{
    auto* button = new QToolButton;
    // By this name the editor finds the buttons of all tools and lets one of them be on.
    button->setObjectName(QStringLiteral("manipulator button"));
    button->setFixedSize(35, 35);
    button->setIconSize(QSize(32, 32));
    button->setFocusPolicy(Qt::NoFocus);
    button->setCheckable(true);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    return button;
}

QToolButton* LmCvManipulator::makeToolButton()
{
    QToolButton* button = newToolButton();
    connect(button, &QToolButton::toggled, this, &LmCvManipulator::slotToolToggled);
    connect(button, &QObject::destroyed, this, [this] { theToolButton = nullptr; });
    return button;
}

void LmCvManipulator::setUndoStack(QUndoStack* aStack)
{
    theUndoStack = aStack;
}

void LmCvManipulator::setCvEditor(LmCvEditor* aEditor)
{
    theCvEditor = aEditor;
    if (theCvEditor)
        connect(theCvEditor, &QObject::destroyed, this, [this, aEditor] {
            if (theCvEditor == aEditor)
                theCvEditor = nullptr;
        });
}

void LmCvManipulator::makeCurrent()
{
    if (theCvEditor)
        theCvEditor->setCurrentManipulator(this);
}

int LmCvManipulator::getSwitchModifier()
{
    return 0;
}

int LmCvManipulator::getCvObjectFlags(LmCvObject*)
{
    return 157;
}

QLinkedList<QPair<QString, int>> LmCvManipulator::getCustomActions()
{
    return {};
}

QStringList LmCvManipulator::getAnimatedValueNames()
{
    return theValueNames;
}

QStringList LmCvManipulator::getObjectTypeNames()
{
    return {};
}

QIcon& LmCvManipulator::getIconSet(const QString&)
{
    return theIcon;
}

QIcon& LmCvManipulator::getAutoCreationIconSet(const QString&)
{
    return theIcon;
}

bool LmCvManipulator::allObjectsNeedRecalc()
{
    return false;
}

QString LmCvManipulator::getObjectName(int)
{
    return QString();
}

QString LmCvManipulator::getObjectName(const LmCvObject*)
{
    return QString();
}

LmCvObject* LmCvManipulator::getCvObject(int aIdx)
{
    return theCvObjects.value(aIdx);
}

const QCursor& LmCvManipulator::getCursor() const
{
    return theCursor;
}

void LmCvManipulator::mouseLeaveEvent(QEvent*) {}

void LmCvManipulator::mousePressEvent(QMouseEvent* aEvent)
{
    aEvent->ignore();
}

void LmCvManipulator::mouseReleaseEvent(QMouseEvent* aEvent)
{
    aEvent->ignore();
}

void LmCvManipulator::mouseMoveEvent(QMouseEvent* aEvent)
{
    aEvent->ignore();
}

void LmCvManipulator::contextMenuEvent(QContextMenuEvent* aEvent)
{
    aEvent->ignore();
}

void LmCvManipulator::mouseDoubleClickEvent(QMouseEvent* aEvent)
{
    aEvent->ignore();
}

void LmCvManipulator::keyPressEvent(QKeyEvent* aEvent)
{
    aEvent->ignore();
}

void LmCvManipulator::keyReleaseEvent(QKeyEvent* aEvent)
{
    aEvent->ignore();
}

bool LmCvManipulator::drop(QDropEvent*)
{
    return false;
}

bool LmCvManipulator::claimsPress(QMouseEvent*, LmCvObject*)
{
    return false;
}

bool LmCvManipulator::abortAction()
{
    return false;
}

QString LmCvManipulator::hint() const
{
    return theToolButton ? theToolButton->whatsThis() : QString();
}

void LmCvManipulator::editCvObject(LmCvObject*, QPoint) {}

void LmCvManipulator::actionOnCvObject(LmCvObject*, QPoint, int) {}

int LmCvManipulator::createObjectFromContour(const LmCVSequence&, QString)
{
    return -1;
}

void LmCvManipulator::modifyObjectFromContour(const LmCVSequence&, int) {}

LmParamKeyframeVector LmCvManipulator::createKeyframesFromContour(LmCvObject*, const LmCVSequence&, long long)
{
    return LmParamKeyframeVector();
}

void LmCvManipulator::constructDataObject(const QDomElement&, QProgressDialog*) {}

void LmCvManipulator::recreateCanvasObjects(QPoint, long long, bool) {}

// Which of a type's parameters make a path is known to its tool alone.
void LmCvManipulator::copyAnimKeyframes(const LmCvObject*, const QPoint&) {}

void LmCvManipulator::pasteAnimKeyframes(const LmCvObject*, const QPoint&) {}

int LmCvManipulator::indexOf(const LmCvObject& aObject) const
{
    // The label is the index as text: looking there first keeps a pass over all objects linear.
    bool isNumber = false;
    const int labelIdx = aObject.theLabel.toInt(&isNumber);
    if (isNumber && theCvObjects.value(labelIdx) == &aObject)
        return labelIdx;
    return theCvObjects.key(const_cast<LmCvObject*>(&aObject), -1);
}

LmCvManipulator* LmCvManipulator::objectTool()
{
    return this;
}

int LmCvManipulator::nextObjectIdx() const
{
    return theCvObjects.isEmpty() ? 1 : theCvObjects.lastKey() + 1;
}

void LmCvManipulator::prepareItem(LmCvObject* aItem)
{
    QString unit;
    const double step = theKernelData->currentStep(unit);
    aItem->setStep(step, unit);
    if (theCvEditor)
        aItem->adjustScale(theCvEditor->worldMatrix());
}

void LmCvManipulator::makeItemCurrent(LmCvObject* aItem)
{
    if (theCvEditor)
        theCvEditor->activateItem(aItem);
}
