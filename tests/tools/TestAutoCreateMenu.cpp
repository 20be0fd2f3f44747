#include "AutoCreateFixture.h"
#include "TestFont.h"

#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>

#include <memory>

/// What the tool offers to make, and in which mode.
class TestAutoCreateMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<AutoCreateFixture>(); }
    void cleanup() { theFixture.reset(); }

    void everyTypeOfToolsThatTakePartIsOffered();
    void firstTypeWithAPictureIsChosen();
    void typesWithoutAPictureLeaveTheFirstOneThatHasOne();
    void toolsThatDoNotTakePartAreLeftOut();
    void withoutToolsTheModesAreLeft();
    void loadedTwiceTheMenuIsMadeOnce();
    void singleModeIsTheFirst();
    void modesCheckEachOther();
    void modeSetsTheCursor();
    void typeSetsPictureAndMakesTheToolCurrent();
    void typeOfAToolThatHasGoneChangesNothing();
    void buttonSaysWhatItIs();
    void noObjectTypeIsRegistered();
    void iconsOfItsOwnAreEmpty();
    void hintNamesWhatIsMade();
    void withoutAButtonTheMenuStillWorks();

private:
    std::unique_ptr<AutoCreateFixture> theFixture;
};

void TestAutoCreateMenu::everyTypeOfToolsThatTakePartIsOffered()
{
    AutoCreateFixture& f = *theFixture;
    QStringList texts;
    const QList<QAction*> actions = f.theAuto.theMenu->actions();
    for (const QAction* action : actions)
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    QCOMPARE(texts, (QStringList{"Region", "Thing", "Blob", "-", "Single", "Group"}));
    QCOMPARE(f.theAuto.theIdToName, (QMap<int, QString>{{2, "Region"}, {3, "Thing"}, {4, "Blob"}}));
    QCOMPARE(f.theAuto.theNameToType,
             (QMap<QString, int>{{"Region", 1103}, {"Thing", MakerTool::kType}, {"Blob", MakerTool::kType}}));
    QVERIFY(f.entry("Single")->icon().isNull());
    QVERIFY(f.entry("Group")->icon().isNull());
}

void TestAutoCreateMenu::firstTypeWithAPictureIsChosen()
{
    AutoCreateFixture& f = *theFixture;
    QCOMPARE(f.theAuto.theCurrentTypeName, QStringLiteral("Region"));
    const QIcon& icon = f.theTool.getAutoCreationIconSet(QStringLiteral("Region"));
    QVERIFY(!icon.isNull());
    QCOMPARE(f.theAuto.theToolButton->icon().cacheKey(), icon.cacheKey());
    QVERIFY(f.theAuto.theToolButton->menu() == f.theAuto.theMenu);
}

void TestAutoCreateMenu::typesWithoutAPictureLeaveTheFirstOneThatHasOne()
{
    theFixture.reset();
    ToolFixture f;
    MakerTool maker({"Bare", "Dressed", "Late"});
    maker.theIcons["Dressed"] = AutoCreateFixture::pictureIcon(2);
    maker.theIcons["Late"] = AutoCreateFixture::pictureIcon(3);
    LmCvManipAutoCreate tool(nullptr);
    f.start(maker);
    f.start(tool);
    f.theKernel.announceManipulatorsLoaded();
    QCOMPARE(tool.theCurrentTypeName, QStringLiteral("Dressed"));
    QCOMPARE(tool.theIdToName.value(2), QStringLiteral("Bare"));
}

void TestAutoCreateMenu::toolsThatDoNotTakePartAreLeftOut()
{
    theFixture.reset();
    class Idle : public MakerTool
    {
    public:
        int getCvObjectFlags(LmCvObject*) override { return 1023 - 256; }
    };
    ToolFixture f;
    Idle idle;
    LmCvManipAutoCreate tool(nullptr);
    f.start(idle);
    f.start(tool);
    f.theKernel.announceManipulatorsLoaded();
    QVERIFY(f.theKernel.getCvManipulatorList().contains(&idle));
    QVERIFY(tool.theIdToName.isEmpty());
}

void TestAutoCreateMenu::withoutToolsTheModesAreLeft()
{
    theFixture.reset();
    ToolFixture f;
    LmCvManipAutoCreate tool(nullptr);
    f.start(tool);
    f.theKernel.announceManipulatorsLoaded();
    QCOMPARE(tool.theMenu->actions().size(), 3); // the separator and both modes
    QVERIFY(tool.theToolButton->icon().isNull());
    QVERIFY(tool.theCurrentTypeName.isEmpty());
    QVERIFY(!tool.objectTool());
    f.click(QPoint(50, 50));
    f.drag(QPoint(50, 50), QPoint(90, 90));
    QCOMPARE(f.theStack.count(), 0);
    QVERIFY(!tool.hint().contains(QStringLiteral("  ")));
}

void TestAutoCreateMenu::loadedTwiceTheMenuIsMadeOnce()
{
    AutoCreateFixture& f = *theFixture;
    const QMenu* menu = f.theAuto.theMenu;
    f.theKernel.announceManipulatorsLoaded();
    QVERIFY(f.theAuto.theMenu == menu);
    QCOMPARE(menu->actions().size(), 6);
}

void TestAutoCreateMenu::singleModeIsTheFirst()
{
    AutoCreateFixture& f = *theFixture;
    QVERIFY(!f.theAuto.theGroupMode);
    QVERIFY(f.entry("Single")->isChecked());
    QVERIFY(!f.entry("Group")->isCheckable());
}

void TestAutoCreateMenu::modesCheckEachOther()
{
    AutoCreateFixture& f = *theFixture;
    f.entry("Group")->trigger();
    QVERIFY(f.theAuto.theGroupMode);
    QVERIFY(f.entry("Group")->isCheckable() && f.entry("Group")->isChecked());
    QVERIFY(!f.entry("Single")->isChecked());
    // Choosing the mode that is on leaves it on.
    f.entry("Group")->trigger();
    QVERIFY(f.theAuto.theGroupMode && f.entry("Group")->isChecked());
    f.entry("Single")->trigger();
    QVERIFY(!f.theAuto.theGroupMode);
    QVERIFY(f.entry("Single")->isChecked() && !f.entry("Group")->isChecked());
}

void TestAutoCreateMenu::modeSetsTheCursor()
{
    AutoCreateFixture& f = *theFixture;
    QCOMPARE(&f.theAuto.getCursor(), &f.theAuto.theSingleCursor);
    f.chooseGroup();
    QCOMPARE(&f.theAuto.getCursor(), &f.theAuto.theGroupCursor);
    for (const QCursor& cursor : {f.theAuto.theSingleCursor, f.theAuto.theGroupCursor}) {
        QVERIFY(!cursor.pixmap().isNull());
        QCOMPARE(cursor.hotSpot(), QPoint(15, 15));
    }
}

void TestAutoCreateMenu::typeSetsPictureAndMakesTheToolCurrent()
{
    AutoCreateFixture& f = *theFixture;
    f.theEditor.setCurrentManipulator(&f.theTool);
    QVERIFY(!f.theAuto.theToolButton->isChecked());
    f.choose("Blob");
    QCOMPARE(f.theAuto.theCurrentTypeName, QStringLiteral("Blob"));
    QCOMPARE(f.theAuto.objectTool(), static_cast<LmCvManipulator*>(&f.theMaker));
    QCOMPARE(f.theAuto.theToolButton->icon().cacheKey(), f.theMaker.theIcons["Blob"].cacheKey());
    QVERIFY(f.theAuto.theToolButton->isChecked());
    QCOMPARE(f.theEditor.theCurrentManipulator, static_cast<LmCvManipulator*>(&f.theAuto));
}

void TestAutoCreateMenu::typeOfAToolThatHasGoneChangesNothing()
{
    AutoCreateFixture& f = *theFixture;
    f.theKernel.unregisterManipulator(&f.theMaker);
    f.theEditor.setCurrentManipulator(&f.theTool);
    const qint64 icon = f.theAuto.theToolButton->icon().cacheKey();
    f.choose("Blob");
    QCOMPARE(f.theAuto.theToolButton->icon().cacheKey(), icon);
    QVERIFY(!f.theAuto.theToolButton->isChecked());
}

void TestAutoCreateMenu::buttonSaysWhatItIs()
{
    const QToolButton* button = theFixture->theAuto.theToolButton;
    QCOMPARE(button->toolTip(), QStringLiteral("Auto create tool"));
    QCOMPARE(button->whatsThis(), QStringLiteral("Tool for automated creating of objects on the image view"));
    QVERIFY(button->autoRaise());
}

void TestAutoCreateMenu::noObjectTypeIsRegistered()
{
    AutoCreateFixture& f = *theFixture;
    QVERIFY(f.theAuto.theInitDone);
    QCOMPARE(f.theAuto.theObjectType, 0);
    QVERIFY(!f.theKernel.getCvManipulatorList().contains(&f.theAuto));
    QCOMPARE(f.theAuto.getCvObjectFlags(nullptr), 157);
}

void TestAutoCreateMenu::iconsOfItsOwnAreEmpty()
{
    LmCvManipAutoCreate& tool = theFixture->theAuto;
    QCOMPARE(&tool.getIconSet(QStringLiteral("Ellipse")), &tool.theEllipseIcon);
    QCOMPARE(&tool.getIconSet(QStringLiteral("Region")), &tool.theOtherIcon);
    QVERIFY(tool.theEllipseIcon.isNull() && tool.theOtherIcon.isNull());
}

void TestAutoCreateMenu::hintNamesWhatIsMade()
{
    AutoCreateFixture& f = *theFixture;
    QVERIFY(f.theAuto.hint().contains(QStringLiteral("Region")));
    QSignalSpy changed(&f.theAuto, &LmCvManipulator::signalHintChanged);
    f.choose("Blob");
    QCOMPARE(changed.size(), 1);
    QVERIFY(f.theAuto.hint().contains(QStringLiteral("Blob")));
    const QString single = f.theAuto.hint();
    f.chooseGroup();
    QVERIFY(f.theAuto.hint() != single);
}

void TestAutoCreateMenu::withoutAButtonTheMenuStillWorks()
{
    theFixture.reset();
    ToolFixture f;
    MakerTool maker;
    LmCvManipAutoCreate tool(nullptr);
    f.start(maker);
    tool.initManipulator(nullptr);
    f.theKernel.announceManipulatorsLoaded();
    QVERIFY(!tool.theToolButton);
    tool.slotMenuItemActivated(3);
    QCOMPARE(tool.theCurrentTypeName, QStringLiteral("Blob"));
    tool.slotMenuItemActivated(1);
    QVERIFY(tool.theGroupMode);
}

MEASURE_TEST_MAIN(TestAutoCreateMenu)
#include "TestAutoCreateMenu.moc"
