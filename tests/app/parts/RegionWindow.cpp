#include "RegionWindow.h"

#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "TestSamples.h"

#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

void RegionWindow::openPicture(const QSize& aSize)
{
    const QString file = path(QStringLiteral("sized.png"));
    if (!madePicture(aSize.width(), aSize.height()).save(file) || !window().openAtStart(file))
        QTest::qFail("the picture couldn't be opened", __FILE__, __LINE__);
}

LmCvManipulator* RegionWindow::regionTool()
{
    LmCvManipulator* tool = kernel().getCvManipulator(kType);
    if (!tool)
        qFatal("there is no Region tool");
    return tool;
}

QToolButton* RegionWindow::penButton()
{
    return regionTool()->theToolButton;
}

QToolButton* RegionWindow::pencilButton()
{
    const auto buttons = actions().theToolBar->findChildren<QToolButton*>();
    for (QToolButton* button : buttons)
        if (button->toolTip() == QLatin1String("Pencil tool"))
            return button;
    qFatal("there is no pencil");
}

void RegionWindow::pickPen()
{
    if (!penButton()->isChecked())
        QTest::mouseClick(penButton(), Qt::LeftButton);
}

void RegionWindow::pickPencil()
{
    if (!pencilButton()->isChecked())
        QTest::mouseClick(pencilButton(), Qt::LeftButton);
}

QAction* RegionWindow::pencilEntry(const QString& aText)
{
    QAction* entry = find(*pencilButton()->menu(), aText);
    if (!entry)
        qFatal("the pencil's menu has lost an entry");
    return entry;
}

void RegionWindow::pickPencil(bool aSmooth, bool aAutoShape)
{
    QAction* smooth = pencilEntry(QStringLiteral("Smooth"));
    QAction* autoShape = pencilEntry(QStringLiteral("Auto Shape"));
    // Shapes can be chosen only while strokes are smoothed.
    if (autoShape->isChecked() != aAutoShape && !smooth->isChecked())
        smooth->trigger();
    if (autoShape->isChecked() != aAutoShape)
        autoShape->trigger();
    if (smooth->isChecked() != aSmooth)
        smooth->trigger();
    pickPencil();
}

bool RegionWindow::isOnly(QToolButton* aButton)
{
    bool isOn = actions().theArrow->isChecked() == !aButton;
    const auto buttons =
        actions().theToolBar->findChildren<QToolButton*>(QStringLiteral("manipulator button"));
    for (const QToolButton* button : buttons) {
        const QAction* entry = find(*actions().theToolsMenu, button->toolTip());
        const bool wanted = button == aButton;
        isOn = isOn && button->isChecked() == wanted && entry && entry->isChecked() == wanted;
    }
    return isOn && (!aButton || buttons.contains(aButton));
}

void RegionWindow::clickAll(const QList<QPoint>& aPoints)
{
    for (const QPoint& point : aPoints)
        click(point);
}

void RegionWindow::stroke(const QList<QPoint>& aPoints)
{
    press(aPoints.first());
    for (const QPoint& point : aPoints)
        move(point);
    release(aPoints.last());
}

int RegionWindow::drawClosed(const QList<QPoint>& aCorners)
{
    const int idx = regionTool()->nextObjectIdx();
    pickPen();
    clickAll(aCorners);
    click(aCorners.first());
    pickArrow();
    return isClosed(idx) ? idx : 0;
}

const LmKernelObjectData* RegionWindow::region(int aIdx)
{
    return kernel().getObject(kType, aIdx);
}

int RegionWindow::regionCount()
{
    return int(kernel().getObjectsOfType(kType).size());
}

QVariant RegionWindow::regionValue(int aIdx, const QString& aParam)
{
    const LmKernelObjectData* record = region(aIdx);
    if (!record)
        return QVariant();
    return kernel().getDataDescriptor(kType)->getValue(record->getKeyframesAt(kernel().theCurrentFrame),
                                                       aParam);
}

QPolygon RegionWindow::points(int aIdx)
{
    return regionValue(aIdx, QStringLiteral("pts"))
        .value<QPolygon>()
        .translated(regionValue(aIdx, QStringLiteral("pos")).toPoint());
}

QList<QPoint> RegionWindow::anchors(int aIdx)
{
    const QPolygon all = points(aIdx);
    QList<QPoint> anchors;
    for (qsizetype i = 1; i < all.size(); i += 3)
        anchors.append(all[i]);
    return anchors;
}

bool RegionWindow::isClosed(int aIdx)
{
    return regionValue(aIdx, QStringLiteral("cl")).toBool();
}

LmCvObject* RegionWindow::item(int aIdx)
{
    return regionTool()->getCvObject(aIdx);
}

qsizetype RegionWindow::itemNodeCount(int aIdx)
{
    LmCvObject* own = item(aIdx);
    if (!own)
        return -1;
    constexpr int kFar = 1'000'000'000;
    own->selectNodes(QPoint(-kFar, -kFar), QSize(2 * kFar, 2 * kFar));
    const qsizetype count = own->getSelectedNodes().size();
    own->selectNodes(QPoint(-kFar, -kFar), QSize(1, 1));
    return count;
}

QString RegionWindow::hint()
{
    const auto* label = window().findChild<QLabel*>(QStringLiteral("hint"));
    return label ? label->text() : QString();
}

QString RegionWindow::report()
{
    return window().statusBar()->currentMessage();
}

QStringList RegionWindow::undoTexts()
{
    QStringList texts;
    for (int i = 0; i < stack().count(); ++i)
        texts << stack().text(i);
    return texts;
}
