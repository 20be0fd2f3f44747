#include "RegionScene.h"

#include "CmdCreateObject.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <QApplication>
#include <QColor>
#include <QMenu>
#include <QMouseEvent>
#include <QToolBar>
#include <QToolButton>

namespace {

// Places among the parameters of a region's record.
constexpr int kPointsParam = 4;
constexpr int kPosParam = 6;

} // namespace

RegionScene::RegionScene(int aCount, bool aAnimated) : BenchScene(0)
{
    LmCvManipulator::theLastUsedValueName = QStringLiteral("Area");
    theWorkbench.editor().setCurrentManipulator(&tool());
    createRegions(aCount, aAnimated);
    if (aCount > 0)
        take((aCount + 1) / 2);
}

std::unique_ptr<RegionScene> RegionScene::ofOne(int aNodes)
{
    auto scene = std::make_unique<RegionScene>(0);
    const QSize picture = scene->pictureSize();
    scene->add(wavyOutline(aNodes, picture.width() * 0.9, picture.height() * 0.9),
               QPoint(picture.width(), picture.height()) / 2, false);
    scene->take(1);
    return scene;
}

void RegionScene::take(int aIdx)
{
    theCurrent = aIdx;
    theWorkbench.editor().activateItem(tool().getCvObject(aIdx));
    showAllLabels(kRegion);
    paintPending();
}

void RegionScene::createRegions(int aCount, bool aAnimated)
{
    QUndoStack& stack = theWorkbench.undoStack();
    stack.beginMacro(QStringLiteral("create"));
    for (int i = 0; i < aCount; ++i) {
        const QPoint pos = randomPoint(pictureSize().width(), pictureSize().height());
        const QPoint size = randomPoint(240, 240) + QPoint(60, 60);
        add(wavyOutline(kNodes, size.x(), size.y()), pos, aAnimated);
    }
    stack.endMacro();
}

void RegionScene::add(const QPolygon& aPoints, const QPoint& aPos, bool aAnimated)
{
    const LmKernelObjectDataDescr* descr = LmKSKernelData::getInstance()->getDataDescriptor(kRegion);
    LmParamKeyframeVector values = descr->createKeyframeVector();
    descr->setValue(values, QStringLiteral("vis"), true);
    descr->setValue(values, QStringLiteral("col"), QColor(Qt::darkBlue));
    descr->setValue(values, QStringLiteral("dispv"), LmCvManipulator::theLastUsedValueName);
    descr->setValue(values, QStringLiteral("cl"), true);
    descr->setValue(values, QStringLiteral("pts"), QVariant::fromValue<QPolygon>(aPoints));
    // Of each node: not dragged, not selected, handles in one direction.
    descr->setValue(values, QStringLiteral("nst"), QByteArray("\xff\0\1", 3).repeated(aPoints.size() / 3));
    descr->setValue(values, QStringLiteral("pos"), aPos);
    auto* record = new LmKernelObjectData(values, descr->getKeyframeTypes(), 0);
    record->theAnimated = aAnimated;
    for (int frame = 0; aAnimated && frame < kFrames; frame += kFrames / 4) {
        const QPolygon wider = QTransform::fromScale(1.0 + 0.01 * frame, 1.0).map(aPoints);
        record->storeValue(kPointsParam, frame, QVariant::fromValue<QPolygon>(wider));
        record->storeValue(kPosParam, frame, aPos + QPoint(frame, 0));
    }
    theWorkbench.undoStack().push(new CmdCreateObject(kRegion, theNextIdx++, record));
}

LmCvManipulator& RegionScene::tool()
{
    return *LmKSKernelData::getInstance()->getCvManipulator(kRegion);
}

QVariant RegionScene::stored(int aIdx, int aParam)
{
    const LmKernelObjectData* record = LmKSKernelData::getInstance()->getObject(kRegion, aIdx);
    if (!record)
        qFatal("benchmark: there is no region %d", aIdx);
    return record->storedValue(aParam, kDefaultFrame);
}

QPolygon RegionScene::points(int aIdx)
{
    return stored(aIdx, kPointsParam).value<QPolygon>();
}

int RegionScene::nodeCount(int aIdx)
{
    return int(points(aIdx).size() / 3);
}

QPoint RegionScene::firstAnchor(int aIdx)
{
    return stored(aIdx, kPosParam).toPoint() + points(aIdx).at(1);
}

void RegionScene::pickPencil(bool aSmooth, bool aAutoShape)
{
    for (QToolButton* button : tool().theToolBar->findChildren<QToolButton*>()) {
        if (button->toolTip() != QStringLiteral("Pencil tool"))
            continue;
        const QList<QAction*> entries = button->menu()->actions();
        if (aSmooth)
            entries.at(0)->trigger();
        if (aAutoShape)
            entries.at(1)->trigger();
        button->setChecked(true);
        return;
    }
    qFatal("benchmark: the Region tool has no pencil");
}

void RegionScene::send(QEvent::Type aType, const QPoint& aCanvasPoint)
{
    LmCvEditor& editor = theWorkbench.editor();
    const QPointF pos = editor.toViewport(QPointF(aCanvasPoint) + QPointF(0.5, 0.5));
    QMouseEvent event(aType, pos, editor.viewport()->mapToGlobal(pos),
                      aType == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      aType == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &event);
}
