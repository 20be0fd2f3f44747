#include "LmCvManipRegion.h"

#include "LmCvEditor.h"
#include "LmCvRegion.h"
#include "Q3CanvasLine.h"
#include "Q3PopupMenu.h"

#include <QKeyEvent>
#include <QPixmap>
#include <QSignalBlocker>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int kRegionType = 1103;
// Those of every object tool and 256: contours found in the image can become regions.
constexpr int kRegionFlags = 988;

enum MenuEntry { kSmoothEntry = 0, kAutoShapeEntry = 1 };

} // namespace

LmCvManipRegion::LmCvManipRegion(QObject* aParent)
    : LmCvObjectTool(kRegionType, aParent),
      theRegionCursor(QPixmap(QStringLiteral(":/RegionCursor.png")), 15, 6),
      thePencilCursor(QPixmap(QStringLiteral(":/PencilCursor.png")), 11, 8),
      theCrossCursor(QPixmap(QStringLiteral(":/CrossCursor.png")), 15, 15)
{
}

LmCvManipRegion::LmCvManipRegion(QToolBar* aToolBar, QObject* aParent) : LmCvManipRegion(aParent)
{
    LmCvManipRegion::initManipulator(aToolBar);
}

LmCvManipRegion::~LmCvManipRegion()
{
    delete theRubberLine;
}

LmCvObjectTool::Texts LmCvManipRegion::texts() const
{
    return {tr("Pen tool"),
            tr("Pen tool for creating regions on the image view"),
            QStringLiteral(":/Region.svg"),
            {tr("Width"), tr("Height"), tr("Length/Perim."), tr("Area"), tr("Avg. lightness"),
             tr("Avg. saturation")}};
}

QList<ParamDescr> LmCvManipRegion::ownParams() const
{
    return {{QStringLiteral("cl"), QMetaType::Bool, ParamDescr::kWhole},
            {QStringLiteral("pts"), QMetaType::QPolygon, ParamDescr::kBlended},
            {QStringLiteral("nst"), QMetaType::QByteArray, ParamDescr::kHeld},
            {QStringLiteral("pos"), QMetaType::QPoint, ParamDescr::kBlended}};
}

void LmCvManipRegion::initManipulator(QToolBar* aToolBar)
{
    LmCvObjectTool::initManipulator(aToolBar);
    if (!theInitDone)
        return;
    theIcon = theToolIcon;
    thePencilIcon.addFile(QStringLiteral(":/RegionPoly.svg"));
    theAutoIcon.addFile(QStringLiteral(":/RegionPoly auto.svg"));
    if (!theToolButton || thePencilButton)
        return;
    connect(theToolButton, SIGNAL(toggled(bool)), this, SLOT(slotToolButtonToggled(bool)));
    makePencilButton();
    makePencilMenu();
}

void LmCvManipRegion::makePencilButton()
{
    thePencilButton = newToolButton();
    thePencilButton->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    thePencilButton->setIcon(thePencilIcon);
    thePencilButton->setAutoRaise(true);
    thePencilButton->setToolTip(tr("Pencil tool"));
    thePencilButton->setWhatsThis(tr("Pencil tool for creating regions on the image view"));
    thePencilButton->setAccessibleName(tr("Pencil tool"));
    connect(thePencilButton, SIGNAL(toggled(bool)), this, SLOT(slotToolButtonPToggled(bool)));
    connect(thePencilButton, &QObject::destroyed, this, [this] {
        thePencilButton = nullptr;
        thePencilMenu = nullptr;
    });
    theToolBar->addWidget(thePencilButton);
}

void LmCvManipRegion::makePencilMenu()
{
    thePencilMenu = new Q3PopupMenu(thePencilButton);
    thePencilMenu->setTitle(tr("Pencil options"));
    thePencilMenu->insertItem(tr("Smooth"), kSmoothEntry);
    thePencilMenu->insertItem(tr("Auto Shape"), kAutoShapeEntry);
    thePencilMenu->setItemChecked(kSmoothEntry, false);
    thePencilMenu->setItemChecked(kAutoShapeEntry, false);
    thePencilMenu->setItemEnabled(kAutoShapeEntry, false);
    connect(thePencilMenu, SIGNAL(activated(int)), this, SLOT(slotMenuItemActivated(int)));
    thePencilButton->setMenu(thePencilMenu);
}

void LmCvManipRegion::slotMenuItemActivated(int aId)
{
    if (aId == kSmoothEntry)
        theSmooth = !theSmooth;
    else if (aId == kAutoShapeEntry)
        theAutoShape = !theAutoShape;
    if (!thePencilMenu)
        return;
    thePencilMenu->setItemChecked(kSmoothEntry, theSmooth);
    thePencilMenu->setItemChecked(kAutoShapeEntry, theAutoShape);
    // Only smoothing looks for shapes; the choice is kept for when it is on again.
    thePencilMenu->setItemEnabled(kAutoShapeEntry, theSmooth);
    thePencilButton->setChecked(true);
}

void LmCvManipRegion::slotToolButtonToggled(bool)
{
    leaveOutline();
    thePencilMode = false;
    if (theCvEditor && theCvEditor->theCurrentManipulator == this)
        theCvEditor->setCurrentManipulator(this); // for the pen's cursor
    Q_EMIT signalHintChanged();
}

void LmCvManipRegion::slotToolButtonPToggled(bool aToggled)
{
    leaveOutline();
    thePencilMode = true;
    Q_EMIT signalHintChanged();
    if (!aToggled) {
        // A click doesn't switch the pencil off; another tool's button does.
        const QSignalBlocker blocker(thePencilButton);
        thePencilButton->setChecked(true);
    } else if (theCvEditor) {
        theCvEditor->setCurrentManipulator(this, thePencilButton);
    }
}

void LmCvManipRegion::makeCurrent()
{
    QToolButton* button = thePencilMode ? thePencilButton : theToolButton;
    if (!button)
        LmCvObjectTool::makeCurrent();
    else if (!button->isChecked())
        button->animateClick();
}

int LmCvManipRegion::getCvObjectFlags(LmCvObject*)
{
    return kRegionFlags;
}

QString LmCvManipRegion::typeName() const
{
    return tr("Region");
}

QIcon& LmCvManipRegion::getIconSet(const QString&)
{
    return theIcon;
}

QIcon& LmCvManipRegion::getAutoCreationIconSet(const QString&)
{
    return theAutoIcon;
}

const QCursor& LmCvManipRegion::getCursor() const
{
    return thePencilMode ? thePencilCursor : theRegionCursor;
}

QString LmCvManipRegion::hint() const
{
    if (!thePencilMode) {
        return isDrawing()
                   ? tr("Click for a corner, pull for a curve, click the other end to close; Esc ends "
                        "the outline.")
                   : tr("Click for the first node, or on an end of the current outline to go on with it.");
    }
    if (!isDrawing())
        return tr(
            "Draw with the button held down, or press on an end of the current outline to go on with it.");
    return tr("Draw on, or click for a straight piece (Shift: steps of 45 degrees); right click closes, Esc "
              "ends the outline.");
}

LmCvObject* LmCvManipRegion::newItem(const QString& aLabel)
{
    return new LmCvRegion(this, theCvEditor->canvas(), aLabel, theCvEditor);
}

void LmCvManipRegion::forgetItem(const Q3CanvasItem* aItem)
{
    if (aItem == theRubberLine)
        theRubberLine = nullptr;
    if (aItem != theRegion)
        return;
    theRegion = nullptr;
    setFinished(true);
    startRubberLine(false, QPoint());
}

LmCvRegion* LmCvManipRegion::currentRegion() const
{
    LmCvObject* current = theCvEditor ? theCvEditor->theCurrentTrack : nullptr;
    return current && current->rtti() == theObjectType ? static_cast<LmCvRegion*>(current) : nullptr;
}

void LmCvManipRegion::keyReleaseEvent(QKeyEvent* aEvent)
{
    if (aEvent->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) {
        aEvent->accept();
        return;
    }
    LmCvRegion* region = currentRegion();
    if (aEvent->key() != Qt::Key_Delete || !region)
        return;
    const auto selected = region->getSelectedNodes().size();
    if (selected > 0 && selected < region->nodeCount()) {
        region->removeSelectedNodes();
        slotCanvasObjectChanged(region);
    } else {
        removeCvObject(region);
    }
    aEvent->accept();
}
