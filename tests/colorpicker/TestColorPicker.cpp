#include "ColorPickerItem.h"
#include "ModalAnswer.h"
#include "QtColorPicker.h"
#include "QtColorPickerButton.h"
#include "QtColorPickerPopup.h"
#include "TestFont.h"

#include <QApplication>
#include <QColorDialog>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>

#include <functional>

/// The popup of colours, as a person at mouse or keys uses it.
class TestColorPicker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gridOfSeventeenHasFiveColumnsAndFourRows();
    void popupStandsAtThePoint();
    void colorsStandInTheirOrderWithTheirNames();
    void firstColorIsChosenUntilAnotherIs();
    void clickChoosesAndCloses();
    void releaseOutsideClosesWithoutAChoice();
    void escapeGivesBlack();
    void arrowKeysMoveTheFocus_data();
    void arrowKeysMoveTheFocus();
    void downIntoTheGapGoesToTheLastCell();
    void enterKeysChoose();
    void otherKeysAreIgnored();
    void hoverTakesTheFocus();
    void withoutCustomColorsThereIsNoButton();
    void customColorIsAddedAndStaysOpen();
    void customColorOfTheGridIsSelected();
    void colorByHueIsTheSameAsOnTheGrid();
    void cancelledDialogChangesNothing();
    void keysOnTheButtonClickIt();
    void pressDrawnAwayFromTheButtonIsTakenBack();
    void focusStartsAtTheFirstSelectedByColumns();
    void popupStaysOnTheScreen();
    void fixedColumnsAreKept();
    void indexInsertsInBetween();
    void popupIsReadByAScreenReader();
    void swatchShowsItsColorSelectionAndFocus();
    void buttonShowsThreeDots();

private:
    // Calls getColor and, when the popup stands, aUse with it.
    static QColor choose(const std::function<void(QtColorPickerPopup*)>& aUse,
                         bool aAllowCustomColors = true);
    static void fill(QtColorPickerPopup& aPopup);
    static QColor focused(const QtColorPickerPopup& aPopup);
};

QColor TestColorPicker::choose(const std::function<void(QtColorPickerPopup*)>& aUse, bool aAllowCustomColors)
{
    bool used = false;
    QTimer::singleShot(0, [&] {
        auto* popup = qobject_cast<QtColorPickerPopup*>(QApplication::activePopupWidget());
        if (!popup)
            qFatal("no popup stands");
        used = true;
        aUse(popup);
        if (popup->isVisible())
            popup->hide();
    });
    const QColor color = QtColorPicker::getColor(QPoint(100, 80), aAllowCustomColors);
    if (!used)
        qFatal("the popup didn't wait");
    return color;
}

// Nine colours of growing red, in three columns.
void TestColorPicker::fill(QtColorPickerPopup& aPopup)
{
    for (int i = 0; i < 9; ++i)
        aPopup.insertColor(QColor(20 * i, 0, 0), QString::number(i), -1);
}

QColor TestColorPicker::focused(const QtColorPickerPopup& aPopup)
{
    for (const ColorPickerItem* item : aPopup.items)
        if (item->hasFocus())
            return item->color();
    return QColor();
}

void TestColorPicker::gridOfSeventeenHasFiveColumnsAndFourRows()
{
    choose([](QtColorPickerPopup* aPopup) {
        QCOMPARE(aPopup->items.size(), 17);
        QCOMPARE(aPopup->widgetAt.size(), 4);
        for (int row = 0; row < 3; ++row)
            QCOMPARE(aPopup->widgetAt[row].size(), 5);
        QCOMPARE(aPopup->widgetAt[3].size(), 3); // two colours and the button
        QCOMPARE(aPopup->widgetAt[3][2], aPopup->moreButton);
        QCOMPARE(aPopup->size(),
                 QSize(5 * 24, 4 * 21) + QSize(2, 2) + 2 * aPopup->frameWidth() * QSize(1, 1));
    });
}

void TestColorPicker::popupStandsAtThePoint()
{
    // The platform may set a popup off by a frame, but any popup alike.
    QFrame other(nullptr, Qt::Popup);
    other.move(100, 80);
    other.show();
    const QPoint place = other.pos();
    other.hide();
    choose([&](QtColorPickerPopup* aPopup) { QCOMPARE(aPopup->pos(), place); });
}

void TestColorPicker::colorsStandInTheirOrderWithTheirNames()
{
    const QStringList names{"Black",  "White",       "Red",  "Dark red",  "Green",     "Dark green",
                            "Blue",   "Dark blue",   "Cyan", "Dark cyan", "Magenta",   "Dark magenta",
                            "Yellow", "Dark yellow", "Gray", "Dark gray", "Light gray"};
    const QStringList codes{"#000000", "#ffffff", "#ff0000", "#800000", "#00ff00", "#008000",
                            "#0000ff", "#000080", "#00ffff", "#008080", "#ff00ff", "#800080",
                            "#ffff00", "#808000", "#a0a0a4", "#808080", "#c0c0c0"};
    choose([&](QtColorPickerPopup* aPopup) {
        QStringList texts;
        QStringList colors;
        for (const ColorPickerItem* item : qAsConst(aPopup->items)) {
            texts << item->toolTip();
            colors << item->color().name();
        }
        QCOMPARE(texts, names);
        QCOMPARE(colors, codes);
    });
}

void TestColorPicker::firstColorIsChosenUntilAnotherIs()
{
    QtColorPickerPopup popup(-1, false, nullptr);
    QVERIFY(!popup.lastSelected().isValid());
    popup.insertColor(Qt::green, QStringLiteral("a"), -1);
    popup.insertColor(Qt::red, QStringLiteral("b"), -1);
    QCOMPARE(popup.lastSelected(), QColor(Qt::green));
    QVERIFY(!popup.items[0]->isSelected()); // given up for the second, which isn't chosen by that
    QVERIFY(!popup.items[1]->isSelected());
}

void TestColorPicker::clickChoosesAndCloses()
{
    const QColor color = choose([](QtColorPickerPopup* aPopup) {
        QSignalSpy selected(aPopup, &QtColorPickerPopup::selected);
        QSignalSpy hid(aPopup, &QtColorPickerPopup::hid);
        QTest::mouseClick(aPopup->items[6], Qt::LeftButton);
        QCOMPARE(selected.count(), 1);
        QCOMPARE(selected.first().first().value<QColor>(), QColor(Qt::blue));
        QCOMPARE(hid.count(), 1);
        QVERIFY(!aPopup->isVisible());
        for (const ColorPickerItem* item : qAsConst(aPopup->items))
            QCOMPARE(item->isSelected(), item == aPopup->items[6]);
    });
    QCOMPARE(color, QColor(Qt::blue));
}

void TestColorPicker::releaseOutsideClosesWithoutAChoice()
{
    const QColor color = choose([](QtColorPickerPopup* aPopup) {
        QTest::mouseRelease(aPopup, Qt::LeftButton, {}, QPoint(1, 1)); // on its frame
        QVERIFY(aPopup->isVisible());
        QTest::mouseRelease(aPopup, Qt::LeftButton, {}, QPoint(-5, 10));
        QVERIFY(!aPopup->isVisible());
    });
    QCOMPARE(color, QColor(Qt::black));
}

void TestColorPicker::escapeGivesBlack()
{
    const QColor color = choose([](QtColorPickerPopup* aPopup) {
        QTest::keyClick(aPopup, Qt::Key_Right);
        QTest::keyClick(aPopup, Qt::Key_Escape);
        QVERIFY(!aPopup->isVisible());
    });
    QCOMPARE(color, QColor(Qt::black));
}

void TestColorPicker::arrowKeysMoveTheFocus_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("to");
    QTest::newRow("left") << 4 << Qt::Key_Left << 3;
    QTest::newRow("left to the row above") << 3 << Qt::Key_Left << 2;
    QTest::newRow("left in the very first") << 0 << Qt::Key_Left << 0;
    QTest::newRow("right") << 3 << Qt::Key_Right << 4;
    QTest::newRow("right to the next row") << 5 << Qt::Key_Right << 6;
    QTest::newRow("right in the very last") << 8 << Qt::Key_Right << 8;
    QTest::newRow("up") << 5 << Qt::Key_Up << 2;
    QTest::newRow("up in the first row") << 2 << Qt::Key_Up << 0;
    QTest::newRow("down") << 1 << Qt::Key_Down << 4;
    QTest::newRow("down in the last row") << 7 << Qt::Key_Down << 7;
}

void TestColorPicker::arrowKeysMoveTheFocus()
{
    QFETCH(int, from);
    QFETCH(Qt::Key, key);
    QFETCH(int, to);
    QtColorPickerPopup popup(3, false, nullptr);
    fill(popup);
    popup.show();
    popup.items[from]->setFocus();
    QTest::keyClick(popup.items[from], key);
    QCOMPARE(focused(popup), popup.items[to]->color());
    QVERIFY(popup.isVisible());
}

void TestColorPicker::downIntoTheGapGoesToTheLastCell()
{
    choose([](QtColorPickerPopup* aPopup) {
        aPopup->items[14]->setFocus(); // at the end of the third row
        QTest::keyClick(aPopup, Qt::Key_Down);
        QVERIFY(aPopup->moreButton->hasFocus());
        QTest::keyClick(aPopup->moreButton, Qt::Key_Up);
        QCOMPARE(focused(*aPopup), aPopup->items[12]->color());
    });
    choose(
        [](QtColorPickerPopup* aPopup) {
            aPopup->items[14]->setFocus();
            QTest::keyClick(aPopup, Qt::Key_Down);
            QCOMPARE(focused(*aPopup), QColor(Qt::lightGray));
        },
        false);
}

void TestColorPicker::enterKeysChoose()
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        const QColor color = choose([key](QtColorPickerPopup* aPopup) {
            aPopup->items[0]->setFocus();
            QTest::keyClick(aPopup, Qt::Key_Right);
            QTest::keyClick(aPopup, Qt::Key_Right);
            QTest::keyClick(aPopup, key);
            QVERIFY(!aPopup->isVisible());
        });
        QCOMPARE(color, QColor(Qt::red));
    }
}

void TestColorPicker::otherKeysAreIgnored()
{
    choose([](QtColorPickerPopup* aPopup) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier);
        QApplication::sendEvent(aPopup, &press);
        QVERIFY(!press.isAccepted());
        QVERIFY(aPopup->isVisible());
    });
}

void TestColorPicker::hoverTakesTheFocus()
{
    choose([](QtColorPickerPopup* aPopup) {
        QTest::mouseMove(aPopup->items[3], QPoint(12, 10));
        QCOMPARE(focused(*aPopup), QColor(Qt::darkRed));
        QTest::mouseMove(aPopup->moreButton, QPoint(12, 10));
        QVERIFY(aPopup->moreButton->hasFocus());
    });
}

void TestColorPicker::withoutCustomColorsThereIsNoButton()
{
    choose(
        [](QtColorPickerPopup* aPopup) {
            QVERIFY(!aPopup->moreButton);
            QCOMPARE(aPopup->widgetAt[3].size(), 2);
        },
        false);
}

void TestColorPicker::customColorIsAddedAndStaysOpen()
{
    const QColor orange(250, 120, 10);
    const QColor color = choose([&](QtColorPickerPopup* aPopup) {
        QSignalSpy selected(aPopup, &QtColorPickerPopup::selected);
        ModalAnswer answer([&](QWidget* aDialog) {
            auto* dialog = qobject_cast<QColorDialog*>(aDialog);
            QVERIFY(dialog);
            QCOMPARE(dialog->currentColor(), QColor(Qt::black));
            dialog->setCurrentColor(orange);
            dialog->accept();
        });
        QTest::mouseClick(aPopup->moreButton, Qt::LeftButton);
        QVERIFY(answer.isDone());
        QVERIFY(aPopup->isVisible());
        QCOMPARE(aPopup->items.size(), 18);
        QCOMPARE(aPopup->items.last()->color(), orange);
        QCOMPARE(aPopup->items.last()->toolTip(), QStringLiteral("Custom"));
        QCOMPARE(aPopup->widgetAt[3][3], aPopup->moreButton); // 18 colours still have 5 columns
        QCOMPARE(selected.count(), 1);
    });
    QCOMPARE(color, orange);
}

void TestColorPicker::customColorOfTheGridIsSelected()
{
    const QColor color = choose([](QtColorPickerPopup* aPopup) {
        ModalAnswer answer([](QWidget* aDialog) {
            auto* dialog = qobject_cast<QColorDialog*>(aDialog);
            QVERIFY(dialog);
            dialog->setCurrentColor(QColor(Qt::yellow));
            dialog->accept();
        });
        QTest::mouseClick(aPopup->moreButton, Qt::LeftButton);
        QVERIFY(answer.isDone());
        QCOMPARE(aPopup->items.size(), 17);
        QVERIFY(aPopup->items[12]->isSelected());
        QVERIFY(aPopup->items[12]->hasFocus());
        QVERIFY(!aPopup->items[0]->isSelected());
    });
    QCOMPARE(color, QColor(Qt::yellow));
}

void TestColorPicker::colorByHueIsTheSameAsOnTheGrid()
{
    const QColor color = choose([](QtColorPickerPopup* aPopup) {
        ModalAnswer answer([](QWidget* aDialog) {
            auto* dialog = qobject_cast<QColorDialog*>(aDialog);
            QVERIFY(dialog);
            dialog->setCurrentColor(QColor::fromHsv(60, 255, 255));
            dialog->accept();
        });
        QTest::mouseClick(aPopup->moreButton, Qt::LeftButton);
        QVERIFY(answer.isDone());
        QCOMPARE(aPopup->items.size(), 17);
        QVERIFY(aPopup->items[12]->isSelected());
    });
    QCOMPARE(color, QColor(Qt::yellow));
}

void TestColorPicker::cancelledDialogChangesNothing()
{
    const QColor color = choose([](QtColorPickerPopup* aPopup) {
        QSignalSpy selected(aPopup, &QtColorPickerPopup::selected);
        ModalAnswer answer(ModalAnswer::cancel());
        QTest::mouseClick(aPopup->moreButton, Qt::LeftButton);
        QVERIFY(answer.isDone());
        QCOMPARE(aPopup->items.size(), 17);
        QCOMPARE(selected.count(), 0);
        QVERIFY(aPopup->isVisible());
    });
    QCOMPARE(color, QColor(Qt::black));
}

void TestColorPicker::keysOnTheButtonClickIt()
{
    QtColorPickerButton button(nullptr);
    button.show();
    QSignalSpy clicked(&button, &QtColorPickerButton::clicked);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        clicked.clear();
        QTest::keyPress(&button, key);
        QCOMPARE(button.frameShadow(), QFrame::Sunken);
        QCOMPARE(clicked.count(), 0);
        QTest::keyRelease(&button, key);
        QCOMPARE(button.frameShadow(), QFrame::Raised);
        QCOMPARE(clicked.count(), 1);
    }
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(button.frameShadow(), QFrame::Sunken);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(clicked.count(), 2);
    QKeyEvent arrow(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
    QApplication::sendEvent(&button, &arrow);
    QVERIFY(!arrow.isAccepted()); // goes on to the popup
}

void TestColorPicker::pressDrawnAwayFromTheButtonIsTakenBack()
{
    QtColorPickerButton button(nullptr);
    button.show();
    QSignalSpy clicked(&button, &QtColorPickerButton::clicked);
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(button.width() + 3, 4));
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(button.frameShadow(), QFrame::Raised);
}

void TestColorPicker::focusStartsAtTheFirstSelectedByColumns()
{
    QtColorPickerPopup popup(3, false, nullptr);
    fill(popup);
    popup.items[1]->setSelected(true); // second column, first row
    popup.items[6]->setSelected(true); // first column, third row
    popup.show();
    QVERIFY(popup.items[6]->hasFocus());
    popup.hide();
    popup.items[6]->setSelected(false);
    popup.show();
    QVERIFY(popup.items[1]->hasFocus());
    popup.hide();
    popup.items[1]->setSelected(false);
    popup.show();
    QVERIFY(popup.items[0]->hasFocus());
}

void TestColorPicker::popupStaysOnTheScreen()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QFrame other(nullptr, Qt::Popup);
    other.move(100, 80);
    other.show();
    const QPoint frame = other.pos() - QPoint(100, 80); // of the platform, around any popup
    other.hide();
    QRect place;
    QTimer::singleShot(0, [&] {
        QWidget* popup = QApplication::activePopupWidget();
        QVERIFY(popup);
        place = QRect(popup->pos() - frame, popup->size());
        popup->hide();
    });
    QtColorPicker::getColor(screen.bottomRight(), true);
    QCOMPARE(place.bottomRight(), screen.bottomRight());
}

void TestColorPicker::fixedColumnsAreKept()
{
    QtColorPickerPopup popup(4, true, nullptr);
    fill(popup);
    QCOMPARE(popup.widgetAt.size(), 3);
    QCOMPARE(popup.widgetAt[0].size(), 4);
    QCOMPARE(popup.widgetAt[2].size(), 2);
}

void TestColorPicker::indexInsertsInBetween()
{
    QtColorPickerPopup popup(3, false, nullptr);
    fill(popup);
    popup.insertColor(Qt::blue, QStringLiteral("blue"), 2);
    QCOMPARE(popup.items[2]->color(), QColor(Qt::blue));
    QCOMPARE(popup.widgetAt[0][2], popup.items[2]);
    QCOMPARE(popup.items.size(), 10);
    popup.insertColor(Qt::green, QStringLiteral("green"), 99);
    QCOMPARE(popup.items.last()->color(), QColor(Qt::green));
}

void TestColorPicker::popupIsReadByAScreenReader()
{
    choose([](QtColorPickerPopup* aPopup) {
        QCOMPARE(aPopup->items[5]->accessibleName(), QStringLiteral("Dark green"));
        QVERIFY(!aPopup->moreButton->accessibleName().isEmpty());
    });
}

void TestColorPicker::swatchShowsItsColorSelectionAndFocus()
{
    ColorPickerItem item(Qt::cyan, QStringLiteral("Cyan"), nullptr);
    QCOMPARE(item.size(), QSize(24, 21));
    const QColor back = item.grab().toImage().pixelColor(0, 0);
    QImage picture = item.grab().toImage();
    QCOMPARE(picture.pixelColor(12, 10), QColor(Qt::cyan));
    QCOMPARE(picture.pixelColor(3, 10), QColor(Qt::black));
    QCOMPARE(picture.pixelColor(20, 10), QColor(Qt::black)); // 3 + 24 - 7
    QCOMPARE(picture.pixelColor(19, 16), QColor(Qt::cyan));
    QCOMPARE(picture.pixelColor(12, 17), QColor(Qt::black)); // 3 + 21 - 7
    QCOMPARE(picture.pixelColor(1, 10), back);
    item.setSelected(true);
    picture = item.grab().toImage();
    QCOMPARE(picture.pixelColor(1, 10), QColor(Qt::gray));
    QCOMPARE(picture.pixelColor(22, 10), QColor(Qt::gray)); // 1 + 24 - 3
    QCOMPARE(picture.pixelColor(0, 10), back);
    item.show();
    item.activateWindow();
    item.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&item));
    picture = item.grab().toImage();
    QCOMPARE(picture.pixelColor(0, 10), QColor(Qt::black));
    QCOMPARE(picture.pixelColor(23, 20), QColor(Qt::black));
}

void TestColorPicker::buttonShowsThreeDots()
{
    QtColorPickerButton button(nullptr);
    const QRect contents = button.contentsRect();
    const QColor dot = button.palette().buttonText().color();
    QImage picture = button.grab().toImage();
    for (const int way : {-4, 0, 4}) {
        QCOMPARE(picture.pixelColor(contents.center() + QPoint(way, 0)), dot);
        QVERIFY(picture.pixelColor(contents.center() + QPoint(way + 1, 1)) != dot);
    }
    QTest::mousePress(&button, Qt::LeftButton);
    picture = button.grab().toImage();
    for (const int way : {-4, 0, 4})
        QCOMPARE(picture.pixelColor(contents.center() + QPoint(way + 1, 1)), dot);
}

MEASURE_TEST_MAIN(TestColorPicker)
#include "TestColorPicker.moc"
