#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "ModalAnswer.h"
#include "RegionWindow.h"
#include "TestFont.h"

#include <QColorDialog>
#include <QMenu>

/// The context menu of a region.
class TestRegionMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuOffersWhatTheFlagsAllow();
    void menuOpensAllOverAClosedRegionAndOnTheCurveOfAnOpenOne();
    void eachValueStandsOnTheLabel_data();
    void eachValueStandsOnTheLabel();
    void valuesFollowTheCalibration();
    void colourIsSetAsOneStep();
    void hiddenRegionComesBackWithShowAll();
    void deletedRegionComesBackWhole();
    void outlineInTheMakingHasNoMenuWithThePen();
    void regionDeletedFromTheMenuEndsTheOutlineInTheMaking();
};

static const QList<QPoint> kBox{{100, 80}, {199, 80}, {199, 129}, {100, 129}};
static const QPoint kInside(150, 110);

static QMenu* menuOf(RegionWindow& aFixture)
{
    QMenu* menu = aFixture.contextMenu(kInside);
    if (!menu)
        qFatal("there is no menu on the region");
    return menu;
}

void TestRegionMenu::menuOffersWhatTheFlagsAllow()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    QCOMPARE(f.regionTool()->getCvObjectFlags(f.item(1)), 988);
    QMenu* menu = menuOf(f);
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Region 1"));
    for (const char* offered : {"Set Color...", "Hide", "Delete", "Value on the Label", "Animated"})
        QVERIFY2(WindowFixture::find(*menu, QLatin1String(offered)), offered);
    for (const char* absent : {"Properties...", "Show"})
        QVERIFY2(!WindowFixture::find(*menu, QLatin1String(absent)), absent);
    const QAction* values = WindowFixture::find(*menu, QStringLiteral("Value on the Label"));
    QCOMPARE(f.regionTool()->theValueNames.size(), 6);
    for (const QString& name : f.regionTool()->theValueNames)
        QVERIFY2(WindowFixture::find(*values->menu(), name), qPrintable(name));
    menu->close();
}

void TestRegionMenu::menuOpensAllOverAClosedRegionAndOnTheCurveOfAnOpenOne()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    f.pickPen();
    f.clickAll({{100, 200}, {300, 200}, {300, 280}});
    f.pickArrow();
    const auto opensOn = [&f](const QPoint& aPoint) {
        QMenu* menu = f.contextMenu(aPoint);
        const QString title = menu ? menu->actions().first()->text() : QString();
        if (menu)
            menu->close();
        return title;
    };
    QCOMPARE(opensOn(kInside), QStringLiteral("Region 1"));
    QCOMPARE(opensOn(QPoint(200, 200)), QStringLiteral("Region 2"));
    QVERIFY(!opensOn(QPoint(280, 220)).startsWith(QStringLiteral("Region"))); // between the legs
}

void TestRegionMenu::eachValueStandsOnTheLabel_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("width") << QStringLiteral("Width") << QStringLiteral("100.00");
    QTest::newRow("height") << QStringLiteral("Height") << QStringLiteral("50.00");
    QTest::newRow("perimeter") << QStringLiteral("Length/Perim.") << QStringLiteral("296.00");
    QTest::newRow("area") << QStringLiteral("Area") << QStringLiteral("4851.00");
    QTest::newRow("lightness") << QStringLiteral("Avg. lightness") << QString();
    QTest::newRow("saturation") << QStringLiteral("Avg. saturation") << QString();
    QTest::newRow("none") << QStringLiteral("None") << QString();
}

void TestRegionMenu::eachValueStandsOnTheLabel()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    // From a value that isn't any of the rows' own.
    QMenu* menu = menuOf(f);
    QVERIFY(
        f.choose(*menu, name == QLatin1String("Area") ? QStringLiteral("Height") : QStringLiteral("Area")));
    const QString before = f.item(1)->labelText();
    const int steps = f.stack().count();
    menu = menuOf(f);
    QVERIFY(f.choose(*menu, name));
    QCOMPARE(f.stack().count(), steps + 1);
    const bool isNone = name == QLatin1String("None");
    const bool ofImage = name.startsWith(QLatin1String("Avg."));
    QCOMPARE(f.regionValue(1, QStringLiteral("dispv")).toString(), isNone ? QString() : name);
    const QString label = f.item(1)->labelText();
    QStringList units;
    const double value = f.regionTool()->getValues({name}, 1, units).first().toDouble();
    if (isNone)
        QCOMPARE(label, QStringLiteral(" 1 "));
    else if (ofImage)
        QCOMPARE(label, QStringLiteral(" 1 <%1%> ").arg(value, 0, 'f', 2));
    else
        QVERIFY2(label.startsWith(QStringLiteral(" 1 <") + shown), qPrintable(label));
    if (ofImage)
        QVERIFY(value > 0.0 && value < 100.0);
    f.stack().undo();
    QCOMPARE(f.item(1)->labelText(), before);
}

void TestRegionMenu::valuesFollowTheCalibration()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    // So wide is the picture of 400 pixels.
    f.kernel().setCalibration(QStringLiteral("lens"), LmCalibData{40.0, QStringLiteral("mm")});
    f.kernel().setCurrentCalibration(QStringLiteral("lens"));
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <10.00mm> "));
    QMenu* menu = menuOf(f);
    QVERIFY(f.choose(*menu, QStringLiteral("Area")));
    QCOMPARE(f.item(1)->labelText(), QStringLiteral(" 1 <48.51mm\u00b2> "));
}

void TestRegionMenu::colourIsSetAsOneStep()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    const QColor before = f.item(1)->getColor();
    const QColor chosen(1, 2, 200);
    const int steps = f.stack().count();
    QMenu* menu = menuOf(f);
    {
        const ModalAnswer answer(ModalAnswer::Answer([chosen](QWidget* aDialog) {
            auto* dialog = qobject_cast<QColorDialog*>(aDialog);
            QVERIFY(dialog);
            dialog->setCurrentColor(chosen);
            QTest::keyClick(dialog, Qt::Key_Return);
        }));
        QVERIFY(f.choose(*menu, QStringLiteral("Set Color...")));
    }
    QCOMPARE(f.regionValue(1, QStringLiteral("col")).value<QColor>(), chosen);
    QCOMPARE(f.item(1)->getColor(), chosen);
    QCOMPARE(f.stack().count(), steps + 1);
    // An edit keeps the colour.
    f.drag(kInside, kInside + QPoint(9, 9));
    QCOMPARE(f.regionValue(1, QStringLiteral("col")).value<QColor>(), chosen);
    f.stack().undo();
    f.stack().undo();
    QCOMPARE(f.item(1)->getColor(), before);
}

void TestRegionMenu::hiddenRegionComesBackWithShowAll()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    QMenu* menu = menuOf(f);
    QVERIFY(f.choose(*menu, QStringLiteral("Hide")));
    QVERIFY(!f.regionValue(1, QStringLiteral("vis")).toBool());
    QVERIFY(!f.item(1)->isVisible());
    const int steps = f.stack().count();
    f.drag(kInside, kInside + QPoint(20, 20)); // nothing to take hold of
    QCOMPARE(f.stack().count(), steps);
    menu = menuOf(f);
    QVERIFY(f.choose(*menu, QStringLiteral("Show All Objects")));
    QVERIFY(f.regionValue(1, QStringLiteral("vis")).toBool());
    QVERIFY(f.item(1)->isVisible());
}

void TestRegionMenu::deletedRegionComesBackWhole()
{
    RegionWindow f;
    QCOMPARE(f.drawClosed(kBox), 1);
    const QPolygon before = f.points(1);
    QMenu* menu = menuOf(f);
    QVERIFY(f.choose(*menu, QStringLiteral("Delete")));
    QCOMPARE(f.regionCount(), 0);
    QVERIFY(!f.item(1));
    f.stack().undo();
    QCOMPARE(f.points(1), before);
    QVERIFY(f.isClosed(1));
    QCOMPARE(f.itemNodeCount(1), 4);
}

void TestRegionMenu::outlineInTheMakingHasNoMenuWithThePen()
{
    RegionWindow f;
    f.pickPen();
    f.clickAll({{60, 60}, {200, 60}});
    // To the pen any button is a click.
    QVERIFY(!f.contextMenu(QPoint(200, 160)));
    QCOMPARE(f.anchors(1), (QList<QPoint>{{60, 60}, {200, 60}, {200, 160}}));
    f.key(Qt::Key_Escape);
    QMenu* menu = f.contextMenu(QPoint(130, 60));
    QVERIFY(menu);
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Region 1"));
    menu->close();
}

void TestRegionMenu::regionDeletedFromTheMenuEndsTheOutlineInTheMaking()
{
    RegionWindow f;
    f.pickPen();
    f.clickAll({{60, 60}, {200, 60}});
    f.key(Qt::Key_Escape);
    QMenu* menu = f.contextMenu(QPoint(130, 60));
    QVERIFY(menu);
    f.click(QPoint(200, 60)); // goes on with it while the menu is open
    QVERIFY(f.choose(*menu, QStringLiteral("Delete")));
    QCOMPARE(f.regionCount(), 0);
    f.move(QPoint(210, 90));
    f.click(QPoint(220, 90));
    QCOMPARE(f.regionCount(), 1);
    QCOMPARE(f.anchors(1), (QList<QPoint>{{220, 90}}));
}

MEASURE_TEST_MAIN(TestRegionMenu)
#include "TestRegionMenu.moc"
