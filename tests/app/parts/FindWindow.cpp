#include "FindWindow.h"

#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "TestSamples.h"

#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

void FindWindow::open(const QString& aPath)
{
    if (!window().openAtStart(aPath))
        qFatal("the picture %s couldn't be opened", qPrintable(aPath));
}

bool FindWindow::openSample(const QString& aName)
{
    const QString file = sharedSample(aName);
    if (!file.isEmpty())
        open(file);
    return !file.isEmpty();
}

LmCvManipulator* FindWindow::counterTool()
{
    LmCvManipulator* tool = kernel().getCvManipulator(kCounterType);
    if (!tool)
        qFatal("there is no Counter tool");
    return tool;
}

void FindWindow::pickCounter()
{
    if (!counterTool()->theToolButton->isChecked())
        QTest::mouseClick(counterTool()->theToolButton, Qt::LeftButton);
}

void FindWindow::count(const QList<QPoint>& aPoints)
{
    pickCounter();
    for (const QPoint& point : aPoints)
        click(point);
}

int FindWindow::counterCount()
{
    return int(kernel().getObjectsOfType(kCounterType).size());
}

QPolygon FindWindow::marks(int aIdx)
{
    const LmKernelObjectData* record = kernel().getObject(kCounterType, aIdx);
    if (!record)
        return QPolygon();
    return kernel()
        .getDataDescriptor(kCounterType)
        ->getValue(record->getKeyframesAt(kernel().theCurrentFrame), QStringLiteral("pos"))
        .value<QPolygon>();
}

QList<QPoint> FindWindow::tips(int aIdx)
{
    const QPolygon all = marks(aIdx);
    QList<QPoint> result;
    for (int i = 1; i < all.size(); i += 2)
        result << all[i];
    return result;
}

// The anchor is the middle of the label's lower edge.
QPoint FindWindow::labelOf(int aIdx, int aMark)
{
    return marks(aIdx).value(2 * aMark) - QPoint(0, 6);
}

LmCvObject* FindWindow::markAt(const QPoint& aCanvasPoint)
{
    return editor().itemAt(aCanvasPoint, counterTool());
}

QToolButton* FindWindow::autoButton()
{
    const auto buttons = actions().theToolBar->findChildren<QToolButton*>();
    for (QToolButton* button : buttons)
        if (button->toolTip() == QLatin1String("Auto create tool"))
            return button;
    qFatal("there is no automatic creation");
}

void FindWindow::pickAuto(const QStringList& aEntries)
{
    for (const QString& text : aEntries) {
        QAction* entry = find(*autoButton()->menu(), text);
        if (!entry)
            qFatal("the automatic creation doesn't offer %s", qPrintable(text));
        entry->trigger();
    }
}

void FindWindow::slowDrag(const QPoint& aFrom, const QPoint& aTo)
{
    constexpr int kSteps = 8;
    press(aFrom);
    for (int step = 1; step <= kSteps; ++step)
        move(aFrom + (aTo - aFrom) * step / kSteps);
    release(aTo);
}
