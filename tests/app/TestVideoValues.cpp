#include "AnimatedObjects.h"
#include "ClipWriter.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "TestFont.h"
#include "ValueChart.h"
#include "ValuesDock.h"
#include "ValuesWindow.h"

#include <QChart>
#include <QMenu>
#include <QToolButton>
#include <QValueAxis>

#include <algorithm>

/// Values over the times of a video whose frames come at unequal distances.
class TestVideoValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void axisIsInSeconds();
    void clickGoesToTheFrameNearestInTime();
    void pointerIsToldTheTime();
    void exportHasTheTimesOfTheContainer();
    void picturesAreThoseOfTheFrames();
};

namespace {

/// Frames at 0, 0.04, 0.08, 0.4 and 0.44 s.
class ClipWindow : public ValuesWindow
{
public:
    ClipWindow()
    {
        ClipOptions options;
        options.count = 5;
        options.ticksPerSecond = 100;
        options.stamps = {0, 4, 8, 40, 44};
        stack().setClean();
        const QString clip = path(QStringLiteral("clip.mkv"));
        if (!ClipWriter::write(clip, options) || !window().openAtStart(clip))
            QTest::qFail("the clip couldn't be made or opened", __FILE__, __LINE__);
        theIdx = AnimatedObjects::addDistance(
            bench(), {{0, QPoint(50, 50), QPoint(70, 50)}, {4, QPoint(50, 50), QPoint(150, 50)}});
        editor().setCurrentTrack(nullptr, false);
        settle();
    }
};

} // namespace

void TestVideoValues::axisIsInSeconds()
{
    ClipWindow fixture;
    fixture.check(QStringLiteral("DX"));
    const QList<QAbstractAxis*> axes = fixture.chart().chart()->axes(Qt::Horizontal);
    QCOMPARE(axes.size(), 1);
    QCOMPARE(axes[0]->titleText(), QStringLiteral("Time [s]"));
    const auto* axis = qobject_cast<const QValueAxis*>(axes[0]);
    QVERIFY(axis);
    QCOMPARE(axis->min(), 0.0);
    QCOMPARE(axis->max(), 0.44);
    const int first = fixture.chart().placeOf(0).x();
    const double scale = (fixture.chart().placeOf(4).x() - first) / 0.44;
    QVERIFY(qAbs(fixture.chart().placeOf(3).x() - first - 0.4 * scale) <= 1.5);
}

void TestVideoValues::clickGoesToTheFrameNearestInTime()
{
    ClipWindow fixture;
    fixture.check(QStringLiteral("DX"));
    const QPoint third = fixture.chart().placeOf(2);
    const QPoint between = fixture.chart().placeOf(3) - third;
    QTest::mouseClick(fixture.chart().viewport(), Qt::LeftButton, Qt::NoModifier, third + between * 0.4);
    QCOMPARE(int(fixture.kernel().theCurrentFrame), 2);
    QTest::mouseClick(fixture.chart().viewport(), Qt::LeftButton, Qt::NoModifier, third + between * 0.6);
    QCOMPARE(int(fixture.kernel().theCurrentFrame), 3);
}

void TestVideoValues::pointerIsToldTheTime()
{
    ClipWindow fixture;
    fixture.check(QStringLiteral("DX"));
    const Curve curve = fixture.chart().curves().constFirst();
    const QPoint place = fixture.chart().placeOf(curve, curve.theSeries->theSamples[3]);
    QCOMPARE(fixture.chart().textAt(place), QStringLiteral("Distance 1, DX\nFrame 4, 0.400 s\n80"));
}

void TestVideoValues::exportHasTheTimesOfTheContainer()
{
    ClipWindow fixture;
    fixture.check(QStringLiteral("DX"));
    const QString path = fixture.path(QStringLiteral("values.csv"));
    const ModalAnswer answer(ModalAnswer::chooseFile(path));
    fixture.dock()
        .findChild<QToolButton*>(QStringLiteral("exportValues"))
        ->menu()
        ->actions()
        .at(0)
        ->trigger();
    QVERIFY(answer.isDone());
    QCOMPARE(MadeFiles::read(path), QByteArray("object,name,frame,time,value,unit,keyframe\n"
                                               "Distance 1,DX,1,0,20,,1\n"
                                               "Distance 1,DX,2,0.04,40,,0\n"
                                               "Distance 1,DX,3,0.08,60,,0\n"
                                               "Distance 1,DX,4,0.4,80,,0\n"
                                               "Distance 1,DX,5,0.44,100,,1\n"));
}

void TestVideoValues::picturesAreThoseOfTheFrames()
{
    ClipWindow fixture;
    const int idx = AnimatedObjects::addSquare(fixture.bench(), 60, {{0, {60, 60}}, {4, {120, 90}}});
    fixture.editor().setCurrentTrack(nullptr, false);
    fixture.settle();
    const QString name = QStringLiteral("Avg. lightness");
    fixture.check({AnimatedObjects::kRegionType, idx, name});
    const QList<double> curve = fixture.values();
    QCOMPARE(curve.size(), 5);
    LmCvManipulator* tool = fixture.kernel().getCvManipulator(AnimatedObjects::kRegionType);
    for (int frame = 0; frame < 5; ++frame) {
        QString error;
        QVERIFY(fixture.bench().media().showFrame(frame, error));
        QStringList units;
        QCOMPARE(curve[frame], tool->getValues({name}, idx, units).first().toDouble());
    }
    QVERIFY(*std::max_element(curve.begin(), curve.end()) > *std::min_element(curve.begin(), curve.end()));
}

MEASURE_TEST_MAIN(TestVideoValues)
#include "TestVideoValues.moc"
