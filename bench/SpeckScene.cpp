#include "SpeckScene.h"

#include "CmdCreateObject.h"
#include "Document.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolBar>
#include <QToolButton>

#include <cmath>

namespace {

constexpr int kSpeckSize = 10; // pixels across

/// The places of things in rows over the left part of the picture of this width.
QPolygon rows(int aCount, int aWidth)
{
    constexpr int kMargin = 30;
    const int columns = std::max(1, int(std::sqrt(double(aCount) * aWidth / SpeckScene::kPicture.height())));
    const int lines = (aCount + columns - 1) / columns;
    QPolygon points;
    for (int i = 0; i < aCount; ++i)
        points << QPoint(kMargin + i % columns * (aWidth - 2 * kMargin) / columns,
                         kMargin + i / columns * (SpeckScene::kPicture.height() - 2 * kMargin) / lines);
    return points;
}

void savePicture(const QString& aPath, int aSpecks)
{
    QImage picture(SpeckScene::kPicture, QImage::Format_Grayscale8);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.scanLine(y)[x] = uchar(40 + 80 * x / picture.width());
    const QPolygon places = rows(aSpecks, picture.width());
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    for (const QPoint& place : places) {
        const int ground = 40 + 80 * place.x() / picture.width();
        painter.setBrush(QColor(ground + 90, ground + 90, ground + 90));
        painter.drawEllipse(QRect(place, QSize(kSpeckSize, kSpeckSize)));
    }
    painter.end();
    picture.save(aPath, "PNG", 100);
}

} // namespace

SpeckScene::SpeckScene(int aSpecks)
{
    QString error;
    if (!theWorkbench.loadTools(theWindow.addToolBar(QString()), error))
        qFatal("benchmark: %s", qPrintable(error));
    theWindow.setCentralWidget(&theWorkbench.editor());
    theWindow.resize(1400, 1200);
    theWindow.show();
    const QString file = theFolder.filePath(QStringLiteral("specks.png"));
    savePicture(file, aSpecks);
    if (!theWorkbench.document().openPicture(file, error))
        qFatal("benchmark: %s", qPrintable(error));
    theWorkbench.editor().zoomToFit();
    paintPending();
}

void SpeckScene::addCounter(int aMarks)
{
    const LmKernelObjectDataDescr* descr = LmKSKernelData::getInstance()->getDataDescriptor(kCounter);
    QPolygon points;
    const QPolygon places = rows(aMarks, kPicture.width() * 3 / 4);
    for (const QPoint& place : places)
        points << place + QPoint(20, -20) << place;
    LmParamKeyframeVector values = descr->createKeyframeVector();
    descr->setValue(values, QStringLiteral("vis"), true);
    descr->setValue(values, QStringLiteral("col"), QColor(Qt::red));
    descr->setValue(values, QStringLiteral("nm"), QStringLiteral("1"));
    descr->setValue(values, QStringLiteral("fnt"), QFont(QStringLiteral("MS Shell Dlg"), 10));
    descr->setValue(values, QStringLiteral("pos"), QVariant::fromValue<QPolygon>(points));
    theWorkbench.undoStack().push(
        new CmdCreateObject(kCounter, 1, new LmKernelObjectData(values, descr->getKeyframeTypes(), 0)));
    LmCvManipulator* counter = LmKSKernelData::getInstance()->getCvManipulator(kCounter);
    theWorkbench.editor().activateItem(counter->getCvObject(1));
    counter->makeCurrent();
    paintPending();
}

LmCvManipulator* SpeckScene::tool(const char* aClass) const
{
    for (LmCvManipulator* found : theWorkbench.tools())
        if (qstrcmp(found->metaObject()->className(), aClass) == 0)
            return found;
    qFatal("benchmark: there is no %s", aClass);
}

void SpeckScene::pickGroupCounting()
{
    const QList<QAction*> entries = tool("LmCvManipAutoCreate")->theToolButton->menu()->actions();
    for (QAction* entry : entries)
        if (entry->text() == QLatin1String("Counter") || entry->text() == QLatin1String("Group"))
            entry->trigger();
}

void SpeckScene::send(QEvent::Type aType, const QPoint& aCanvasPoint)
{
    LmCvEditor& editor = theWorkbench.editor();
    const QPointF pos = editor.toViewport(QPointF(aCanvasPoint) + QPointF(0.5, 0.5));
    const bool moves = aType == QEvent::MouseMove;
    QMouseEvent event(aType, pos, editor.viewport()->mapToGlobal(pos), moves ? Qt::NoButton : Qt::LeftButton,
                      aType == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(editor.viewport(), &event);
}

void SpeckScene::click(const QPoint& aCanvasPoint)
{
    send(QEvent::MouseButtonPress, aCanvasPoint);
    send(QEvent::MouseButtonRelease, aCanvasPoint);
}

void SpeckScene::drag(const QPoint& aFrom, const QPoint& aTo)
{
    send(QEvent::MouseButtonPress, aFrom);
    send(QEvent::MouseMove, aTo);
    send(QEvent::MouseMove, aTo);
    send(QEvent::MouseButtonRelease, aTo);
}

void SpeckScene::paintPending()
{
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

QPolygon SpeckScene::marks() const
{
    const LmKernelObjectData* record = LmKSKernelData::getInstance()->getObject(kCounter, 1);
    const LmKernelObjectDataDescr* descr = LmKSKernelData::getInstance()->getDataDescriptor(kCounter);
    return record ? descr->getValue(record->getDefaultKeyframes(), QStringLiteral("pos")).value<QPolygon>()
                  : QPolygon();
}
