#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "Q3Canvas.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>

#include <algorithm>
#include <functional>

/// The tool of two buttons in the hand: how pen and pencil are taken and left, also in the middle of an
/// outline.
class TestRegionSwitch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachButtonIsPickedByMouseMenuAndKey_data();
    void eachButtonIsPickedByMouseMenuAndKey();
    void penButtonPutsThePenDownAndThePencilStays();
    void menuEntryOfTheToolInTheHandPutsItDown();
    void pencilMenuTakesThePencil();
    void pencilMenuStandsInTheToolsMenuToo();
    void everySwitchLeavesOneButtonOn();
    void switchInTheMiddleOfAnOutlineLeavesItWhole_data();
    void switchInTheMiddleOfAnOutlineLeavesItWhole();
    void switchWithTheButtonDownLeavesItWhole_data();
    void switchWithTheButtonDownLeavesItWhole();
    void calibratingInTheMiddleOfAnOutlineLeavesItWhole();
    void newPictureInTheMiddleOfAnOutlineStartsEmpty();
    void distanceIsDrawnAcrossARegion();
    void eachToolKeepsItsOwnValueName();

private:
    static void addSwitches();
    static QToolButton* pickedButton(RegionWindow& aFixture, const QString& aName);
    static void pick(RegionWindow& aFixture, const QString& aName);
    static QString leftOver(RegionWindow& aFixture);
};

/// The tool bar's button of that name, null for the arrow.
QToolButton* TestRegionSwitch::pickedButton(RegionWindow& aFixture, const QString& aName)
{
    if (aName == QLatin1String("pen"))
        return aFixture.penButton();
    if (aName == QLatin1String("pencil"))
        return aFixture.pencilButton();
    return aName == QLatin1String("Distance") ? aFixture.distanceTool()->theToolButton : nullptr;
}

void TestRegionSwitch::pick(RegionWindow& aFixture, const QString& aName)
{
    if (QToolButton* button = pickedButton(aFixture, aName))
        QTest::mouseClick(button, Qt::LeftButton);
    else
        aFixture.pickArrow();
}

/// What an outline has left behind that it must not: a held mouse, items or half nodes.
QString TestRegionSwitch::leftOver(RegionWindow& aFixture)
{
    if (aFixture.editor().mouseGrabber())
        return QStringLiteral("the mouse is held");
    if (aFixture.editor().canvas()->allItems().size() != aFixture.regionCount() + aFixture.distanceCount())
        return QStringLiteral("there are items without an object");
    const QMap<int, LmKernelObjectData*> records = aFixture.kernel().getObjectsOfType(RegionWindow::kType);
    for (auto at = records.begin(); at != records.end(); ++at)
        if (aFixture.itemNodeCount(at.key()) != aFixture.anchors(at.key()).size())
            return QStringLiteral("the item isn't like its record");
    return QString();
}

void TestRegionSwitch::eachButtonIsPickedByMouseMenuAndKey_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("pen") << QStringLiteral("pen");
    QTest::newRow("pencil") << QStringLiteral("pencil");
}

void TestRegionSwitch::eachButtonIsPickedByMouseMenuAndKey()
{
    QFETCH(QString, name);
    RegionWindow f;
    QToolButton* button = pickedButton(f, name);
    QAction* entry = WindowFixture::find(*f.actions().theToolsMenu, button->toolTip());
    QVERIFY(entry);
    const QList<std::function<void()>> ways{[&] { QTest::mouseClick(button, Qt::LeftButton); },
                                            [&] { entry->trigger(); },
                                            [&] { f.key(entry->shortcut()[0].key()); }};
    for (const auto& way : ways) {
        f.pickArrow();
        QVERIFY(f.isOnly(nullptr));
        way();
        QCOMPARE(f.editor().theCurrentManipulator, f.regionTool());
        QVERIFY(f.isOnly(button));
        QCOMPARE(f.editor().viewport()->cursor().hotSpot(), f.regionTool()->getCursor().hotSpot());
    }
}

void TestRegionSwitch::penButtonPutsThePenDownAndThePencilStays()
{
    RegionWindow f;
    QTest::mouseClick(f.penButton(), Qt::LeftButton);
    QTest::mouseClick(f.penButton(), Qt::LeftButton);
    QVERIFY(f.isOnly(nullptr));
    QTest::mouseClick(f.pencilButton(), Qt::LeftButton);
    QTest::mouseClick(f.pencilButton(), Qt::LeftButton);
    QVERIFY(f.isOnly(f.pencilButton()));
    QCOMPARE(f.editor().theCurrentManipulator, f.regionTool());
}

void TestRegionSwitch::menuEntryOfTheToolInTheHandPutsItDown()
{
    RegionWindow f;
    for (QToolButton* button : {f.penButton(), f.pencilButton()}) {
        QAction* entry = WindowFixture::find(*f.actions().theToolsMenu, button->toolTip());
        QVERIFY(entry);
        entry->trigger();
        QVERIFY(f.isOnly(button));
        entry->trigger();
        QVERIFY(f.isOnly(nullptr));
        QVERIFY(!f.editor().theCurrentManipulator);
    }
}

void TestRegionSwitch::pencilMenuTakesThePencil()
{
    RegionWindow f;
    QAction* smooth = WindowFixture::find(*f.pencilButton()->menu(), QStringLiteral("Smooth"));
    QAction* shape = WindowFixture::find(*f.pencilButton()->menu(), QStringLiteral("Auto Shape"));
    QVERIFY(smooth && shape);
    QVERIFY(!shape->isEnabled());
    f.pickPen();
    smooth->trigger();
    QVERIFY(f.isOnly(f.pencilButton()));
    QVERIFY(smooth->isChecked() && shape->isEnabled() && !shape->isChecked());
    f.pickDistance();
    shape->trigger();
    QVERIFY(f.isOnly(f.pencilButton()));
    QVERIFY(smooth->isChecked() && shape->isChecked());
    smooth->trigger();
    QVERIFY(!smooth->isChecked() && !shape->isEnabled());
    QVERIFY(f.isOnly(f.pencilButton()));
}

void TestRegionSwitch::pencilMenuStandsInTheToolsMenuToo()
{
    RegionWindow f;
    const QList<QAction*> entries = f.actions().theToolsMenu->actions();
    const auto menus = std::count_if(entries.cbegin(), entries.cend(), [&](const QAction* aEntry) {
        return aEntry->menu() == f.pencilButton()->menu();
    });
    QCOMPARE(menus, 1);
}

void TestRegionSwitch::everySwitchLeavesOneButtonOn()
{
    RegionWindow f;
    const QStringList names{QStringLiteral("arrow"), QStringLiteral("pen"), QStringLiteral("pencil"),
                            QStringLiteral("Distance")};
    for (const QString& from : names)
        for (const QString& to : names) {
            if (from == to)
                continue;
            pick(f, QStringLiteral("arrow"));
            pick(f, from);
            pick(f, to);
            QVERIFY2(f.isOnly(pickedButton(f, to)), qPrintable(from + QLatin1String(" to ") + to));
        }
}

void TestRegionSwitch::addSwitches()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    for (const char* from : {"pen", "pencil"})
        for (const char* to : {"pen", "pencil", "Distance", "arrow"})
            if (qstrcmp(from, to) != 0)
                QTest::addRow("%s to %s", from, to) << QString::fromLatin1(from) << QString::fromLatin1(to);
}

void TestRegionSwitch::switchInTheMiddleOfAnOutlineLeavesItWhole_data()
{
    addSwitches();
}

void TestRegionSwitch::switchInTheMiddleOfAnOutlineLeavesItWhole()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    RegionWindow f;
    pick(f, from);
    f.clickAll({{60, 60}, {200, 60}, {200, 150}});
    f.move(QPoint(100, 200));
    const int steps = f.stack().count();
    pick(f, to);
    QVERIFY(f.isOnly(pickedButton(f, to)));
    QCOMPARE(leftOver(f), QString());
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {200, 60}, {200, 150}}));
    QCOMPARE(f.stack().count(), steps);
    // The next gesture is the new tool's alone.
    f.drag(QPoint(60, 250), QPoint(260, 250));
    QCOMPARE(f.anchors(1).size(), 3);
    QCOMPARE(f.distanceCount(), to == QLatin1String("Distance") ? 1 : 0);
    QCOMPARE(f.regionCount(), to.startsWith(QLatin1String("pen")) ? 2 : 1);
}

void TestRegionSwitch::switchWithTheButtonDownLeavesItWhole_data()
{
    addSwitches();
}

void TestRegionSwitch::switchWithTheButtonDownLeavesItWhole()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    RegionWindow f;
    pick(f, from);
    f.clickAll({{60, 60}, {200, 60}});
    f.press(QPoint(200, 150));
    f.move(QPoint(220, 170));
    // The mouse is busy on the picture, and Esc for the arrow would end the outline alone.
    if (const QToolButton* button = pickedButton(f, to))
        f.key(WindowFixture::find(*f.actions().theToolsMenu, button->toolTip())->shortcut()[0].key());
    else
        f.actions().theArrow->trigger();
    QVERIFY(f.isOnly(pickedButton(f, to)));
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {200, 60}}));
    f.move(QPoint(240, 190));
    f.release(QPoint(240, 190));
    QCOMPARE(leftOver(f), QString());
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {200, 60}}));
    QCOMPARE(f.regionCount() + f.distanceCount(), 1);
}

void TestRegionSwitch::calibratingInTheMiddleOfAnOutlineLeavesItWhole()
{
    RegionWindow f;
    f.pickPencil();
    f.clickAll({{60, 60}, {200, 60}});
    f.actions().theKnownLength->trigger();
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {200, 60}}));
    f.click(QPoint(100, 200)); // the calibration's first end
    QCOMPARE(f.regionCount(), 1);
    QCOMPARE(f.anchors(1).size(), 2);
    f.key(Qt::Key_Escape);
    f.key(Qt::Key_Escape);
    f.pickArrow();
    QCOMPARE(leftOver(f), QString());
}

void TestRegionSwitch::newPictureInTheMiddleOfAnOutlineStartsEmpty()
{
    RegionWindow f;
    f.pickPencil();
    f.clickAll({{60, 60}, {200, 60}});
    // Work in hand is asked about; the picture comes all the same.
    f.stack().setClean();
    QVERIFY(f.window().openAtStart(f.picturePath()));
    QCOMPARE(f.regionCount(), 0);
    QCOMPARE(leftOver(f), QString());
    QVERIFY(!f.stack().canUndo());
    f.stroke({{60, 60}, {90, 60}, {90, 90}});
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {90, 60}, {90, 90}}));
}

void TestRegionSwitch::distanceIsDrawnAcrossARegion()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed({{60, 60}, {260, 60}, {260, 200}, {60, 200}}), 1);
    const QPolygon before = f.points(1);
    QCOMPARE(f.draw(QPoint(100, 100), QPoint(200, 150)), 1);
    QCOMPARE(f.points(1), before);
    // And the pen begins a region on top of a distance.
    f.pickPen();
    f.click(QPoint(300, 100));
    QCOMPARE(f.regionCount(), 2);
}

void TestRegionSwitch::eachToolKeepsItsOwnValueName()
{
    RegionWindow f;
    f.pickDistance();
    QCOMPARE(LmCvManipulator::theLastUsedValueName, f.distanceTool()->theValueNames[0]);
    f.pickPen();
    QCOMPARE(LmCvManipulator::theLastUsedValueName, f.regionTool()->theValueNames[0]);
    f.pickPencil();
    QCOMPARE(LmCvManipulator::theLastUsedValueName, f.regionTool()->theValueNames[0]);
}

MEASURE_TEST_MAIN(TestRegionSwitch)
#include "TestRegionSwitch.moc"
