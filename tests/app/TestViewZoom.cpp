#include "LmCvEditor.h"
#include "TestFont.h"
#include "WindowFixture.h"

/// The zoom commands, and the picture that stays fitted.
class TestViewZoom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pictureFitsAtFirstAndAfterAResize();
    void fittingEndsWhenTheUserZooms();
    void zoomOneShowsPixelForPixel();
};

static double fittingZoom(const LmCvEditor& aEditor)
{
    const QSize room = aEditor.maximumViewportSize();
    return qMin(room.width() / 400.0, room.height() / 300.0);
}

void TestViewZoom::pictureFitsAtFirstAndAfterAResize()
{
    WindowFixture fixture;
    const double zoomBefore = fixture.editor().zoom();
    QCOMPARE(zoomBefore, fittingZoom(fixture.editor()));
    fixture.window().resize(700, 500);
    QTRY_VERIFY(fixture.editor().zoom() < zoomBefore);
    QTRY_COMPARE(fixture.editor().zoom(), fittingZoom(fixture.editor()));
}

void TestViewZoom::fittingEndsWhenTheUserZooms()
{
    WindowFixture fixture;
    const double fitted = fixture.editor().zoom();
    fixture.key(Qt::Key_Minus, Qt::ControlModifier);
    const double zoomed = fixture.editor().zoom();
    QVERIFY(zoomed < fitted);
    fixture.window().resize(700, 500);
    QCoreApplication::processEvents();
    QCOMPARE(fixture.editor().zoom(), zoomed);
    fixture.key(Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(fixture.editor().zoom() > zoomed);
    fixture.key(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(fixture.editor().zoom(), fittingZoom(fixture.editor()));
}

void TestViewZoom::zoomOneShowsPixelForPixel()
{
    WindowFixture fixture;
    QVERIFY(fixture.editor().zoom() != 1.0);
    fixture.key(Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(fixture.editor().zoom(), 1.0);
}

MEASURE_TEST_MAIN(TestViewZoom)
#include "TestViewZoom.moc"
