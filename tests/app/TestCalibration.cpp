#include "Calibration.h"
#include "CalibrationDialog.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "TestFont.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>

/// The arithmetic of calibrating, and the dialog that asks for the number.
class TestCalibration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();
    void lengthGivesTheStepThatWasMeasured();
    void pixelSizeIsGivenBack();
    void calibScaleDoesNotChangeWhatAPixelIs();
    void degenerateInputIsNotUsable();
    void freeNameIsNotTaken();
    void numberIsReadAsPeopleTypeIt_data();
    void numberIsReadAsPeopleTypeIt();
    void dialogAcceptsOnlyWhatCalibrates_data();
    void dialogAcceptsOnlyWhatCalibrates();
    void tabGoesThroughTheFieldsBothWays();
    void dialogTellsWhichCalibrationItReplaces();
    void dialogRemembersTheUnit();

private:
    QTemporaryDir theFolder;
    std::unique_ptr<LmImage> theImage;
};

static LmKSKernelData& kernel()
{
    return *LmKSKernelData::getInstance();
}

void TestCalibration::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("measuretools-tests"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, theFolder.path());
    theImage = std::make_unique<LmImage>(640, 480, 1, nullptr, 4);
    kernel().theCurrentImage = theImage.get();
}

void TestCalibration::init()
{
    QSettings().clear();
    kernel().theCalibScale = 1.0;
    kernel().setCurrentCalibration(QString());
    for (const QString& name : Calibration::names())
        kernel().removeCalibration(name);
}

void TestCalibration::cleanupTestCase()
{
    kernel().theCurrentImage = nullptr;
}

void TestCalibration::lengthGivesTheStepThatWasMeasured()
{
    kernel().setCalibration(QStringLiteral("c"), Calibration::fromLength(320.0, 25.0, QStringLiteral("mm")));
    kernel().setCurrentCalibration(QStringLiteral("c"));
    QString unit;
    QCOMPARE(kernel().currentStep(unit), 320.0 / 25.0);
    QCOMPARE(unit, QStringLiteral("mm"));
}

void TestCalibration::pixelSizeIsGivenBack()
{
    const LmCalibData data = Calibration::fromPixelSize(0.37, QStringLiteral("mm"));
    QCOMPARE(data.theValue, 640 * 0.37);
    QCOMPARE(Calibration::pixelSize(data), 0.37);
}

void TestCalibration::calibScaleDoesNotChangeWhatAPixelIs()
{
    kernel().theCalibScale = 2.5;
    kernel().setCalibration(QStringLiteral("c"), Calibration::fromLength(100.0, 10.0, QStringLiteral("mm")));
    kernel().setCurrentCalibration(QStringLiteral("c"));
    QString unit;
    QCOMPARE(kernel().currentStep(unit), 10.0);
}

void TestCalibration::degenerateInputIsNotUsable()
{
    const QString unit = QStringLiteral("mm");
    const double infinite = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double length : {0.0, -1.0, infinite, none})
        QVERIFY(!Calibration::isUsable(Calibration::fromLength(100.0, length, unit)));
    for (const double pixels : {0.0, -5.0, none})
        QVERIFY(!Calibration::isUsable(Calibration::fromLength(pixels, 10.0, unit)));
    // The width of the picture would be exactly the value that marks a picture without calibration.
    QVERIFY(!Calibration::isUsable(LmCalibData{0.001, unit}));
    QVERIFY(Calibration::isUsable(LmCalibData{0.0011, unit}));
    QCOMPARE(Calibration::pixelSize(LmCalibData{0.001, unit}), 0.0);
}

void TestCalibration::freeNameIsNotTaken()
{
    QCOMPARE(Calibration::freeName(), QStringLiteral("Calibration 1"));
    kernel().setCalibration(QStringLiteral("Calibration 1"), LmCalibData{1.0, QString()});
    kernel().setCalibration(QStringLiteral("Calibration 3"), LmCalibData{1.0, QString()});
    QCOMPARE(Calibration::freeName(), QStringLiteral("Calibration 2"));
}

void TestCalibration::numberIsReadAsPeopleTypeIt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("whole") << "25" << 25.0;
    QTest::newRow("point") << "0.5" << 0.5;
    QTest::newRow("comma") << "0,5" << 0.5;
    QTest::newRow("blanks") << "  7.25 " << 7.25;
    QTest::newRow("exponent") << "1e-3" << 0.001;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("letters") << "ten" << 0.0;
    QTest::newRow("with a unit") << "10 mm" << 0.0;
    QTest::newRow("infinite") << "inf" << 0.0;
    QTest::newRow("not a number") << "nan" << 0.0;
}

void TestCalibration::numberIsReadAsPeopleTypeIt()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QCOMPARE(Calibration::numberFromText(text), number);
}

void TestCalibration::dialogAcceptsOnlyWhatCalibrates_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("good") << "25"
                          << "mm" << true;
    QTest::newRow("own unit") << "25"
                              << "widgets" << true;
    QTest::newRow("nothing") << ""
                             << "mm" << false;
    QTest::newRow("zero") << "0"
                          << "mm" << false;
    QTest::newRow("negative") << "-3"
                              << "mm" << false;
    QTest::newRow("letters") << "abc"
                             << "mm" << false;
    QTest::newRow("no unit") << "25"
                             << " " << false;
    QTest::newRow("too large a unit") << "0.0001"
                                      << "km" << false;
}

void TestCalibration::dialogAcceptsOnlyWhatCalibrates()
{
    QFETCH(QString, number);
    QFETCH(QString, unit);
    QFETCH(bool, accepted);
    CalibrationDialog dialog(CalibrationDialog::kLength, 320.0, nullptr);
    dialog.show();
    QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("number")), number);
    dialog.findChild<QComboBox*>(QStringLiteral("unit"))->setCurrentText(unit);
    const QPushButton* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    QCOMPARE(ok->isEnabled(), accepted);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(dialog.result() == QDialog::Accepted, accepted);
    QCOMPARE(Calibration::isUsable(dialog.calibration()) && !dialog.calibration().theUnit.isEmpty(),
             accepted);
}

void TestCalibration::tabGoesThroughTheFieldsBothWays()
{
    CalibrationDialog dialog(CalibrationDialog::kLength, 320.0, nullptr);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList order;
    const auto note = [&] {
        const QWidget* focus = QApplication::focusWidget();
        order << (focus ? focus->objectName() : QString());
    };
    note();
    for (const Qt::Key key :
         {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Backtab}) {
        QTest::keyClick(QApplication::focusWidget(), key);
        note();
    }
    const QString button = order[3];
    QVERIFY(!button.contains(QStringLiteral("name")));
    QCOMPARE(order,
             QStringList({QStringLiteral("number"), QStringLiteral("unit"), QStringLiteral("name"), button,
                          QStringLiteral("name"), QStringLiteral("unit"), QStringLiteral("number")}));
}

void TestCalibration::dialogTellsWhichCalibrationItReplaces()
{
    kernel().setCalibration(QStringLiteral("lens"), LmCalibData{1.0, QStringLiteral("mm")});
    CalibrationDialog dialog(CalibrationDialog::kPixelSize, 0.0, nullptr);
    QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("number")), QStringLiteral("0.1"));
    const auto tells = [&dialog] {
        const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [](const QLabel* aLabel) {
            return aLabel->text().contains(QStringLiteral("replaces"));
        });
    };
    QVERIFY(!tells());
    QCOMPARE(dialog.name(), QStringLiteral("Calibration 1"));
    QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("name")), QStringLiteral(" lens "));
    QVERIFY(tells());
    QCOMPARE(dialog.name(), QStringLiteral("lens"));
}

void TestCalibration::dialogRemembersTheUnit()
{
    {
        CalibrationDialog dialog(CalibrationDialog::kPixelSize, 0.0, nullptr);
        QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("number")), QStringLiteral("2"));
        dialog.findChild<QComboBox*>(QStringLiteral("unit"))->setCurrentText(QStringLiteral("parsec"));
        dialog.accept();
    }
    const CalibrationDialog next(CalibrationDialog::kPixelSize, 0.0, nullptr);
    QCOMPARE(next.calibration().theUnit, QStringLiteral("parsec"));
}

MEASURE_TEST_MAIN(TestCalibration)
#include "TestCalibration.moc"
