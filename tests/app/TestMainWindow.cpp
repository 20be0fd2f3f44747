#include "LmAppSettings.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvSelection.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "SampleFile.h"
#include "Sentence.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QAbstractItemView>
#include <QColorDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QUndoView>
#include <QWheelEvent>

/// The window as a person uses it: tools, undo, zoom, what the status bar tells.
class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyActionHasTextShortcutTipAndPicture();
    void noTwoActionsShareAShortcut();
    void everythingThatTakesTheFocusHasAName();
    void emptyWindowTellsWhatToDoAndOffersNoTool();
    void undoAndRedoGoBothWaysAndNameTheStep();
    void clickInTheHistoryGoesBack();
    void startWithoutAFileShowsTheSampleAndDoesNotRememberIt();
    void deleteRemovesTheSelectedObjectsAsOneStep();
    void statusBarTellsPlaceColourZoomAndHint();
    void colourForNewObjectsIsUsedAndKept();
    void cancelledColourDialogKeepsTheColour();
    void windowWithoutPluginOpensAndTellsWhy();

private:
    static QString status(WindowFixture& aFixture, const char* aField);
};

QString TestMainWindow::status(WindowFixture& aFixture, const char* aField)
{
    const auto* label = aFixture.window().statusBar()->findChild<QLabel*>(QLatin1String(aField));
    return label ? label->text() : QStringLiteral("no such field");
}

static QList<QAction*> allActions(MainWindow& aWindow)
{
    QList<QAction*> actions;
    const QList<QMenu*> menus = aWindow.menuBar()->findChildren<QMenu*>();
    for (const QMenu* menu : menus)
        for (QAction* action : menu->actions())
            if (!action->isSeparator() && !action->menu())
                actions << action;
    return actions;
}

void TestMainWindow::everyActionHasTextShortcutTipAndPicture()
{
    WindowFixture fixture;
    const QList<QAction*> actions = fixture.window().QWidget::actions();
    QVERIFY(actions.size() > 15);
    for (const QAction* action : actions) {
        QVERIFY(!action->text().isEmpty());
        const QByteArray name = action->text().toUtf8();
        QVERIFY2(!action->statusTip().isEmpty(), name.constData());
        QVERIFY2(!action->shortcut().isEmpty(), name.constData());
        QVERIFY2(!action->icon().pixmap(24, 24).isNull(), name.constData());
    }
}

void TestMainWindow::noTwoActionsShareAShortcut()
{
    WindowFixture fixture;
    QHash<QKeySequence, QString> taken;
    for (const QAction* action : allActions(fixture.window()))
        for (const QKeySequence& shortcut : action->shortcuts()) {
            QVERIFY2(!taken.contains(shortcut), qPrintable(action->text() + taken.value(shortcut)));
            taken.insert(shortcut, action->text());
        }
    QVERIFY(taken.size() > 15);
}

void TestMainWindow::everythingThatTakesTheFocusHasAName()
{
    WindowFixture fixture;
    int named = 0;
    const QList<QWidget*> widgets = fixture.window().findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || widget->inherits("QMenu") ||
            widget->inherits("QLineEdit") || widget->inherits("QScrollBar"))
            continue;
        // Each tab of docks that share a place has its dock's title.
        if (widget->inherits("QTabBar") && widget->parentWidget() == &fixture.window())
            continue;
        ++named;
        QVERIFY2(!widget->accessibleName().isEmpty(), widget->metaObject()->className());
    }
    QVERIFY(named >= 2);
}

void TestMainWindow::emptyWindowTellsWhatToDoAndOffersNoTool()
{
    WindowFixture fixture(WindowFixture::kEmpty);
    QVERIFY(status(fixture, "hint").contains(QStringLiteral("Open a picture")));
    QVERIFY(!fixture.distanceTool()->theToolButton->isEnabled());
    QVERIFY(!fixture.actions().theSave->isEnabled());
    QVERIFY(fixture.window().openAtStart(fixture.picturePath()));
    QVERIFY(fixture.distanceTool()->theToolButton->isEnabled());
    QVERIFY(fixture.actions().theSave->isEnabled());
}

void TestMainWindow::undoAndRedoGoBothWaysAndNameTheStep()
{
    WindowFixture fixture;
    QVERIFY(!fixture.actions().theUndo->isEnabled());
    QCOMPARE(fixture.draw(QPoint(40, 40), QPoint(140, 40)), 1);
    QVERIFY(fixture.actions().theUndo->text().contains(QStringLiteral("Distance 1")));
    fixture.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(fixture.distanceCount(), 0);
    QVERIFY(fixture.actions().theRedo->text().contains(QStringLiteral("Distance 1")));
    fixture.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(fixture.distanceCount(), 1);
    fixture.key(Qt::Key_Z, Qt::ControlModifier);
    fixture.key(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(fixture.distanceCount(), 1);
}

void TestMainWindow::clickInTheHistoryGoesBack()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 40));
    fixture.draw(QPoint(40, 90), QPoint(140, 90));
    auto* view = fixture.window().findChild<QUndoView*>();
    QVERIFY(view);
    fixture.key(Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(view->isVisible());
    QCOMPARE(view->model()->rowCount(), 3);
    const QRect row = view->visualRect(view->model()->index(1, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    QCOMPARE(fixture.distanceCount(), 1);
}

void TestMainWindow::deleteRemovesTheSelectedObjectsAsOneStep()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 40));
    fixture.draw(QPoint(40, 90), QPoint(140, 90));
    fixture.editor().activateItem(nullptr);
    QVERIFY(!fixture.actions().theDelete->isEnabled());
    const int count = fixture.stack().count();
    fixture.key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(fixture.editor().selection().items().size(), 2);
    QVERIFY(fixture.actions().theDelete->isEnabled());
    fixture.key(Qt::Key_Delete);
    QCOMPARE(fixture.distanceCount(), 0);
    QCOMPARE(fixture.stack().count(), count + 1);
    fixture.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(fixture.distanceCount(), 2);
}

void TestMainWindow::statusBarTellsPlaceColourZoomAndHint()
{
    WindowFixture fixture;
    fixture.move(QPoint(123, 45));
    QVERIFY(status(fixture, "position").startsWith(QStringLiteral("123, 45 px")));
    QVERIFY(!status(fixture, "pixelColor").isEmpty());
    QCOMPARE(status(fixture, "calibration"), QStringLiteral("Not calibrated"));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(fixture.editor().viewport(), &leave);
    QVERIFY(status(fixture, "position").isEmpty());
    fixture.key(Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(status(fixture, "zoom"), QStringLiteral("100 %"));
    fixture.pickDistance();
    QCOMPARE(status(fixture, "hint"), fixture.distanceTool()->theToolButton->whatsThis());
}

void TestMainWindow::startWithoutAFileShowsTheSampleAndDoesNotRememberIt()
{
    WindowFixture fixture(WindowFixture::kEmpty);
    const QString sample = SampleFile::find();
    QCOMPARE(fixture.window().openAtStart(QString()), !sample.isEmpty());
    QCOMPARE(fixture.bench().media().path(), sample);
    QVERIFY(!fixture.actions().theRecentMenu->isEnabled());
}

static ModalAnswer::Answer pickColor(const QColor& aColor)
{
    return [aColor](QWidget* aDialog) {
        auto* dialog = qobject_cast<QColorDialog*>(aDialog);
        QVERIFY(dialog);
        dialog->setCurrentColor(aColor);
        QTest::keyClick(dialog, Qt::Key_Return);
    };
}

void TestMainWindow::colourForNewObjectsIsUsedAndKept()
{
    WindowFixture fixture;
    const QColor chosen(12, 200, 34);
    {
        const ModalAnswer answer(pickColor(chosen));
        fixture.actions().theColor->trigger();
    }
    QCOMPARE(fixture.draw(QPoint(40, 40), QPoint(140, 40)), 1);
    QCOMPARE(fixture.value(1, QStringLiteral("col")).value<QColor>(), chosen);
    LmAppSettings::theGridColor = Qt::black;
    fixture.restart();
    QCOMPARE(LmAppSettings::theGridColor, chosen);
}

void TestMainWindow::cancelledColourDialogKeepsTheColour()
{
    WindowFixture fixture;
    const QColor before = LmAppSettings::theGridColor;
    const ModalAnswer answer(ModalAnswer::cancel());
    fixture.actions().theColor->trigger();
    QCOMPARE(LmAppSettings::theGridColor, before);
}

void TestMainWindow::windowWithoutPluginOpensAndTellsWhy()
{
    const QTemporaryDir chosen;
    MadeFiles::write(chosen.filePath(QStringLiteral("libMeasureToolsPlugin.so")), "no plug-in");
    const QByteArray folder = qgetenv("MEASURETOOLS_PLUGIN_DIR");
    qputenv("MEASURETOOLS_PLUGIN_DIR", chosen.path().toUtf8());
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    MainWindow window;
    window.show();
    const bool told = answer.wait();
    qputenv("MEASURETOOLS_PLUGIN_DIR", folder);
    QVERIFY(told);
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QVERIFY(window.workbench().tools().isEmpty());
    QVERIFY(window.isVisible());
}

MEASURE_TEST_MAIN(TestMainWindow)
#include "TestMainWindow.moc"
