#include "AnimatedObjects.h"
#include "Calibrating.h"
#include "CameraWindow.h"
#include "CmdCalibrate.h"
#include "Document.h"
#include "FakeCameras.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "PlainValues.h"
#include "Q3Table.h"
#include "ScaleBarView.h"
#include "TestFont.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QLine>
#include <QMenu>
#include <QUndoStack>

namespace {

constexpr QSize kFormer(400, 300);
constexpr QSize kDouble(800, 600);

QImage gray(const QSize& aSize)
{
    QImage picture(aSize, QImage::Format_RGB888);
    picture.fill(QColor(90, 120, 150));
    return picture;
}

/// All values of all objects, as numbers with their units.
QMap<QString, QPair<double, QString>> allValues(CameraWindow& aWindow)
{
    QMap<QString, QPair<double, QString>> values;
    const auto& objects = aWindow.kernel().theObjects;
    for (auto type = objects.begin(); type != objects.end(); ++type)
        for (auto object = type->begin(); object != type->end(); ++object) {
            LmCvManipulator* tool = aWindow.kernel().getCvManipulator(type.key());
            QStringList units;
            const auto numbers = tool->getValues(tool->theValueNames, object.value(), units);
            int at = 0;
            for (const QVariant& number : numbers) {
                values[QStringLiteral("%1 %2 %3")
                           .arg(type.key())
                           .arg(object.key())
                           .arg(tool->theValueNames[at])] = {number.toDouble(), units[at]};
                ++at;
            }
        }
    return values;
}

} // namespace

/// Changes of the resolution while the camera is live.
class TestCameraResolution : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resolutionMenuOffersTheSizes();
    void objectsAreScaledAndKeepTheirValues();
    void valuesOnTheScreenFollow();
    void scaleBarFollows();
    void hiddenObjectsAreScaled();
    void animatedObjectsKeepTheirKeyframes();
    void regionOfInterestIsScaled();
    void stepsBeforeCannotBeUndone();
    void unchangedWorkStaysUnchanged();
    void otherSizeWaitsForTheMouse();
    void calibrationAloneIsWorkToo();
    void otherSizeBeginsAnotherSeries();
};

void TestCameraResolution::resolutionMenuOffersTheSizes()
{
    CameraWindow w;
    auto* sizes = w.menu().findChild<QMenu*>(QStringLiteral("cameraSizes"));
    QVERIFY(!sizes->isEnabled());
    w.goLive(gray(kFormer));
    QVERIFY(sizes->isEnabled());
    Q_EMIT sizes->aboutToShow();
    QCOMPARE(sizes->actions().size(), 2);
    QVERIFY(!sizes->actions().first()->isChecked());
    QVERIFY(sizes->actions().last()->isChecked());
    sizes->actions().first()->trigger();
    QCOMPARE(w.camera().wantedSize(), kDouble);
    w.send(gray(kDouble));
    Q_EMIT sizes->aboutToShow();
    QVERIFY(sizes->actions().first()->isChecked());
}

void TestCameraResolution::objectsAreScaledAndKeepTheirValues()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    Calibrating::calibrate(w, QStringLiteral("50"));
    QCOMPARE(w.draw(QPoint(50, 50), QPoint(150, 70)), 1);
    w.pick(CameraWindow::kAngleType);
    w.drag(QPoint(200, 200), QPoint(260, 200));
    w.click(QPoint(200, 150));
    w.pick(CameraWindow::kDimensionType);
    w.drag(QPoint(50, 150), QPoint(50, 250));
    w.drag(QPoint(50, 200), QPoint(90, 200), Qt::AltModifier);
    w.pickArrow();
    w.drawClosed({QPoint(300, 60), QPoint(380, 70), QPoint(340, 140)});
    w.count({QPoint(120, 120), QPoint(310, 250)});
    w.pickArrow();
    QCOMPARE(w.kernel().theObjects.size(), 5);
    const auto before = allValues(w);
    QVERIFY(before.size() >= 10);
    const QLine distance = w.ends(1);
    const QList<QPoint> corners = w.anchors(1);
    const QList<QPoint> tips = w.tips(1);
    QMap<int, QRect> places;
    for (auto type = w.kernel().theObjects.begin(); type != w.kernel().theObjects.end(); ++type)
        if (LmCvObject* item = w.kernel().getCvManipulator(type.key())->getCvObject(1))
            places[type.key()] = w.place(item);

    w.send(gray(kDouble));
    QCOMPARE(w.kernel().getCurrentImageSize(), kDouble);
    QCOMPARE(w.editor().canvas()->size(), kDouble);
    const auto after = allValues(w);
    QCOMPARE(after.keys(), before.keys());
    for (auto value = before.begin(); value != before.end(); ++value) {
        QCOMPARE(after[value.key()].second, value->second);
        const double deviation = std::abs(after[value.key()].first - value->first);
        QVERIFY2(deviation <= 1e-9 + 0.01 * std::abs(value->first), qPrintable(value.key()));
    }
    QCOMPARE(w.ends(1), QLine(2 * distance.p1(), 2 * distance.p2()));
    for (int corner = 0; corner < corners.size(); ++corner)
        QCOMPARE(w.anchors(1)[corner], 2 * corners[corner]);
    for (int mark = 0; mark < tips.size(); ++mark)
        QCOMPARE(w.tips(1)[mark], 2 * tips[mark]);
    // The items follow their records.
    QVERIFY(places.size() >= 4);
    for (auto place = places.begin(); place != places.end(); ++place) {
        const QRect now = w.place(w.kernel().getCvManipulator(place.key())->getCvObject(1));
        QVERIFY(now != place.value());
    }
    QVERIFY(w.told().contains(QStringLiteral("800 x 600")));
}

/// Without a calibration lengths are pixels, of which there are more now.
void TestCameraResolution::valuesOnTheScreenFollow()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    QCOMPARE(w.draw(QPoint(50, 50), QPoint(150, 50)), 1);
    LmCvManipulator& tool = *w.distanceTool();
    const auto cell = [&w] {
        auto* dock = w.window().findChild<QDockWidget*>(QStringLiteral("Measurements"));
        const Q3Table& table = *dock->findChild<Q3Table*>();
        const Q3Header& header = *table.horizontalHeader();
        int column = 0;
        while (header.label(header.mapToSection(column)) != QStringLiteral("Distance"))
            ++column;
        return table.text(0, column);
    };
    const QString former = tool.getCvObject(1)->theDisplayValue;
    QVERIFY2(former.contains(QStringLiteral("100")), qPrintable(former));
    QVERIFY2(cell().contains(QStringLiteral("100")), qPrintable(cell()));
    w.send(gray(kDouble));
    QCOMPARE(tool.getCvObject(1)->theDisplayValue, PlainValues::label(tool, *w.distance(1)));
    QVERIFY2(tool.getCvObject(1)->theDisplayValue.contains(QStringLiteral("200")),
             qPrintable(tool.getCvObject(1)->theDisplayValue));
    QVERIFY2(cell().contains(QStringLiteral("200")), qPrintable(cell()));
}

void TestCameraResolution::scaleBarFollows()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    Calibrating::calibrate(w, QStringLiteral("50"));
    w.actions().theZoomOne->trigger();
    w.actions().theScaleBar->setChecked(true);
    const QWidget* viewport = w.editor().viewport();
    const auto& bar = *viewport->findChild<ScaleBarView*>();
    const int former = bar.width();
    const QString text = bar.text();
    QCOMPARE(text, PlainValues::scaleBar(w.editor().zoom(), viewport->width()));
    w.send(gray(kDouble));
    QCOMPARE(bar.text(), PlainValues::scaleBar(w.editor().zoom(), viewport->width()));
    QVERIFY(bar.text() != text || bar.width() > former);
}

void TestCameraResolution::hiddenObjectsAreScaled()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    w.draw(QPoint(50, 50), QPoint(150, 70));
    w.count({QPoint(120, 120), QPoint(300, 200)});
    w.pickArrow();
    const QList<QPoint> tips = w.tips(1);
    LmCvManipulator* counter = w.counterTool();
    counter->showCvObject(counter->getCvObject(1), false);
    w.distanceTool()->showCvObject(w.distanceTool()->getCvObject(1), false);
    w.send(gray(kDouble));
    w.actions().theShowAll->trigger();
    QCOMPARE(w.ends(1), QLine(100, 100, 300, 140));
    QVERIFY(w.place(w.distanceTool()->getCvObject(1)).contains(QPoint(200, 120)));
    QCOMPARE(w.tips(1).size(), tips.size());
    for (int mark = 0; mark < tips.size(); ++mark) {
        QCOMPARE(w.tips(1)[mark], 2 * tips[mark]);
        QVERIFY(w.markAt(w.labelOf(1, mark)));
    }
}

void TestCameraResolution::animatedObjectsKeepTheirKeyframes()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    const int idx = AnimatedObjects::addDistance(w.bench(), {{0, QPoint(50, 50), QPoint(150, 50)}});
    const LmKernelObjectData* record = w.distance(idx);
    const QVariant pos = record->getKeyframesAt(0)[3].getValue();
    w.send(gray(kDouble));
    QCOMPARE(record->getKeyframesAt(0)[3].getValue(), pos);
    // The item stands where its keyframe says, not where it would without a frame.
    QVERIFY(w.place(w.distanceTool()->getCvObject(idx)).contains(QPoint(100, 50)));
}

void TestCameraResolution::regionOfInterestIsScaled()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    w.setRegion(QRect(50, 40, 200, 150));
    w.draw(QPoint(20, 20), QPoint(100, 20)); // canvas
    QCOMPARE(w.ends(1), QLine(70, 60, 150, 60));
    w.send(gray(kDouble));
    QCOMPARE(w.region(), QRect(100, 80, 400, 300));
    QCOMPARE(w.editor().canvas()->size(), QSize(400, 300));
    QCOMPARE(w.ends(1), QLine(140, 120, 300, 120));
    QVERIFY(w.place(w.distanceTool()->getCvObject(1)).contains(QPoint(220, 120)));
    QVERIFY(w.field("region").contains(QStringLiteral("400 x 300")));
    // A picture that has nothing there.
    w.send(gray(QSize(800, 60)));
    QVERIFY(w.region().isNull());
    QCOMPARE(w.editor().canvas()->size(), QSize(800, 60));
}

void TestCameraResolution::stepsBeforeCannotBeUndone()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    w.draw(QPoint(50, 50), QPoint(150, 50));
    w.draw(QPoint(50, 90), QPoint(150, 90));
    w.stack().undo();
    w.send(gray(kDouble));
    QVERIFY(!w.stack().canUndo());
    QVERIFY(!w.stack().canRedo());
    QVERIFY(w.bench().document().isModified());
    QVERIFY(w.told().contains(QStringLiteral("undone")));
    // Later ones can, and don't come to a clean state by that.
    w.draw(QPoint(100, 300), QPoint(300, 300));
    w.stack().undo();
    QCOMPARE(w.distanceCount(), 1);
    QCOMPARE(w.ends(1), QLine(100, 100, 300, 100));
    QVERIFY(w.bench().document().isModified());
    QVERIFY(w.save(QStringLiteral("a.mtp")));
    QVERIFY(!w.bench().document().isModified());
    w.send(gray(kFormer));
    QCOMPARE(w.ends(1), QLine(50, 50, 150, 50));
}

void TestCameraResolution::unchangedWorkStaysUnchanged()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    w.send(gray(kDouble));
    QVERIFY(!w.bench().document().isModified());
}

void TestCameraResolution::otherSizeWaitsForTheMouse()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    w.pickDistance();
    w.press(QPoint(50, 50));
    w.move(QPoint(100, 50));
    w.send(gray(kDouble));
    QCOMPARE(w.bench().media().image()->size(), kFormer);
    w.move(QPoint(150, 50));
    w.release(QPoint(150, 50));
    QCOMPARE(w.ends(1), QLine(50, 50, 150, 50));
    w.send(gray(kDouble));
    QCOMPARE(w.bench().media().image()->size(), kDouble);
    QCOMPARE(w.ends(1), QLine(100, 100, 300, 100));
}

void TestCameraResolution::calibrationAloneIsWorkToo()
{
    CameraWindow w;
    w.goLive(gray(kFormer));
    w.stack().push(
        new CmdCalibrate(QStringLiteral("c"), LmCalibData{40.0, QStringLiteral("mm")}, QStringLiteral("c")));
    w.send(gray(kDouble));
    QVERIFY(w.bench().document().isModified());
}

void TestCameraResolution::otherSizeBeginsAnotherSeries()
{
    CameraWindow w;
    w.goLive(CameraWindow::picture(0));
    w.take();
    w.draw(QPoint(50, 50), QPoint(150, 50));
    QVERIFY(w.save(QStringLiteral("a.mtp")));
    const QByteArray project = MadeFiles::read(w.path(QStringLiteral("a.mtp")));
    const QString former = w.bench().media().path();
    w.actions().thePreviousFrame->trigger();
    w.send(CameraWindow::picture(1, kDouble));
    QVERIFY(w.told().contains(former));
    QVERIFY(w.bench().media().path() != former);
    QCOMPARE(w.kernel().theMediaFile, w.bench().media().path());
    QCOMPARE(w.frameCount(), 1);
    QCOMPARE(w.frame(), 0);
    QCOMPARE(w.shown(), CameraWindow::picture(1, kDouble));
    QCOMPARE(w.ends(1), QLine(100, 100, 300, 100));
    // The former project is that of the former series.
    QVERIFY(w.bench().document().projectPath().isEmpty());
    QCOMPARE(w.window().windowTitle(), QStringLiteral("Camera Fake[*] - MeasureTools"));
    w.take();
    QCOMPARE(QDir(former).entryList(QDir::Files).size(), 2);
    QCOMPARE(QDir(w.bench().media().path()).entryList(QDir::Files).size(), 1);
    QCOMPARE(MadeFiles::read(w.path(QStringLiteral("a.mtp"))), project);
}

MEASURE_TEST_MAIN(TestCameraResolution)
#include "TestCameraResolution.moc"
