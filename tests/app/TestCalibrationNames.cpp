#include "Calibrating.h"
#include "LmKSKernelData.h"
#include "ModalAnswer.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QAction>
#include <QInputDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

/// Calibrations with names: set by the size of a pixel, switched in the menu, renamed and removed in the
/// list.
class TestCalibrationNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pixelSizeCalibrates();
    void menuSwitchesBetweenNamedCalibrations();
    void listRenamesAndRemoves();
    void nameThatIsTakenIsRefused();
};

void TestCalibrationNames::pixelSizeCalibrates()
{
    WindowFixture fixture;
    const ModalAnswer answer(
        Calibrating::type(QStringLiteral("0.5"), QStringLiteral("µm"), QStringLiteral("lens 10x")));
    fixture.actions().thePixelSize->trigger();
    QCOMPARE(Calibrating::step(fixture), 2.0);
    QCOMPARE(Calibrating::current(fixture), QStringLiteral("lens 10x"));
}

void TestCalibrationNames::menuSwitchesBetweenNamedCalibrations()
{
    WindowFixture fixture;
    Calibrating::calibrate(fixture, QStringLiteral("25"), QStringLiteral("near"));
    Calibrating::calibrate(fixture, QStringLiteral("50"), QStringLiteral("far & away"));
    QCOMPARE(Calibrating::step(fixture), 4.0);
    const QMenu& menu = *fixture.actions().theCalibrationMenu;
    WindowFixture::find(menu, QStringLiteral("near"))->trigger();
    QTRY_COMPARE(Calibrating::current(fixture), QStringLiteral("near"));
    QCOMPARE(Calibrating::step(fixture), 8.0);
    QVERIFY(WindowFixture::find(menu, QStringLiteral("near"))->isChecked());
    WindowFixture::find(menu, QStringLiteral("Not Calibrated"))->trigger();
    QTRY_COMPARE(Calibrating::current(fixture), QString());
    fixture.stack().undo();
    QCOMPARE(Calibrating::current(fixture), QStringLiteral("near"));
    fixture.stack().undo();
    QCOMPARE(Calibrating::current(fixture), QStringLiteral("far & away"));
    QVERIFY(!WindowFixture::find(menu, QStringLiteral("near"))->isChecked());
}

/// Chooses a calibration in the list and presses a button.
static void pressInList(QWidget* aDialog, const QString& aName, const char* aButton)
{
    auto* list = aDialog->findChild<QListWidget*>(QStringLiteral("calibrationList"));
    QVERIFY(list);
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->text().startsWith(aName))
            list->setCurrentRow(row);
    QTest::mouseClick(aDialog->findChild<QPushButton*>(QLatin1String(aButton)), Qt::LeftButton);
}

static ModalAnswer::Answer typeName(const QString& aName)
{
    return [aName](QWidget* aDialog) {
        auto* dialog = qobject_cast<QInputDialog*>(aDialog);
        QVERIFY(dialog);
        dialog->setTextValue(aName);
        QTest::keyClick(dialog, Qt::Key_Return);
    };
}

void TestCalibrationNames::listRenamesAndRemoves()
{
    WindowFixture fixture;
    Calibrating::calibrate(fixture, QStringLiteral("25"), QStringLiteral("near"));
    Calibrating::calibrate(fixture, QStringLiteral("50"), QStringLiteral("far"));
    const int count = fixture.stack().count();
    const ModalAnswer answers({[](QWidget* aDialog) {
                                   pressInList(aDialog, QStringLiteral("far"), "rename");
                                   pressInList(aDialog, QStringLiteral("near"), "remove");
                                   aDialog->close();
                               },
                               typeName(QStringLiteral("wide"))});
    fixture.actions().theCalibrations->trigger();
    QVERIFY(answers.isDone());
    QCOMPARE(fixture.kernel().calibrations().keys(), QStringList(QStringLiteral("wide")));
    QCOMPARE(Calibrating::current(fixture), QStringLiteral("wide"));
    QCOMPARE(Calibrating::step(fixture), 4.0);
    QCOMPARE(fixture.stack().count(), count + 2);
    fixture.stack().undo();
    fixture.stack().undo();
    QCOMPARE(fixture.kernel().calibrations().keys(),
             QStringList({QStringLiteral("far"), QStringLiteral("near")}));
    QCOMPARE(Calibrating::current(fixture), QStringLiteral("far"));
}

void TestCalibrationNames::nameThatIsTakenIsRefused()
{
    WindowFixture fixture;
    Calibrating::calibrate(fixture, QStringLiteral("25"), QStringLiteral("near"));
    Calibrating::calibrate(fixture, QStringLiteral("50"), QStringLiteral("far"));
    const int count = fixture.stack().count();
    const ModalAnswer answers({[](QWidget* aDialog) {
                                   pressInList(aDialog, QStringLiteral("far"), "rename");
                                   aDialog->close();
                               },
                               typeName(QStringLiteral("near")), ModalAnswer::press(QMessageBox::Ok)});
    fixture.actions().theCalibrations->trigger();
    QVERIFY(answers.isDone());
    QCOMPARE(fixture.stack().count(), count);
    QCOMPARE(Calibrating::current(fixture), QStringLiteral("far"));
}

MEASURE_TEST_MAIN(TestCalibrationNames)
#include "TestCalibrationNames.moc"
