#include "BenchState.h"
#include "CmdSwitchAnimation.h"
#include "Document.h"
#include "Drawn.h"
#include "InterestWindow.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ProjectText.h"
#include "Sentence.h"
#include "TestFont.h"

#include <QAction>
#include <QLine>
#include <QUndoStack>

namespace {

constexpr QRect kRegion = InterestWindow::kRegion;

void save(InterestWindow& aWindow, const QString& aPath)
{
    QString error;
    if (!aWindow.bench().document().save(aPath, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
}

} // namespace

/// The region of interest over frames, in project files, and beside objects that are hidden or animated.
class TestRegionOfInterestFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void projectKeepsTheRegion();
    void projectWithoutARegionShowsTheWholePicture();
    void projectOfAMissingPictureKeepsTheRegion();
    void pictureOfAnotherSizeIsShownAsAWhole();
    void wrongRegionIsRefused_data();
    void wrongRegionIsRefused();
    void framesKeepTheRegion();
    void animatedObjectsKeepTheirWayOnThePicture();
    void hiddenObjectsComeBackAtTheirPlaces();
};

void TestRegionOfInterestFiles::projectKeepsTheRegion()
{
    InterestWindow w;
    QCOMPARE(w.draw(QPoint(100, 100), QPoint(200, 120)), 1);
    const QRect before = w.place(w.distanceTool()->getCvObject(1));
    w.setRegion();
    save(w, w.path(QStringLiteral("a.mtp")));
    QVERIFY(MadeFiles::read(w.path(QStringLiteral("a.mtp"))).contains("region=\"50 40 200 150\""));
    QVERIFY(w.window().openAtStart(w.picturePath()));
    QVERIFY(w.region().isNull());
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("a.mtp"))));
    QCOMPARE(w.region(), kRegion);
    QCOMPARE(w.editor().canvas()->size(), kRegion.size());
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before);
    QVERIFY(!w.bench().document().isModified());
    QVERIFY(w.actions().theClearRegion->isEnabled());
    // It is no step that could be undone, but it can be cleared.
    QCOMPARE(w.stack().count(), 0);
    w.actions().theClearRegion->trigger();
    QVERIFY(w.bench().document().isModified());
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before);
    w.stack().undo();
    QCOMPARE(w.region(), kRegion);
}

void TestRegionOfInterestFiles::projectWithoutARegionShowsTheWholePicture()
{
    InterestWindow w;
    save(w, w.path(QStringLiteral("a.mtp")));
    QVERIFY(!MadeFiles::read(w.path(QStringLiteral("a.mtp"))).contains("region"));
    w.setRegion();
    w.stack().setClean();
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("a.mtp"))));
    QVERIFY(w.region().isNull());
    QCOMPARE(w.editor().canvas()->size(), QSize(400, 300));
}

void TestRegionOfInterestFiles::projectOfAMissingPictureKeepsTheRegion()
{
    InterestWindow w;
    w.setRegion();
    save(w, w.path(QStringLiteral("a.mtp")));
    QVERIFY(QFile::rename(w.picturePath(), w.path(QStringLiteral("b.png"))));
    QString error;
    Document& document = w.bench().document();
    QVERIFY(document.open(w.path(QStringLiteral("a.mtp")), error));
    QVERIFY(document.isPictureMissing());
    QCOMPARE(w.region(), kRegion);
    QVERIFY2(document.locatePicture(w.path(QStringLiteral("b.png")), error), qPrintable(error));
    QCOMPARE(w.region(), kRegion);
    QCOMPARE(w.editor().canvas()->size(), kRegion.size());
    QCOMPARE(w.kernel().origin(), kRegion.topLeft());
}

void TestRegionOfInterestFiles::pictureOfAnotherSizeIsShownAsAWhole()
{
    InterestWindow w;
    w.setRegion();
    save(w, w.path(QStringLiteral("a.mtp")));
    QImage other(300, 280, QImage::Format_RGB32);
    other.fill(Qt::gray);
    QVERIFY(other.save(w.picturePath()));
    QString error;
    QVERIFY(w.bench().document().open(w.path(QStringLiteral("a.mtp")), error));
    QVERIFY(w.region().isNull());
    QVERIFY2(error.contains(QStringLiteral("another size")), qPrintable(error));
}

void TestRegionOfInterestFiles::wrongRegionIsRefused_data()
{
    QTest::addColumn<QByteArray>("region");
    for (const char* text : {"",
                             " ",
                             "50",
                             "50 40 200",
                             "50 40 200 150 1",
                             "a b c d",
                             "50 40 200 150.5",
                             "50,40,200,150",
                             "-1 40 200 150",
                             "50 -1 200 150",
                             "50 40 0 150",
                             "50 40 200 0",
                             "50 40 -200 150",
                             "50 40 351 150",
                             "50 40 200 261",
                             "400 0 1 1",
                             "0 300 1 1",
                             "2147483647 0 2147483647 1",
                             "4294967296 0 1 1",
                             "50  40 200 150",
                             "nan 0 1 1"})
        QTest::newRow(text) << QByteArray(text);
}

void TestRegionOfInterestFiles::wrongRegionIsRefused()
{
    QFETCH(QByteArray, region);
    InterestWindow w;
    w.setRegion();
    QCOMPARE(w.draw(QPoint(10, 10), QPoint(90, 10)), 1);
    QByteArray picture = ProjectText::picture(QStringLiteral("picture.png"), 400, 300);
    const auto write = [&](const QByteArray& aRegion) {
        QByteArray changed = picture;
        changed.replace("frame=\"0\"", "frame=\"0\" region=\"" + aRegion + "\"");
        MadeFiles::write(w.path(QStringLiteral("bad.mtp")), ProjectText::project(changed, "", ""));
    };
    write(region);
    const QString before = benchState(w.bench());
    QString error;
    QVERIFY(!w.bench().document().open(w.path(QStringLiteral("bad.mtp")), error));
    QVERIFY2(error.contains(QStringLiteral("region of interest")), qPrintable(error));
    QCOMPARE(sentenceFault(error), QString());
    QCOMPARE(benchState(w.bench()), before);
    QCOMPARE(w.region(), kRegion);
    // The same file with a region that touches all edges but one is right.
    write("0 0 400 299");
    QVERIFY2(w.bench().document().open(w.path(QStringLiteral("bad.mtp")), error), qPrintable(error));
    QCOMPARE(w.region(), QRect(0, 0, 400, 299));
}

void TestRegionOfInterestFiles::framesKeepTheRegion()
{
    InterestWindow w;
    w.openPages(3);
    w.setRegion();
    for (int frame : {1, 2, 0}) {
        QString error;
        QVERIFY(w.bench().media().showFrame(frame, error));
        QCOMPARE(w.kernel().origin(), kRegion.topLeft());
        QCOMPARE(w.editor().canvas()->size(), kRegion.size());
    }
    save(w, w.path(QStringLiteral("pages.mtp")));
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("pages.mtp"))));
    w.key(Qt::Key_PageDown);
    QCOMPARE(w.bench().media().frame(), 1);
    QCOMPARE(w.region(), kRegion);
    QCOMPARE(w.editor().canvas()->size(), kRegion.size());
}

void TestRegionOfInterestFiles::animatedObjectsKeepTheirWayOnThePicture()
{
    InterestWindow w;
    w.openPages(3);
    QString error;
    QCOMPARE(w.draw(QPoint(100, 100), QPoint(200, 100)), 1);
    w.stack().push(new CmdSwitchAnimation(kDistanceType, 1, true));
    w.drag(QPoint(200, 100), QPoint(200, 140));
    QVERIFY(w.bench().media().showFrame(2, error));
    w.drag(QPoint(200, 140), QPoint(240, 60));
    QCOMPARE(w.ends(1).p2(), QPoint(240, 60));
    const auto places = [&] {
        w.editor().setZoom(1.0); // items keep sizes on the screen
        QList<QRect> all;
        for (int frame : {0, 1, 2}) {
            w.bench().media().showFrame(frame, error);
            all << w.place(w.distanceTool()->getCvObject(1));
        }
        return all;
    };
    const QList<QRect> before = places();
    QVERIFY(before[0] != before[1] && before[1] != before[2]);
    w.setRegion();
    QCOMPARE(places(), before);
    QVERIFY(w.bench().media().showFrame(1, error));
    w.stack().undo();
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before[1]);
    w.stack().redo();
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before[1]);
    save(w, w.path(QStringLiteral("pages.mtp")));
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("pages.mtp"))));
    QCOMPARE(w.region(), kRegion);
    w.editor().setZoom(1.0);
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before[1]);
    QCOMPARE(places(), before);
}

void TestRegionOfInterestFiles::hiddenObjectsComeBackAtTheirPlaces()
{
    InterestWindow w;
    QCOMPARE(w.draw(QPoint(100, 100), QPoint(200, 120)), 1);
    w.count({QPoint(70, 90), QPoint(150, 150)});
    w.pickArrow();
    // Marks that come from a record have another font than those just clicked.
    w.stack().undo();
    w.stack().redo();
    const QList<QPoint> tips = w.tips(1);
    const QRect before = w.place(w.distanceTool()->getCvObject(1));
    LmCvObject* mark = w.markAt(w.labelOf(1, 0));
    QVERIFY(mark);
    const QRect markBefore = w.place(mark);
    w.counterTool()->showCvObject(mark, false);
    w.distanceTool()->showCvObject(w.distanceTool()->getCvObject(1), false);
    w.setRegion();
    w.actions().theShowAll->trigger();
    QCOMPARE(w.place(w.distanceTool()->getCvObject(1)), before);
    mark = w.markAt(w.labelOf(1, 0) - kRegion.topLeft());
    QVERIFY(mark);
    QCOMPARE(w.place(mark), markBefore);
    // A change of one mark writes all of them.
    const QPoint label = w.labelOf(1, 1) - kRegion.topLeft();
    w.drag(label, label + QPoint(12, 9));
    QCOMPARE(w.tips(1).first(), tips.first());
}

MEASURE_TEST_MAIN(TestRegionOfInterestFiles)
#include "TestRegionOfInterestFiles.moc"
