#include "BenchState.h"
#include "Document.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "Sentence.h"
#include "TestBench.h"
#include "TestFont.h"

#include <QDir>
#include <QMainWindow>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>

/// Starting and ending of the parts together.
class TestWorkbench : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void toolsAreStartedWithButtonsInTheToolBar();
    void toolsAreAnnouncedOnce();
    void missingPluginLeavesAWorkbenchWithoutTools();
    void projectWithObjectsIsRefusedWithoutTools();
    void endLeavesTheKernelEmpty();
    void nextWorkbenchStartsClean();
    void windowMayDieBeforeTheWorkbench();
    void workbenchMayDieBeforeTheWindow();
    void mediaTellsColours();
};

void TestWorkbench::toolsAreStartedWithButtonsInTheToolBar()
{
    QToolBar toolBar;
    Workbench bench;
    QString error;
    QVERIFY2(bench.loadTools(&toolBar, error), qPrintable(error));
    QVERIFY(!bench.tools().isEmpty());
    int buttons = 0;
    for (const LmCvManipulator* tool : bench.tools()) {
        QVERIFY(tool->theInitDone);
        QCOMPARE(tool->theCvEditor, &bench.editor());
        QCOMPARE(tool->theUndoStack, &bench.undoStack());
        QVERIFY(!tool->theToolButton || toolBar.isAncestorOf(tool->theToolButton));
        buttons += tool->theToolButton != nullptr;
    }
    QCOMPARE(buttons, bench.tools().size() - 1); // the measurement window has none
}

void TestWorkbench::toolsAreAnnouncedOnce()
{
    QSignalSpy announced(LmKSKernelData::getInstance(), &LmKSKernelData::signalManipulatorsLoaded);
    const TestBench bench;
    QCOMPARE(announced.count(), 1);
}

void TestWorkbench::missingPluginLeavesAWorkbenchWithoutTools()
{
    const QByteArray kept = qgetenv("MEASURETOOLS_PLUGIN_DIR");
    qputenv("MEASURETOOLS_PLUGIN_DIR", MEASURETOOLS_BAD_PLUGINS "/text");
    QVERIFY(QDir().mkpath(QStringLiteral(MEASURETOOLS_BAD_PLUGINS "/text")));
    QFile text(QStringLiteral(MEASURETOOLS_BAD_PLUGINS "/text/libMeasureToolsPlugin.so"));
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no plug-in") > 0);
    text.close();
    Workbench bench;
    QString error;
    const bool isLoaded = bench.loadTools(nullptr, error);
    qputenv("MEASURETOOLS_PLUGIN_DIR", kept);
    QVERIFY(!isLoaded);
    QCOMPARE(sentenceFault(error), QString());
    QVERIFY(bench.tools().isEmpty());
    QVERIFY(!bench.document().isModified());
}

void TestWorkbench::projectWithObjectsIsRefusedWithoutTools()
{
    QTemporaryDir folder;
    const QString project = folder.filePath(QStringLiteral("a.mtp"));
    QString error;
    {
        TestBench bench;
        bench.doWork();
        QVERIFY2(bench.document().save(project, error), qPrintable(error));
    }
    Workbench bare;
    const QString before = benchState(bare);
    QVERIFY(!bare.document().open(project, error));
    QCOMPARE(sentenceFault(error), QString());
    QVERIFY2(error.contains(QStringLiteral("1102")), qPrintable(error));
    QCOMPARE(benchState(bare), before);
}

void TestWorkbench::endLeavesTheKernelEmpty()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    {
        TestBench bench;
        bench.doWork();
        QVERIFY(kernel->getCvManipulator(kDistanceType));
        QCOMPARE(kernel->getObjectsOfType(kDistanceType).size(), 2);
    }
    QVERIFY(!kernel->getCvManipulator(kDistanceType));
    QVERIFY(!kernel->getDataDescriptor(kDistanceType));
    QVERIFY(kernel->getObjectsOfType(kDistanceType).isEmpty());
    QVERIFY(kernel->getCvManipulatorList().isEmpty());
    QVERIFY(kernel->calibrations().isEmpty());
    QVERIFY(!kernel->theCurrentImage);
    QVERIFY(kernel->theMediaFile.isEmpty());
    QCOMPARE(kernel->theFrameCount, Int64(0));
    QCOMPARE(kernel->theCurrentFrame, 0u);
}

void TestWorkbench::nextWorkbenchStartsClean()
{
    for (int time = 0; time < 3; ++time) {
        TestBench bench;
        QVERIFY(!bench.media().isOpen());
        QCOMPARE(bench.undoStack().count(), 0);
        bench.doWork();
        QCOMPARE(bench.editor().cvItems().size(), 2);
        QCOMPARE(addDistance(bench, QPoint(1, 1), QPoint(2, 2)), 3);
    }
}

void TestWorkbench::windowMayDieBeforeTheWorkbench()
{
    TestBench bench;
    bench.doWork();
    auto window = std::make_unique<QMainWindow>();
    window->setCentralWidget(&bench.editor());
    window.reset();
    QVERIFY(LmKSKernelData::getInstance()->getObject(kDistanceType, 1));
}

void TestWorkbench::workbenchMayDieBeforeTheWindow()
{
    QMainWindow window;
    {
        TestBench bench;
        bench.doWork();
        window.setCentralWidget(&bench.editor());
        QVERIFY(window.centralWidget());
    }
    QVERIFY(!window.centralWidget());
}

void TestWorkbench::mediaTellsColours()
{
    TestBench bench;
    QCOMPARE(bench.media().colorText(QPoint(0, 0)), QString());
    bench.openPicture(40, 30);
    // The made picture has no red and no green in its first pixel, and 64 of blue in its first square.
    QCOMPARE(bench.media().colorText(QPoint(0, 0)), QStringLiteral("R 0  G 0  B 64"));
    for (const QPoint& outside : {QPoint(-1, 0), QPoint(40, 0), QPoint(0, 30)})
        QCOMPARE(bench.media().colorText(outside), QString());
}

MEASURE_TEST_MAIN(TestWorkbench)
#include "TestWorkbench.moc"
