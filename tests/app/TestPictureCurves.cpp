#include "AnimatedObjects.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "Player.h"
#include "Sentence.h"
#include "TestFont.h"
#include "ValueStore.h"
#include "ValuesDock.h"
#include "ValuesWindow.h"

#include <QAction>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QToolButton>

using AnimatedObjects::kRegionType;

// The lightness in percent of pages of the grays 51, 102, 153 and 204.
static const QList<double> kLightness{51 / 2.55, 102 / 2.55, 153 / 2.55, 204 / 2.55};

/// Curves of values that are measured in the pictures, what is worked out when, and the export of the window.
class TestPictureCurves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void picturesAreReadWhenAskedFor();
    void changedObjectIsMeasuredAgain();
    void playerStopsForTheReading();
    void longReadingCanBeCancelled();
    void onlyWhatIsShownIsWorkedOut();
    void changeMakesTheOldValuesStale();
    void menuExportsWhatIsChecked();
    void actionExportsAll();
    void exportWithoutObjectsTellsWhy();

private:
    /// Pages of one gray each and a square on them.
    static ValueKey openGrays(ValuesWindow& aFixture, const QList<int>& aGrays)
    {
        aFixture.stack().setClean();
        AnimatedObjects::openGrays(aFixture.bench(), aFixture.path(QStringLiteral("grays.tif")),
                                   QSize(120, 80), aGrays);
        const ValueKey key{kRegionType,
                           AnimatedObjects::addSquare(aFixture.bench(), 20, {{0, {50, 50}}, {3, {90, 50}}}),
                           QStringLiteral("Avg. lightness")};
        // The new square is current and would have a curve by itself.
        aFixture.editor().setCurrentTrack(nullptr, false);
        ValuesWindow::settle();
        return key;
    }
    static void chooseExport(ValuesWindow& aFixture, int aEntry)
    {
        auto* button = aFixture.dock().findChild<QToolButton*>(QStringLiteral("exportValues"));
        button->menu()->actions().at(aEntry)->trigger();
    }
};

void TestPictureCurves::picturesAreReadWhenAskedFor()
{
    ValuesWindow fixture;
    const ValueKey key = openGrays(fixture, {51, 102, 153, 204});
    QVERIFY(fixture.kernel().getCvManipulator(kRegionType)->theValueNames.contains(key.theName));
    fixture.check(key);
    QCOMPARE(fixture.names(), QStringList{QStringLiteral("Region 1/Avg. lightness")});
    QCOMPARE(fixture.values(), kLightness);
    QVERIFY(!fixture.readButton());
    QCOMPARE(fixture.kernel().theCurrentFrame, 0U);
    QCOMPARE(fixture.kernel().theCurrentImage, fixture.bench().media().image());
}

void TestPictureCurves::changedObjectIsMeasuredAgain()
{
    ValuesWindow fixture;
    const ValueKey key = openGrays(fixture, {51, 102, 153, 204});
    fixture.check(key);
    QCOMPARE(fixture.values().size(), 4);
    fixture.stack().undo();
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList());
    fixture.stack().redo();
    fixture.editor().setCurrentTrack(nullptr, false);
    fixture.settle();
    // A quick reading is done again by itself, a long one when the button is pressed.
    if (QPushButton* button = fixture.readButton()) {
        QCOMPARE(fixture.names(), QStringList());
        QTest::mouseClick(button, Qt::LeftButton);
        fixture.settle();
    }
    QVERIFY(!fixture.readButton());
    QCOMPARE(fixture.values(), kLightness);
}

void TestPictureCurves::playerStopsForTheReading()
{
    ValuesWindow fixture;
    const ValueKey key = openGrays(fixture, {51, 102, 153, 204});
    auto* player = fixture.window().findChild<Player*>();
    player->play();
    QVERIFY(player->isPlaying());
    fixture.check(key);
    QVERIFY(!player->isPlaying());
    QCOMPARE(fixture.values(), kLightness);
    QCOMPARE(int(fixture.kernel().theCurrentFrame), fixture.bench().media().frame());
}

void TestPictureCurves::longReadingCanBeCancelled()
{
    ValuesWindow fixture;
    const ValueKey key = openGrays(fixture, QList<int>(3000, 100));
    ModalAnswer answer([](QWidget* aDialog) {
        auto* dialog = qobject_cast<QProgressDialog*>(aDialog);
        QVERIFY(dialog);
        QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
    });
    fixture.check(key);
    QVERIFY(answer.isDone());
    fixture.settle();
    QCOMPARE(fixture.names(), QStringList());
    QVERIFY(fixture.readButton());
    QCOMPARE(fixture.kernel().theCurrentFrame, 0U);
    QCOMPARE(fixture.kernel().theCurrentImage, fixture.bench().media().image());
}

void TestPictureCurves::onlyWhatIsShownIsWorkedOut()
{
    ValuesWindow fixture;
    ValueStore store(fixture.bench().media(), nullptr);
    const ValueKey dx = fixture.valueOf(QStringLiteral("DX"));
    const ValueKey dy = fixture.valueOf(QStringLiteral("DY"));
    store.want({dx});
    QVERIFY(store.isWorking());
    QVERIFY(!store.find(dx)); // not in the very call
    QTRY_VERIFY(!store.isWorking());
    QVERIFY(store.find(dx));
    QVERIFY(!store.find(dy));
    const ValueSeriesPtr first = store.find(dx);
    store.want({dx});
    QVERIFY(!store.isWorking());
    store.want({dx, dy});
    QTRY_VERIFY(!store.isWorking());
    QVERIFY(store.find(dy));
    QCOMPARE(store.find(dx), first);
}

void TestPictureCurves::changeMakesTheOldValuesStale()
{
    ValuesWindow fixture;
    const ValueKey lightness = openGrays(fixture, {51, 102, 153, 204});
    const ValueKey area{lightness.theType, lightness.theIdx, QStringLiteral("Area")};
    ValueStore store(fixture.bench().media(), nullptr);
    store.want({area, lightness});
    QTRY_VERIFY(!store.isWorking());
    QCOMPARE(store.missingPictures(), QList<ValueKey>{lightness});
    QVERIFY(!store.arePicturesQuick());
    QVERIFY(!store.readPictures([](qint64, qint64) { return false; }));
    QVERIFY(!store.find(lightness));
    QVERIFY(store.readPictures([](qint64, qint64) { return true; }));
    QVERIFY(store.missingPictures().isEmpty());
    QCOMPARE(store.known().size(), 2);
    const QSignalSpy news(&store, &ValueStore::changed);
    fixture.kernel().announceObjectChanged(lightness.theType, lightness.theIdx);
    fixture.kernel().announceObjectChanged(lightness.theType, lightness.theIdx);
    QVERIFY(store.find(area)); // goes on being shown until it is worked out again
    QVERIFY(!store.find(lightness));
    QVERIFY(store.known().isEmpty());
    QCOMPARE(news.count(), 0);
    fixture.settle();
    QCOMPARE(news.count(), 1);
}

void TestPictureCurves::menuExportsWhatIsChecked()
{
    ValuesWindow fixture;
    fixture.check(QStringLiteral("DX"));
    const QString path = fixture.path(QStringLiteral("checked.csv"));
    const ModalAnswer answer(ModalAnswer::chooseFile(path));
    chooseExport(fixture, 0);
    QVERIFY(answer.isDone());
    const QByteArray text = MadeFiles::read(path);
    QCOMPARE(text.count('\n'), 1 + 6);
    QVERIFY(text.endsWith("Distance 1,DX,6,,200,,1\n"));
}

void TestPictureCurves::actionExportsAll()
{
    ValuesWindow fixture;
    const ValueKey key = openGrays(fixture, {51, 102, 153, 204});
    QCOMPARE(key.theIdx, 1);
    const QString path = fixture.path(QStringLiteral("all.csv"));
    const ModalAnswer answer(ModalAnswer::chooseFile(path));
    fixture.key(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(answer.isDone());
    const QByteArray text = MadeFiles::read(path);
    QCOMPARE(text.count('\n'), 1 + 6 * 4 + 2 * 2);
    QVERIFY(text.contains("Region 1,Avg. saturation,4,,80,%,1\n"));
}

void TestPictureCurves::exportWithoutObjectsTellsWhy()
{
    WindowFixture fixture;
    const ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    fixture.actions().theExportValues->trigger();
    QVERIFY(answer.isDone());
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
}

MEASURE_TEST_MAIN(TestPictureCurves)
#include "TestPictureCurves.moc"
