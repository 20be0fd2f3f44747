#include "AutoCreateFixture.h"

#include <QMenu>
#include <QPixmap>

MakerTool::MakerTool(const QStringList& aNames) : LmCvManipulator(nullptr), theNames(aNames)
{
    theObjectType = kType;
    for (const QString& name : aNames)
        theIcons.insert(name, QIcon());
}

void MakerTool::initManipulator(QToolBar*)
{
    theInitDone = theKernelData->registerObjectType(this, theObjectType);
}

int MakerTool::createObjectFromContour(const LmCVSequence& aContour, QString aName)
{
    if (theOnCreate)
        theOnCreate();
    theCreated << aContour.calculateBoundingRect().translated(aContour.theOffsetX, aContour.theOffsetY);
    theCreatedNames << aName;
    return int(theCreated.size());
}

void MakerTool::modifyObjectFromContour(const LmCVSequence&, int aIdx)
{
    theModified << aIdx;
}

AutoCreateFixture::AutoCreateFixture()
{
    for (int i = 0; i < theMaker.theNames.size(); ++i)
        theMaker.theIcons[theMaker.theNames[i]] = pictureIcon(i);
    start(theMaker);
    start(theAuto);
    theKernel.announceManipulatorsLoaded();
}

AutoCreateFixture::~AutoCreateFixture()
{
    theStack.clear();
}

QIcon AutoCreateFixture::pictureIcon(int aNumber)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(QColor::fromHsv(60 * aNumber, 255, 255));
    return QIcon(pixmap);
}

void AutoCreateFixture::paint(const QRect& aRect, int aRed, int aGreen, int aBlue)
{
    for (int y = aRect.top(); y <= aRect.bottom(); ++y)
        for (int x = aRect.left(); x <= aRect.right(); ++x) {
            unsigned char* pixel = theImage.row(y) + 3 * x;
            pixel[0] = static_cast<unsigned char>(aRed);
            pixel[1] = static_cast<unsigned char>(aGreen);
            pixel[2] = static_cast<unsigned char>(aBlue);
        }
}

QAction* AutoCreateFixture::entry(const QString& aText) const
{
    const QList<QAction*> actions = theAuto.theMenu->actions();
    for (QAction* action : actions)
        if (action->text() == aText)
            return action;
    return nullptr;
}

void AutoCreateFixture::choose(const QString& aTypeName)
{
    QAction* action = entry(aTypeName);
    if (!action)
        qFatal("there is no entry %s", qPrintable(aTypeName));
    action->trigger();
}
