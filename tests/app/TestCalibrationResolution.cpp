#include "Calibration.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "ResolutionDialog.h"
#include "Sentence.h"
#include "TestFont.h"
#include "TestSamples.h"
#include "WindowFixture.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUndoStack>

namespace {

/// Writes a picture of 400 x 300 pixels whose file notes so many pixels to the metre.
bool saveNoted(const QString& aPath, int aAcross, int aDown)
{
    QImage picture = madePicture(400, 300);
    picture.setDotsPerMeterX(aAcross);
    picture.setDotsPerMeterY(aDown);
    return picture.save(aPath);
}

void openNoted(WindowFixture& aWindow, int aAcross, int aDown)
{
    const QString path = aWindow.path(QStringLiteral("noted.png"));
    if (!saveNoted(path, aAcross, aDown) || !aWindow.window().openAtStart(path))
        qFatal("the noted picture couldn't be opened");
}

/// A file whose format has no note that is read.
void openPlain(WindowFixture& aWindow)
{
    const QString path = aWindow.path(QStringLiteral("plain.bmp"));
    if (!madePicture(400, 300).save(path) || !aWindow.window().openAtStart(path))
        qFatal("the plain picture couldn't be opened");
}

ModalAnswer::Answer choose(const QString& aUnit, const QString& aName = QString())
{
    return [aUnit, aName](QWidget* aDialog) {
        auto* unit = aDialog->findChild<QComboBox*>(QStringLiteral("unit"));
        unit->setCurrentIndex(unit->findText(aUnit));
        QTest::keyClicks(aDialog->findChild<QLineEdit*>(QStringLiteral("name")), aName);
        auto* buttons = aDialog->findChild<QDialogButtonBox*>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    };
}

double step(WindowFixture& aWindow, QString& aUnit)
{
    return aWindow.kernel().currentStep(aUnit);
}

} // namespace

/// Calibrating by the resolution that the picture's file notes, in the window.
class TestCalibrationResolution : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entryFollowsThePicture();
    void notedResolutionCalibratesInOneStep_data();
    void notedResolutionCalibratesInOneStep();
    void seriesIsCalibratedByThePictureShown();
    void pixelsThatAreNotSquareAreTold();
    void fileThatHasGoneIsTold();
    void cancelChangesNothing();
    void dialogTellsOfReplacingAndOfGuesses();
};

void TestCalibrationResolution::entryFollowsThePicture()
{
    WindowFixture w(WindowFixture::kEmpty);
    const QAction* entry = w.actions().theResolution;
    QVERIFY(!entry->isEnabled());
    openNoted(w, 10000, 10000);
    QVERIFY(entry->isEnabled());
    // The reader of pictures has a density for every picture; only a note in the file counts.
    openPlain(w);
    QVERIFY(!entry->isEnabled());
    w.bench().media().openPlaceholder(w.path(QStringLiteral("none.png")), QSize(40, 30));
    QVERIFY(!entry->isEnabled());
}

void TestCalibrationResolution::notedResolutionCalibratesInOneStep_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("pixelsPerUnit");
    QTest::newRow("mm") << QStringLiteral("mm") << 10.0;
    QTest::newRow("cm") << QStringLiteral("cm") << 100.0;
    QTest::newRow("um") << QStringLiteral("µm") << 0.01;
    QTest::newRow("in") << QStringLiteral("in") << 254.0;
}

void TestCalibrationResolution::notedResolutionCalibratesInOneStep()
{
    QFETCH(QString, unit);
    QFETCH(double, pixelsPerUnit);
    WindowFixture w;
    openNoted(w, 10000, 10000);
    ModalAnswer answer(choose(unit, QStringLiteral("scanner")));
    w.key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(answer.isDone());
    QCOMPARE(w.stack().count(), 1);
    QString found;
    QCOMPARE(step(w, found), pixelsPerUnit);
    QCOMPARE(found, unit);
    QCOMPARE(Calibration::names(), QStringList(QStringLiteral("scanner")));
    w.stack().undo();
    QCOMPARE(step(w, found), 0.0);
    QVERIFY(Calibration::names().isEmpty());
    w.stack().redo();
    QCOMPARE(step(w, found), pixelsPerUnit);
}

void TestCalibrationResolution::seriesIsCalibratedByThePictureShown()
{
    WindowFixture w(WindowFixture::kEmpty);
    const QAction* entry = w.actions().theResolution;
    QVERIFY(QDir(w.path(QString())).mkdir(QStringLiteral("series")));
    QVERIFY(saveNoted(w.path(QStringLiteral("series/1.png")), 10000, 10000));
    QVERIFY(madePicture(400, 300).save(w.path(QStringLiteral("series/2.bmp"))));
    QVERIFY(saveNoted(w.path(QStringLiteral("series/3.png")), 20000, 20000));
    QVERIFY(w.window().openAtStart(w.path(QStringLiteral("series"))));
    QVERIFY(entry->isEnabled());
    w.key(Qt::Key_PageDown);
    QVERIFY(!entry->isEnabled());
    w.key(Qt::Key_PageDown);
    QVERIFY(entry->isEnabled());
    ModalAnswer answer(choose(QStringLiteral("mm")));
    w.actions().theResolution->trigger();
    QVERIFY(answer.isDone());
    QString unit;
    QCOMPARE(step(w, unit), 20.0);
    QCOMPARE(unit, QStringLiteral("mm"));
    w.key(Qt::Key_PageUp);
    QVERIFY(!entry->isEnabled());
}

void TestCalibrationResolution::pixelsThatAreNotSquareAreTold()
{
    WindowFixture w;
    openNoted(w, 10000, 5000);
    QVERIFY(w.actions().theResolution->isEnabled());
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    w.actions().theResolution->trigger();
    QVERIFY(answer.isDone());
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QVERIFY2(ModalAnswer::lastText().contains(QStringLiteral("10,000 x 5,000 pixels per metre")) ||
                 ModalAnswer::lastText().contains(QStringLiteral("10000 x 5000 pixels per metre")),
             qPrintable(ModalAnswer::lastText()));
    QCOMPARE(w.stack().count(), 0);
}

void TestCalibrationResolution::fileThatHasGoneIsTold()
{
    WindowFixture w;
    openNoted(w, 10000, 10000);
    QVERIFY(QFile::remove(w.path(QStringLiteral("noted.png"))));
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    w.actions().theResolution->trigger();
    QVERIFY(answer.isDone());
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QCOMPARE(w.stack().count(), 0);
}

void TestCalibrationResolution::cancelChangesNothing()
{
    WindowFixture w;
    openNoted(w, 10000, 10000);
    ModalAnswer answer(ModalAnswer::cancel());
    w.actions().theResolution->trigger();
    QVERIFY(answer.isDone());
    QCOMPARE(w.stack().count(), 0);
}

void TestCalibrationResolution::dialogTellsOfReplacingAndOfGuesses()
{
    WindowFixture w;
    w.kernel().setCalibration(QStringLiteral("lens"), LmCalibData{4.0, QStringLiteral("mm")});
    const auto meaning = [](ResolutionDialog& aDialog) {
        return aDialog.findChild<QLabel*>(QStringLiteral("meaning"))->text();
    };
    ResolutionDialog dialog(ResolutionTag{254.0, 254.0, ResolutionTag::kInch}, nullptr);
    QVERIFY(dialog.findChild<QLabel*>(QStringLiteral("introduction"))
                ->text()
                .contains(QStringLiteral("254 pixels per inch")));
    QCOMPARE(meaning(dialog), QStringLiteral("The picture is 40 mm wide, a pixel 0.1 mm."));
    QCOMPARE(dialog.name(), QStringLiteral("Calibration 1"));
    QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("name")), QStringLiteral("lens"));
    QVERIFY2(meaning(dialog).contains(QStringLiteral("replaces “lens”")), qPrintable(meaning(dialog)));
    QCOMPARE(dialog.name(), QStringLiteral("lens"));
    for (const ResolutionTag& guess : {ResolutionTag{72.0, 72.0, ResolutionTag::kInch},
                                       ResolutionTag{2835.0, 2835.0, ResolutionTag::kMetre}}) {
        ResolutionDialog doubtful(guess, nullptr);
        QVERIFY2(meaning(doubtful).contains(QStringLiteral("check it")), qPrintable(meaning(doubtful)));
    }
    // So dense that the whole picture is smaller than what counts as a calibration.
    ResolutionDialog tiny(ResolutionTag{4e9, 4e9, ResolutionTag::kMetre}, nullptr);
    const auto* ok = tiny.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    QVERIFY(!ok->isEnabled());
    QVERIFY2(meaning(tiny).contains(QStringLiteral("smaller unit")), qPrintable(meaning(tiny)));
    auto* unit = tiny.findChild<QComboBox*>(QStringLiteral("unit"));
    unit->setCurrentIndex(unit->findText(QStringLiteral("µm")));
    QVERIFY(ok->isEnabled());
}

MEASURE_TEST_MAIN(TestCalibrationResolution)
#include "TestCalibrationResolution.moc"
