#include "LmKSKernelData.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QAction>
#include <QSpinBox>
#include <QToolBar>

/// Pages of a picture as frames to step through.
class TestFrameBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pagesAreFramesToStepThrough();
    void singlePictureHasNoFrames();
};

void TestFrameBar::pagesAreFramesToStepThrough()
{
    WindowFixture fixture;
    fixture.openPages(3);
    auto* number = fixture.window().findChild<QSpinBox*>(QStringLiteral("frameNumber"));
    QVERIFY(number && number->isVisible());
    QVERIFY(!fixture.actions().thePreviousFrame->isEnabled());
    fixture.key(Qt::Key_PageDown);
    QCOMPARE(fixture.kernel().theCurrentFrame, 1U);
    fixture.key(Qt::Key_PageDown);
    QCOMPARE(number->value(), 3);
    QVERIFY(!fixture.actions().theNextFrame->isEnabled());
    fixture.key(Qt::Key_PageUp);
    QCOMPARE(fixture.kernel().theCurrentFrame, 1U);
    number->setValue(1);
    QCOMPARE(fixture.kernel().theCurrentFrame, 0U);
}

void TestFrameBar::singlePictureHasNoFrames()
{
    WindowFixture fixture;
    auto* bar = fixture.window().findChild<QToolBar*>(QStringLiteral("frameBar"));
    QVERIFY(bar);
    QVERIFY(!bar->isVisible());
    fixture.openPages(2);
    QVERIFY(bar->isVisible());
    QVERIFY(fixture.window().openAtStart(fixture.picturePath()));
    QVERIFY(!bar->isVisible());
    QVERIFY(!fixture.actions().theNextFrame->isEnabled());
}

MEASURE_TEST_MAIN(TestFrameBar)
#include "TestFrameBar.moc"
