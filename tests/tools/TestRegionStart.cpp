#include "LmKernelObjectDataDescr.h"
#include "Q3PopupMenu.h"
#include "RegionFixture.h"
#include "TestFont.h"

#include <QDomDocument>
#include <QToolButton>

#include <memory>

/// The tool before anything is drawn: what it registers, its two buttons and the menu of the pencil.
class TestRegionStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructorTouchesNeitherKernelNorToolBar();
    void initRegistersTheSevenParameters();
    void describesItsObjects();
    void buttonsHaveTheirTextsAndLooks();
    void twoArgumentConstructorStartsTheTool();
    void takenTypeLeavesTheToolInert();
    void eachModeHasItsCursor();
    void oneOfBothButtonsIsOn();
    void clickOnThePencilThatIsOnLeavesItOn();
    void pressedPenButtonPutsThePenDown();
    void pencilWithoutAnEditorOnlyChangesTheMode();
    void autoShapeNeedsSmooth();
    void choiceInTheMenuTakesThePencil();
    void makeCurrentBringsBackTheButtonOfTheMode();
    void hintFollowsModeAndOutline();
};

void TestRegionStart::constructorTouchesNeitherKernelNorToolBar()
{
    ToolFixture f;
    LmCvManipRegion tool(nullptr);
    QCOMPARE(tool.theObjectType, 1103);
    QVERIFY(!tool.theInitDone);
    QVERIFY(!tool.theToolButton);
    QVERIFY(!tool.thePencilButton);
    QVERIFY(!tool.theRegion);
    QVERIFY(!tool.theFinished);
    QVERIFY(!tool.thePencilMode);
    QVERIFY(tool.theAppend);
    QVERIFY(!tool.theRubberLine);
    QVERIFY(tool.theValueNames.isEmpty());
    QVERIFY(!f.theKernel.getCvManipulator(1103));
    QCOMPARE(tool.theCrossCursor.hotSpot(), QPoint(15, 15));
    QVERIFY(!tool.theCrossCursor.pixmap().isNull());
}

void TestRegionStart::initRegistersTheSevenParameters()
{
    RegionFixture f;
    const LmKernelObjectDataDescr* descriptor = f.theKernel.getDataDescriptor(1103);
    QVERIFY(descriptor);
    struct Row
    {
        const char* theName;
        QMetaType::Type theType;
        int theKind;
    };
    const Row rows[] = {{"vis", QMetaType::Bool, 2},      {"col", QMetaType::QColor, 2},
                        {"dispv", QMetaType::QString, 2}, {"cl", QMetaType::Bool, 2},
                        {"pts", QMetaType::QPolygon, 0},  {"nst", QMetaType::QByteArray, 1},
                        {"pos", QMetaType::QPoint, 0}};
    QCOMPARE(descriptor->getKeyframeTypes().size(), 7);
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    for (int i = 0; i < 7; ++i) {
        QCOMPARE(int(descriptor->getKeyframeTypes()[i]), rows[i].theKind);
        QVERIFY2(descriptor->setValue(values, QLatin1String(rows[i].theName),
                                      QVariant(QMetaType(rows[i].theType))),
                 rows[i].theName);
        QCOMPARE(values[i].getValue().typeId(), int(rows[i].theType));
    }
}

void TestRegionStart::describesItsObjects()
{
    RegionFixture f;
    LmCvManipRegion& tool = f.theTool;
    QCOMPARE(tool.getCvObjectFlags(nullptr), 988);
    QCOMPARE(tool.getObjectName(4), QStringLiteral("Region"));
    QCOMPARE(tool.getObjectName(nullptr), QStringLiteral("Region"));
    QCOMPARE(tool.getObjectTypeNames(), QStringList(QStringLiteral("Region")));
    QCOMPARE(&tool.getIconSet(QStringLiteral("x")), &tool.theIcon);
    QCOMPARE(&tool.getAutoCreationIconSet(QString()), &tool.theAutoIcon);
    QVERIFY(!tool.theIcon.isNull());
    QVERIFY(!tool.theAutoIcon.isNull());
    QVERIFY(tool.theIcon.cacheKey() != tool.theAutoIcon.cacheKey());
    QCOMPARE(tool.theValueNames,
             (QStringList{QStringLiteral("Width"), QStringLiteral("Height"), QStringLiteral("Length/Perim."),
                          QStringLiteral("Area"), QStringLiteral("Avg. lightness"),
                          QStringLiteral("Avg. saturation")}));
}

void TestRegionStart::buttonsHaveTheirTextsAndLooks()
{
    RegionFixture f;
    const QToolButton* pen = f.theTool.theToolButton;
    const QToolButton* pencil = f.theTool.thePencilButton;
    QCOMPARE(pen->toolTip(), QStringLiteral("Pen tool"));
    QCOMPARE(pen->whatsThis(), QStringLiteral("Pen tool for creating regions on the image view"));
    QCOMPARE(pen->icon().cacheKey(), f.theTool.theIcon.cacheKey());
    QCOMPARE(pencil->toolTip(), QStringLiteral("Pencil tool"));
    QCOMPARE(pencil->whatsThis(), QStringLiteral("Pencil tool for creating regions on the image view"));
    QCOMPARE(pencil->icon().cacheKey(), f.theTool.thePencilIcon.cacheKey());
    QCOMPARE(pencil->objectName(), QStringLiteral("manipulator button"));
    QCOMPARE(pencil->minimumSize(), QSize(35, 35));
    QCOMPARE(pencil->maximumSize(), QSize(35, 35));
    QCOMPARE(pencil->iconSize(), QSize(32, 32));
    QCOMPARE(pencil->focusPolicy(), Qt::NoFocus);
    QCOMPARE(pencil->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QVERIFY(pencil->autoRaise());
    QVERIFY(pencil->isCheckable());
    QVERIFY(!pencil->isChecked());
    QCOMPARE(pencil->parentWidget(), &f.theToolBar);
    QCOMPARE(pencil->menu(), f.theTool.thePencilMenu);
}

void TestRegionStart::twoArgumentConstructorStartsTheTool()
{
    ToolFixture f;
    LmCvManipRegion tool(&f.theToolBar, nullptr);
    QVERIFY(tool.theInitDone);
    QVERIFY(tool.theToolButton);
    QVERIFY(tool.thePencilButton);
    QCOMPARE(f.theKernel.getCvManipulator(1103), &tool);
}

void TestRegionStart::takenTypeLeavesTheToolInert()
{
    RegionFixture f;
    LmCvManipRegion second(nullptr);
    f.start(second);
    QVERIFY(!second.theInitDone);
    QVERIFY(!second.thePencilButton);
    QVERIFY(second.theValueNames.isEmpty());
    QVERIFY(second.theIcon.isNull());
    f.click(QPoint(50, 50));
    QCOMPARE(f.itemCount(), 0);
    f.theEditor.setCurrentManipulator(&f.theTool);
}

void TestRegionStart::eachModeHasItsCursor()
{
    RegionFixture f;
    QCOMPARE(f.theEditor.viewport()->cursor().hotSpot(), QPoint(15, 6));
    f.pickPencil();
    QCOMPARE(&f.theTool.getCursor(), &f.theTool.thePencilCursor);
    QCOMPARE(f.theEditor.viewport()->cursor().hotSpot(), QPoint(11, 8));
    f.pickPen();
    QCOMPARE(&f.theTool.getCursor(), &f.theTool.theRegionCursor);
    QCOMPARE(f.theEditor.viewport()->cursor().hotSpot(), QPoint(15, 6));
}

void TestRegionStart::oneOfBothButtonsIsOn()
{
    RegionFixture f;
    QVERIFY(f.theTool.theToolButton->isChecked());
    QTest::mouseClick(f.theTool.thePencilButton, Qt::LeftButton);
    QVERIFY(f.theTool.thePencilButton->isChecked());
    QVERIFY(!f.theTool.theToolButton->isChecked());
    QVERIFY(f.theTool.thePencilMode);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QTest::mouseClick(f.theTool.theToolButton, Qt::LeftButton);
    QVERIFY(!f.theTool.thePencilButton->isChecked());
    QVERIFY(f.theTool.theToolButton->isChecked());
    QVERIFY(!f.theTool.thePencilMode);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    f.theEditor.setCurrentManipulator(nullptr);
    QVERIFY(!f.theTool.theToolButton->isChecked());
    f.pickPencil();
    f.theEditor.setCurrentManipulator(nullptr);
    QVERIFY(!f.theTool.thePencilButton->isChecked());
}

void TestRegionStart::clickOnThePencilThatIsOnLeavesItOn()
{
    RegionFixture f;
    f.pickPencil();
    QTest::mouseClick(f.theTool.thePencilButton, Qt::LeftButton);
    QVERIFY(f.theTool.thePencilButton->isChecked());
    QVERIFY(f.theTool.thePencilMode);
    QCOMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
}

void TestRegionStart::pressedPenButtonPutsThePenDown()
{
    RegionFixture f;
    QTest::mouseClick(f.theTool.theToolButton, Qt::LeftButton);
    QVERIFY(!f.theEditor.theCurrentManipulator);
    QVERIFY(!f.theTool.theToolButton->isChecked());
}

void TestRegionStart::pencilWithoutAnEditorOnlyChangesTheMode()
{
    ToolFixture f;
    LmCvManipRegion tool(&f.theToolBar, nullptr);
    tool.thePencilButton->setChecked(true);
    QVERIFY(tool.thePencilMode);
    QVERIFY(tool.theFinished);
    QVERIFY(tool.thePencilButton->isChecked());
}

void TestRegionStart::autoShapeNeedsSmooth()
{
    RegionFixture f;
    Q3PopupMenu& menu = *f.theTool.thePencilMenu;
    QCOMPARE(menu.text(0), QStringLiteral("Smooth"));
    QCOMPARE(menu.text(1), QStringLiteral("Auto Shape"));
    QVERIFY(!menu.isItemChecked(0));
    QVERIFY(!menu.isItemEnabled(1));
    f.theTool.slotMenuItemActivated(0);
    QVERIFY(f.theTool.theSmooth);
    QVERIFY(menu.isItemChecked(0));
    QVERIFY(menu.isItemEnabled(1));
    f.theTool.slotMenuItemActivated(1);
    QVERIFY(f.theTool.theAutoShape);
    QVERIFY(menu.isItemChecked(1));
    f.theTool.slotMenuItemActivated(0);
    QVERIFY(!f.theTool.theSmooth);
    QVERIFY(!menu.isItemEnabled(1));
    // Kept for when smoothing is on again.
    QVERIFY(f.theTool.theAutoShape);
    QVERIFY(menu.isItemChecked(1));
}

void TestRegionStart::choiceInTheMenuTakesThePencil()
{
    RegionFixture f;
    QVERIFY(!f.theTool.thePencilMode);
    f.theTool.thePencilMenu->actions().constFirst()->trigger();
    QVERIFY(f.theTool.theSmooth);
    QVERIFY(f.theTool.thePencilMode);
    QVERIFY(f.theTool.thePencilButton->isChecked());
    QVERIFY(!f.theTool.theToolButton->isChecked());
}

void TestRegionStart::makeCurrentBringsBackTheButtonOfTheMode()
{
    RegionFixture f;
    f.pickPencil();
    f.theEditor.setCurrentManipulator(nullptr);
    f.theTool.makeCurrent();
    QTRY_COMPARE(f.theEditor.theCurrentManipulator, &f.theTool);
    QVERIFY(f.theTool.thePencilMode);
    QTRY_VERIFY(!f.theTool.thePencilButton->isDown());
    f.pickPen();
    f.theTool.makeCurrent(); // it is current already, and a click would put it down
    f.theEditor.setCurrentManipulator(nullptr);
    f.theTool.makeCurrent();
    QTRY_VERIFY(f.theTool.theToolButton->isChecked());
    QVERIFY(!f.theTool.thePencilMode);
}

void TestRegionStart::hintFollowsModeAndOutline()
{
    RegionFixture f;
    QSignalSpy changed(&f.theTool, &LmCvManipulator::signalHintChanged);
    QStringList hints{f.theTool.hint()};
    f.click(QPoint(50, 50));
    hints.append(f.theTool.hint());
    f.pickPencil();
    hints.append(f.theTool.hint());
    f.stroke({QPoint(20, 20), QPoint(40, 20)});
    hints.append(f.theTool.hint());
    QCOMPARE(QSet<QString>(hints.cbegin(), hints.cend()).size(), 4);
    QVERIFY(changed.count() >= 3);
}

MEASURE_TEST_MAIN(TestRegionStart)
#include "TestRegionStart.moc"
