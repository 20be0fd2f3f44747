#include "Calibrating.h"

#include "LmKSKernelData.h"
#include "WindowFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QtTest>

ModalAnswer::Answer Calibrating::type(const QString& aNumber, const QString& aUnit, const QString& aName)
{
    return [=](QWidget* aDialog) {
        auto* number = aDialog->findChild<QLineEdit*>(QStringLiteral("number"));
        QVERIFY(number);
        QTest::keyClicks(number, aNumber);
        aDialog->findChild<QComboBox*>(QStringLiteral("unit"))->setCurrentText(aUnit);
        QTest::keyClicks(aDialog->findChild<QLineEdit*>(QStringLiteral("name")), aName);
        QTest::keyClick(aDialog, Qt::Key_Return);
    };
}

void Calibrating::calibrate(WindowFixture& aFixture, const QString& aNumber, const QString& aName)
{
    ModalAnswer answer(type(aNumber, QStringLiteral("mm"), aName));
    aFixture.actions().theKnownLength->trigger();
    aFixture.click(QPoint(100, 150));
    aFixture.click(QPoint(300, 150));
    QVERIFY(answer.wait());
}

QString Calibrating::current(WindowFixture& aFixture)
{
    QString name;
    aFixture.kernel().getCurrentCalibData(name);
    return name;
}

double Calibrating::step(WindowFixture& aFixture)
{
    QString unit;
    return aFixture.kernel().currentStep(unit);
}
