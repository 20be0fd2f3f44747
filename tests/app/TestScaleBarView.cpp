#include "Calibrating.h"
#include "Calibration.h"
#include "InterestWindow.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "Media.h"
#include "ScaleBar.h"
#include "ScaleBarView.h"
#include "TestFont.h"

#include <QAction>
#include <QPaintEvent>
#include <QScreen>
#include <QUndoStack>

namespace {

ScaleBarView& bar(WindowFixture& aWindow)
{
    return *aWindow.editor().viewport()->findChild<ScaleBarView*>(QStringLiteral("scaleBar"));
}

void calibrate(WindowFixture& aWindow, double aPixelSize, const QString& aUnit = QStringLiteral("mm"))
{
    aWindow.kernel().setCalibration(QStringLiteral("c"), Calibration::fromPixelSize(aPixelSize, aUnit));
    aWindow.kernel().setCurrentCalibration(QStringLiteral("c"));
}

/// Adds up what is painted anew of a widget.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget& aWidget) { aWidget.installEventFilter(this); }
    qint64 thePixels = 0;

protected:
    bool eventFilter(QObject*, QEvent* aEvent) override
    {
        if (aEvent->type() == QEvent::Paint)
            for (const QRect& rect : static_cast<QPaintEvent*>(aEvent)->region())
                thePixels += qint64(rect.width()) * rect.height();
        return false;
    }
};

} // namespace

/// The scale bar in the lower left corner of the view.
class TestScaleBarView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void viewFollowsZoomCalibrationAndUndo();
    void choiceIsRemembered();
    void viewLeavesTheMouseToTheCanvas();
    void viewStandsStillAndCostsNoFullRepaint();
    void narrowViewHidesIt();
    void anotherPictureAndTheRegionAreFollowed();
};

void TestScaleBarView::viewFollowsZoomCalibrationAndUndo()
{
    WindowFixture w;
    QCOMPARE(bar(w).text(), QString());
    w.actions().theScaleBar->trigger();
    const auto expected = [&] {
        return ScaleBar::forPicture(w.editor().zoom(), w.editor().viewport()->width()).theText;
    };
    QStringList texts;
    const auto follows = [&] {
        texts << bar(w).text();
        return !texts.last().isEmpty() && texts.last() == expected();
    };
    w.editor().setZoom(1.0);
    QVERIFY(follows());
    w.editor().setZoom(8.0);
    QVERIFY(follows());
    QVERIFY(texts[0] != texts[1] && texts[0].endsWith(QStringLiteral(" px")));
    w.editor().setZoom(1.0);
    Calibrating::calibrate(w, QStringLiteral("25"));
    QVERIFY(follows());
    QVERIFY2(texts.last().endsWith(QStringLiteral(" mm")), qPrintable(texts.last()));
    w.stack().undo();
    QVERIFY(follows());
    QCOMPARE(texts.last(), texts.first());
    w.stack().redo();
    QVERIFY(follows());
    w.window().resize(500, 700);
    QCoreApplication::processEvents();
    QVERIFY(follows());
    QVERIFY(texts[texts.size() - 2] != texts.last());
    w.actions().theScaleBar->trigger();
    QCOMPARE(bar(w).text(), QString());
}

void TestScaleBarView::choiceIsRemembered()
{
    WindowFixture w;
    QVERIFY(!w.actions().theScaleBar->isChecked());
    w.key(Qt::Key_B, Qt::ControlModifier);
    QVERIFY(w.actions().theScaleBar->isChecked());
    w.restart();
    QVERIFY(w.actions().theScaleBar->isChecked());
    QVERIFY(!bar(w).isVisible());
    QVERIFY(w.window().openAtStart(w.picturePath()));
    QVERIFY(bar(w).isVisible());
}

void TestScaleBarView::viewLeavesTheMouseToTheCanvas()
{
    WindowFixture w;
    w.editor().setZoom(3.0);
    w.actions().theScaleBar->trigger();
    const QRect place = bar(w).geometry();
    QVERIFY(w.editor().viewport()->rect().contains(place));
    QVERIFY(place.left() < 20 && place.bottom() > w.editor().viewport()->height() - 20);
    w.pickDistance();
    QWidget* window = w.window().windowHandle() ? &w.window() : nullptr;
    QVERIFY(window);
    // Through the window, so that the widget under the pointer is looked up as for a real mouse.
    const auto at = [&](const QPoint& aPos) { return w.editor().viewport()->mapTo(window, aPos); };
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, at(place.center()));
    QTest::mouseMove(window->windowHandle(), at(place.center() + QPoint(60, -60)));
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                        at(place.center() + QPoint(60, -60)));
    QCOMPARE(w.distanceCount(), 1);
}

void TestScaleBarView::viewStandsStillAndCostsNoFullRepaint()
{
    WindowFixture w;
    w.editor().setZoom(8.0);
    w.actions().theScaleBar->trigger();
    QCoreApplication::processEvents();
    const QRect place = bar(w).geometry();
    QWidget* viewport = w.editor().viewport();
    PaintCount count(*viewport);
    constexpr int kSteps = 10;
    for (int step = 1; step <= kSteps; ++step) {
        w.editor().scrollBy(QPoint(7, 5));
        QCoreApplication::processEvents();
        QCOMPARE(bar(w).geometry(), place);
    }
    // What comes into view at two edges, and twice the place of the bar.
    const qint64 edges = 7 * viewport->height() + 5 * viewport->width();
    const qint64 most = kSteps * (edges + 3 * qint64(place.width() + 7) * (place.height() + 5));
    QVERIFY2(count.thePixels > 0 && count.thePixels <= most,
             qPrintable(QStringLiteral("%1 of at most %2").arg(count.thePixels).arg(most)));
    // What was moved on the screen is what a full repaint gives.
    const QImage shown = w.window().screen()->grabWindow(w.window().winId()).toImage();
    w.window().repaint();
    viewport->repaint();
    const QImage fresh = w.window().screen()->grabWindow(w.window().winId()).toImage();
    QVERIFY(!shown.isNull());
    QCOMPARE(shown, fresh);
}

void TestScaleBarView::narrowViewHidesIt()
{
    WindowFixture w;
    w.actions().theScaleBar->trigger();
    QVERIFY(bar(w).isVisible());
    LmCvEditor lonely;
    Media media(lonely, nullptr);
    auto* view = new ScaleBarView(lonely, media);
    view->setOn(true);
    lonely.resize(400, 300);
    lonely.show();
    QVERIFY(view->isVisible());
    lonely.resize(40, 300);
    QVERIFY(!view->isVisible());
    lonely.resize(400, 300);
    QVERIFY(view->isVisible());
    lonely.resize(400, 30);
    QVERIFY(!view->isVisible());
}

void TestScaleBarView::anotherPictureAndTheRegionAreFollowed()
{
    InterestWindow w;
    calibrate(w, 0.5);
    w.actions().theScaleBar->trigger();
    w.actions().theZoomFit->trigger();
    const QString whole = bar(w).text();
    w.setRegion(QRect(50, 40, 60, 45));
    const auto expected = [&] {
        return ScaleBar::forPicture(w.editor().zoom(), w.editor().viewport()->width()).theText;
    };
    QVERIFY(bar(w).text() != whole);
    QCOMPARE(bar(w).text(), expected());
    w.stack().undo();
    QCOMPARE(bar(w).text(), whole);
    QVERIFY(w.window().openAtStart(w.picturePath()));
    QCOMPARE(bar(w).text(), expected());
    QVERIFY2(bar(w).text().endsWith(QStringLiteral(" px")), qPrintable(bar(w).text()));
}

MEASURE_TEST_MAIN(TestScaleBarView)
#include "TestScaleBarView.moc"
