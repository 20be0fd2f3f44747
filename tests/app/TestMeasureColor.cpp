#include "MeasureWindow.h"
#include "PopupAnswer.h"
#include "Q3Table.h"
#include "TestFont.h"

#include <QFrame>
#include <QScreen>

/// The colour of an object, chosen from the measurement table.
class TestMeasureColor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colorComesFromThePopup();
    void popupClosedByEscapeGivesBlack();
    void popupClosedByAClickOutsideGivesBlack();
    void popupStandsAtThePointAndOnTheScreen();
};

void TestMeasureColor::colorComesFromThePopup()
{
    MeasureWindow fixture;
    fixture.addThree();
    const int steps = fixture.stack().count();
    const QColor before = fixture.color(2);
    const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Set color")),
                              PopupAnswer::clickColor(QStringLiteral("Dark green"))});
    fixture.rightPress(1);
    QVERIFY(answer.isDone());
    QCOMPARE(fixture.color(2), QColor(Qt::darkGreen));
    QCOMPARE(fixture.color(1), before);
    QCOMPARE(fixture.stack().count(), steps + 1);
    fixture.stack().undo();
    QCOMPARE(fixture.color(2), before);
}

void TestMeasureColor::popupClosedByEscapeGivesBlack()
{
    MeasureWindow fixture;
    fixture.addThree();
    QVERIFY(fixture.color(2) != QColor(Qt::black));
    const PopupAnswer answer({PopupAnswer::choose(QStringLiteral("Set color")), PopupAnswer::escape()});
    fixture.rightPress(1);
    QVERIFY(answer.isDone());
    QCOMPARE(fixture.color(2), QColor(Qt::black));
}

void TestMeasureColor::popupClosedByAClickOutsideGivesBlack()
{
    MeasureWindow fixture;
    fixture.addThree();
    const PopupAnswer answer({PopupAnswer::choose(QStringLiteral("Set color")), [](QWidget* aPopup) {
                                  QTest::mouseClick(aPopup, Qt::LeftButton, {}, QPoint(-9, 4));
                              }});
    fixture.rightPress(1);
    QVERIFY(answer.isDone());
    QCOMPARE(fixture.color(2), QColor(Qt::black));
}

void TestMeasureColor::popupStandsAtThePointAndOnTheScreen()
{
    MeasureWindow fixture;
    fixture.addThree();
    const QRect screen = fixture.window().screen()->availableGeometry();
    fixture.window().move(screen.bottomRight() - QPoint(200, fixture.window().height()));
    // The platform may set a popup off by a frame, but any popup alike.
    QFrame other(nullptr, Qt::Popup);
    other.move(100, 80);
    other.show();
    const QPoint offset = other.pos() - QPoint(100, 80);
    other.hide();
    for (const int row : {0, 2}) {
        const QPoint point = fixture.table().clipper()->mapToGlobal(fixture.cellPlace(row));
        QRect place;
        const PopupAnswer answer({PopupAnswer::click(QStringLiteral("Set color")), [&](QWidget* aPopup) {
                                      place = QRect(aPopup->pos() - offset, aPopup->size());
                                      QTest::keyClick(aPopup, Qt::Key_Escape);
                                  }});
        fixture.rightPress(row);
        QVERIFY(answer.isDone());
        QVERIFY(screen.contains(place));
        QCOMPARE(place.left(), std::min(point.x(), screen.right() + 1 - place.width()));
        QCOMPARE(place.top(), std::min(point.y(), screen.bottom() + 1 - place.height()));
    }
}

MEASURE_TEST_MAIN(TestMeasureColor)
#include "TestMeasureColor.moc"
