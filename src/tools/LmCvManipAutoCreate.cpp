#include "LmCvManipAutoCreate.h"

#include "LmCvEditor.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "PointMath.h"
#include "Q3CanvasRectangle.h"
#include "Q3PopupMenu.h"

#include <QMouseEvent>
#include <QPen>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace {

constexpr int kCreatesFlag = 256;
constexpr int kSingleId = 0;
constexpr int kGroupId = 1;
constexpr int kFirstTypeId = 2;
constexpr qint64 kShakeLimit = 11; // square of the way below which a hand only trembles; pixels
constexpr qint64 kRubberLimit =
    101; // square of the way from which a rectangle is meant: longer than 10 pixels

QCursor crossCursor(const QString& aFile)
{
    return QCursor(QPixmap(aFile), 15, 15);
}

qint64 squaredWay(const QPoint& aFrom, const QPoint& aTo)
{
    const QPoint way = PointMath::difference(aTo, aFrom);
    constexpr qint64 kFar = 1 << 30; // its square still fits
    const qint64 w = std::clamp<qint64>(way.x(), -kFar, kFar);
    const qint64 h = std::clamp<qint64>(way.y(), -kFar, kFar);
    return w * w + h * h;
}

} // namespace

LmCvManipAutoCreate::LmCvManipAutoCreate(QObject* aParent)
    : LmCvManipulator(aParent), theSingleCursor(crossCursor(QStringLiteral(":/CrossCursor.png"))),
      theGroupCursor(crossCursor(QStringLiteral(":/GroupCrossCursor.png")))
{
}

LmCvManipAutoCreate::LmCvManipAutoCreate(QToolBar* aToolBar, QObject* aParent) : LmCvManipAutoCreate(aParent)
{
    LmCvManipAutoCreate::initManipulator(aToolBar);
}

LmCvManipAutoCreate::~LmCvManipAutoCreate()
{
    dropRubber();
    if (theMenu && !theMenu->parent())
        delete theMenu;
}

void LmCvManipAutoCreate::initManipulator(QToolBar* aToolBar)
{
    LmCvManipulator::initManipulator(aToolBar);
    theInitDone = true;
    connect(theKernel, SIGNAL(signalManipulatorsLoaded()), this, SLOT(slotManipulatorsLoaded()));
}

void LmCvManipAutoCreate::setCvEditor(LmCvEditor* aEditor)
{
    dropRubber();
    LmCvManipulator::setCvEditor(aEditor);
    if (!aEditor)
        return;
    connect(aEditor, SIGNAL(signalCanvasObjectChanged(LmCvObject*)), this,
            SLOT(slotCanvasObjectChanged(LmCvObject*)));
    connect(aEditor->canvas(), &Q3Canvas::itemRemoved, this, &LmCvManipAutoCreate::forgetRubber);
}

void LmCvManipAutoCreate::forgetRubber(const Q3CanvasItem* aItem)
{
    if (aItem == theOuterRubber)
        theOuterRubber = nullptr;
    if (aItem == theInnerRubber)
        theInnerRubber = nullptr;
}

void LmCvManipAutoCreate::slotCanvasObjectChanged(LmCvObject*) {}

QIcon& LmCvManipAutoCreate::getIconSet(const QString& aType)
{
    return aType == tr("Ellipse") ? theEllipseIcon : theOtherIcon;
}

const QCursor& LmCvManipAutoCreate::getCursor() const
{
    return theGroupMode ? theGroupCursor : theSingleCursor;
}

LmCvManipulator* LmCvManipAutoCreate::objectTool()
{
    return theKernelData->getCvManipulator(theNameToType.value(theCurrentTypeName, -1));
}

QString LmCvManipAutoCreate::hint() const
{
    const QString name = theCurrentTypeName.isEmpty() ? tr("object") : theCurrentTypeName;
    if (theGroupMode)
        return tr("Drag a rectangle around the things to find; each becomes a %1.").arg(name);
    return tr("Click a thing, or drag over its colors, to make a %1 of it; with Alt it reshapes the current "
              "one.")
        .arg(name);
}

void LmCvManipAutoCreate::slotManipulatorsLoaded()
{
    if (theMenu)
        return;
    auto* menu = new Q3PopupMenu(theToolButton);
    menu->setTitle(tr("Auto create options"));
    theMenu = menu;
    connect(menu, &QObject::destroyed, this, [this] { theMenu = nullptr; });
    fillMenu();
    menu->setItemChecked(kSingleId, true);
    connect(menu, SIGNAL(activated(int)), this, SLOT(slotMenuItemActivated(int)));
    Q_EMIT signalHintChanged();
}

void LmCvManipAutoCreate::fillMenu()
{
    auto* menu = qobject_cast<Q3PopupMenu*>(theMenu);
    QIcon firstIcon;
    int id = kFirstTypeId;
    const QList<LmCvManipulator*> tools = theKernelData->getCvManipulatorList();
    for (LmCvManipulator* tool : tools) {
        if ((tool->getCvObjectFlags(nullptr) & kCreatesFlag) == 0)
            continue;
        const QStringList names = tool->getObjectTypeNames();
        for (const QString& name : names) {
            const QIcon icon = tool->getAutoCreationIconSet(name);
            if (firstIcon.isNull()) {
                firstIcon = icon;
                theCurrentTypeName = name;
            }
            theIdToName.insert(id, name);
            theNameToType.insert(name, tool->theObjectType);
            menu->insertItem(icon, name, id++);
        }
    }
    menu->insertSeparator();
    menu->insertItem(tr("Single"), kSingleId);
    menu->insertItem(tr("Group"), kGroupId);
    dressButton(firstIcon);
}

void LmCvManipAutoCreate::dressButton(const QIcon& aIcon)
{
    if (!theToolButton)
        return;
    theToolButton->setIcon(aIcon);
    theToolButton->setAutoRaise(true);
    theToolButton->setToolTip(tr("Auto create tool"));
    theToolButton->setWhatsThis(tr("Tool for automated creating of objects on the image view"));
    theToolButton->setMenu(theMenu);
    theToolButton->setPopupMode(QToolButton::MenuButtonPopup);
}

void LmCvManipAutoCreate::slotMenuItemActivated(int aId)
{
    if (aId == kSingleId || aId == kGroupId) {
        theGroupMode = aId == kGroupId;
    } else {
        theCurrentTypeName = theIdToName.value(aId);
        LmCvManipulator* tool = objectTool();
        if (!tool)
            return;
        if (theToolButton)
            theToolButton->setIcon(tool->getAutoCreationIconSet(theCurrentTypeName));
    }
    if (auto* menu = qobject_cast<Q3PopupMenu*>(theMenu)) {
        menu->setItemChecked(kSingleId, !theGroupMode);
        menu->setItemChecked(kGroupId, theGroupMode);
    }
    if (theToolButton)
        theToolButton->setChecked(true);
    Q_EMIT signalHintChanged();
}

const LmImage* LmCvManipAutoCreate::picture() const
{
    const LmImage* image = theKernelData->getShownImage();
    return image && image->theImageSize > 0 ? image : nullptr;
}

bool LmCvManipAutoCreate::readColour(const QPoint& aCanvasPoint, unsigned char* aColour) const
{
    const LmImage* image = picture();
    if (!image)
        return false;
    const QPoint point = PointMath::sum(aCanvasPoint, theKernelData->origin());
    image->getDataAt(point.x(), point.y(), aColour[0], aColour[1], aColour[2], 0);
    return true;
}

void LmCvManipAutoCreate::mousePressEvent(QMouseEvent* aEvent)
{
    thePressPos = aEvent->pos();
    // One whose release found no tool, or never came, would be searched by the next click.
    dropRubber();
    if (!readColour(thePressPos, theSeedColour)) {
        aEvent->ignore();
        return;
    }
    aEvent->accept();
    std::copy_n(theSeedColour, 3, theMinColour);
    std::copy_n(theSeedColour, 3, theMaxColour);
}

void LmCvManipAutoCreate::mouseMoveEvent(QMouseEvent* aEvent)
{
    if (!picture())
        return;
    const QPoint point = aEvent->pos();
    const qint64 way = squaredWay(thePressPos, point);
    if (way >= kRubberLimit && theGroupMode)
        stretchRubber(point);
    else if (way >= kShakeLimit && !theGroupMode)
        widenColours(point);
    aEvent->accept();
}

void LmCvManipAutoCreate::widenColours(const QPoint& aCanvasPoint)
{
    unsigned char colour[3];
    if (!readColour(aCanvasPoint, colour))
        return;
    for (int i = 0; i < 3; ++i) {
        theMinColour[i] = std::min(theMinColour[i], colour[i]);
        theMaxColour[i] = std::max(theMaxColour[i], colour[i]);
    }
}

// At its first move the rectangle holds both pixels, of press and mouse; later its size is the way between
// them, a row and a column less.
void LmCvManipAutoCreate::stretchRubber(const QPoint& aCanvasPoint)
{
    if (!theCvEditor)
        return;
    const QPoint topLeft(std::min(thePressPos.x(), aCanvasPoint.x()),
                         std::min(thePressPos.y(), aCanvasPoint.y()));
    const QPoint bottomRight(std::max(thePressPos.x(), aCanvasPoint.x()),
                             std::max(thePressPos.y(), aCanvasPoint.y()));
    if (!theOuterRubber) {
        const QRect rect(topLeft, bottomRight);
        theOuterRubber = newRubber(rect, QColor(QStringLiteral("black")), Qt::SolidLine, 0.0);
        theInnerRubber = newRubber(rect, QColor(QStringLiteral("white")), Qt::DashLine, 1.0);
    } else {
        const QPoint size = bottomRight - topLeft;
        for (Q3CanvasRectangle* rubber : {theOuterRubber, theInnerRubber}) {
            rubber->move(topLeft.x(), topLeft.y());
            rubber->setSize(size.x(), size.y());
        }
    }
    theCvEditor->canvas()->update();
}

Q3CanvasRectangle* LmCvManipAutoCreate::newRubber(const QRect& aRect, const QColor& aColour,
                                                  Qt::PenStyle aStyle, double aZ)
{
    auto* rubber = new Q3CanvasRectangle(aRect, theCvEditor->canvas());
    rubber->setPen(QPen(aColour, 0, aStyle, Qt::SquareCap, Qt::BevelJoin));
    rubber->setZ(aZ);
    rubber->show();
    return rubber;
}

bool LmCvManipAutoCreate::dropRubber()
{
    if (!theOuterRubber)
        return false;
    delete std::exchange(theInnerRubber, nullptr);
    delete std::exchange(theOuterRubber, nullptr);
    if (theCvEditor)
        theCvEditor->canvas()->update();
    return true;
}

bool LmCvManipAutoCreate::abortAction()
{
    return dropRubber();
}
