#include "BenchScene.h"

#include "CmdCalibrate.h"
#include "CmdCreateObject.h"
#include "Document.h"
#include "LmAppSettings.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"

#include <QApplication>
#include <QFont>
#include <QImage>

#include <cmath>

namespace {

constexpr QSize kPicture(4096, 3072);
constexpr QSize kViewport(1280, 960);
constexpr int kReach = 120; // pixels from a line's middle to its end, at most

QString madePicture(const QString& aPath)
{
    QImage picture(kPicture, QImage::Format_Grayscale8);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.scanLine(y)[x] = uchar((x ^ y) & 255);
    picture.save(aPath, "PNG", 100);
    return aPath;
}

[[noreturn]] void fail(const QString& aError)
{
    qFatal("benchmark: %s", qPrintable(aError));
}

} // namespace

BenchScene::BenchScene(int aCount, bool aAnimated, Type aType, QToolBar* aToolBar) : theType(aType)
{
    QString error;
    if (!theWorkbench.loadTools(aToolBar, error))
        fail(error);
    LmCvEditor& editor = theWorkbench.editor();
    editor.resize(kViewport);
    editor.show();
    if (!theWorkbench.document().openPicture(madePicture(pathOf(QStringLiteral("picture.png"))), error))
        fail(error);
    LmKSKernelData::getInstance()->theFrameCount = kFrames;
    theWorkbench.undoStack().push(new CmdCalibrate(
        QStringLiteral("bench"), LmCalibData{100.0, QStringLiteral("mm")}, QStringLiteral("bench")));
    editor.zoomToFit();
    LmCvManipulator::theLastUsedValueName =
        LmKSKernelData::getInstance()->getCvManipulator(theType)->theValueNames.first();
    create(aCount, aAnimated);
    showAllLabels(theType);
    QApplication::processEvents();
}

BenchScene::~BenchScene() = default;

QPoint BenchScene::randomPoint(int aWidth, int aHeight)
{
    const auto next = [this](int aRange) {
        theSeed = theSeed * 1664525u + 1013904223u;
        return int((quint64(theSeed) * quint64(aRange)) >> 32);
    };
    const int x = next(aWidth);
    return QPoint(x, next(aHeight));
}

QSize BenchScene::pictureSize() const
{
    return kPicture;
}

LmKernelObjectData* BenchScene::newRecord(bool aAnimated)
{
    const LmKernelObjectDataDescr* descr = LmKSKernelData::getInstance()->getDataDescriptor(theType);
    const QPoint middle = randomPoint(kPicture.width(), kPicture.height());
    LmParamKeyframeVector values = descr->createKeyframeVector();
    descr->setValue(values, QStringLiteral("vis"), true);
    descr->setValue(values, QStringLiteral("col"), QColor(Qt::darkBlue));
    descr->setValue(values, QStringLiteral("dispv"), LmCvManipulator::theLastUsedValueName);
    setGeometry(values, middle);
    auto* record = new LmKernelObjectData(values, descr->getKeyframeTypes(), 0);
    record->theAnimated = aAnimated;
    for (int frame = 0; aAnimated && frame < kFrames; frame += kFrames / 4)
        record->storeValue(3, frame, middle + QPoint(frame, 0));
    return record;
}

void BenchScene::setGeometry(LmParamKeyframeVector& aValues, const QPoint& aMiddle)
{
    const LmKernelObjectDataDescr* descr = LmKSKernelData::getInstance()->getDataDescriptor(theType);
    const auto way = [this] { return randomPoint(2 * kReach, 2 * kReach) - QPoint(kReach, kReach); };
    descr->setValue(aValues, QStringLiteral("pos"), aMiddle);
    switch (theType) {
    case kDistance:
        descr->setValue(aValues, QStringLiteral("ep"), way());
        break;
    case kAngle:
        descr->setValue(aValues, QStringLiteral("ep1"), way());
        descr->setValue(aValues, QStringLiteral("ep2"), way());
        break;
    case kDimension: {
        QPolygon points; // a height and a width
        for (int i = 0; i < 2; ++i)
            points << aMiddle << aMiddle + way();
        descr->setValue(aValues, QStringLiteral("points"), QVariant::fromValue<QPolygon>(points));
        break;
    }
    }
}

void BenchScene::create(int aCount, bool aAnimated)
{
    QUndoStack& stack = theWorkbench.undoStack();
    stack.beginMacro(QStringLiteral("create"));
    for (int i = 0; i < aCount; ++i)
        stack.push(new CmdCreateObject(theType, theNextIdx++, newRecord(aAnimated)));
    stack.endMacro();
}

void BenchScene::showAllLabels(int aType)
{
    LmCvManipulator* tool = LmKSKernelData::getInstance()->getCvManipulator(aType);
    for (LmCvObject* item : qAsConst(tool->theCvObjects))
        tool->updateDisplayValue(item, LmCvManipulator::theLastUsedValueName, true, false);
    theWorkbench.editor().canvas()->update();
}

void BenchScene::paintPending()
{
    // The offscreen platform paints when the posted update request is delivered.
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

LmCvObject* BenchScene::item(int aIdx)
{
    return LmKSKernelData::getInstance()->getCvManipulator(theType)->getCvObject(aIdx);
}

QPolygon wavyOutline(int aNodes, double aWidth, double aHeight)
{
    QPolygon points;
    for (int i = 0; i < aNodes; ++i) {
        const double angle = 2.0 * M_PI * i / aNodes;
        const double part = 0.45 + 0.05 * std::sin(7.0 * angle);
        const QPoint anchor(qRound(part * aWidth * std::cos(angle)),
                            qRound(part * aHeight * std::sin(angle)));
        const QPoint toNext(qRound(-part * aWidth * 2.0 / aNodes * std::sin(angle)),
                            qRound(part * aHeight * 2.0 / aNodes * std::cos(angle)));
        points << anchor - toNext << anchor << anchor + toNext;
    }
    return points;
}

void benchSizes(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Arg(100)->Arg(1000)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void otherTypesSizes(benchmark::internal::Benchmark* aBenchmark)
{
    aBenchmark->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

int runBenchmarks(int aCount, char* aArguments[])
{
    QFont::insertSubstitution(QStringLiteral("Lucida Grande"), QStringLiteral("DejaVu Sans"));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(aCount, aArguments);
    benchmark::Initialize(&aCount, aArguments);
    if (benchmark::ReportUnrecognizedArguments(aCount, aArguments))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
