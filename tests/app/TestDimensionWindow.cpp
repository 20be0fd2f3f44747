#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "ModalAnswer.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPolygon>
#include <QToolButton>

/// Dimensions as a person draws, labels and keeps them. Canvas and image coordinates are the same here.
class TestDimensionWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuOffersTheValuesOfADimension();
    void eachValueComesOntoTheEmptyLabel_data();
    void eachValueComesOntoTheEmptyLabel();
    void statusBarTellsWhatTheNextDragDoes();
    void deleteTakesTheDimensionBeingWidened();
    void savedDimensionComesBack();

private:
    static constexpr int kType = 1112;

    static LmCvManipulator* tool(WindowFixture& aFixture)
    {
        LmCvManipulator* found = aFixture.kernel().getCvManipulator(kType);
        if (!found)
            qFatal("there is no Dimension tool");
        return found;
    }
    static LmCvObject* item(WindowFixture& aFixture) { return tool(aFixture)->getCvObject(1); }
    static void pick(WindowFixture& aFixture)
    {
        if (!tool(aFixture)->theToolButton->isChecked())
            QTest::mouseClick(tool(aFixture)->theToolButton, Qt::LeftButton);
    }
    static QVariant value(WindowFixture& aFixture, const char* aParam)
    {
        const LmKernelObjectData* record = aFixture.kernel().getObject(kType, 1);
        return record ? aFixture.kernel().getDataDescriptor(kType)->getValue(record->getDefaultKeyframes(),
                                                                             QLatin1String(aParam))
                      : QVariant();
    }
    static QString hint(WindowFixture& aFixture)
    {
        const auto* label = aFixture.window().findChild<QLabel*>(QStringLiteral("hint"));
        return label ? label->text() : QString();
    }
    static void draw(WindowFixture& aFixture);
};

static const QPolygon kDrawn({QPoint(50, 50), QPoint(50, 250), QPoint(100, 100), QPoint(220, 100),
                              QPoint(100, 200), QPoint(260, 200)});

// A height of 200, and widths of 120 and 160.
void TestDimensionWindow::draw(WindowFixture& aFixture)
{
    pick(aFixture);
    aFixture.drag(kDrawn[0], kDrawn[1]);
    aFixture.drag(kDrawn[2], kDrawn[3], Qt::AltModifier);
    aFixture.drag(kDrawn[4], kDrawn[5], Qt::AltModifier);
    aFixture.pickArrow();
    QCOMPARE(value(aFixture, "points").value<QPolygon>(), kDrawn);
}

void TestDimensionWindow::menuOffersTheValuesOfADimension()
{
    WindowFixture f;
    draw(f);
    QMenu* menu = f.contextMenu(QPoint(160, 100));
    QVERIFY(menu);
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Dimension 1"));
    for (const char* offered : {"Set Color...", "Hide", "Delete"})
        QVERIFY2(WindowFixture::find(*menu, QLatin1String(offered)), offered);
    const QAction* values = WindowFixture::find(*menu, QStringLiteral("Value on the Label"));
    QVERIFY(values);
    for (const QString& name : tool(f)->theValueNames) {
        const QAction* entry = WindowFixture::find(*values->menu(), name);
        QVERIFY2(entry, qPrintable(name));
        QVERIFY(!entry->isChecked());
    }
    QVERIFY(WindowFixture::find(*values->menu(), QStringLiteral("None"))->isChecked());
    menu->close();
}

void TestDimensionWindow::eachValueComesOntoTheEmptyLabel_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("height") << QStringLiteral("Height") << QStringLiteral("H: 200.00");
    QTest::newRow("width 1") << QStringLiteral("Width1") << QStringLiteral("W1: 120.00");
    QTest::newRow("width 2") << QStringLiteral("Width2") << QStringLiteral("W2: 160.00");
    QTest::newRow("width 3") << QStringLiteral("Width3") << QStringLiteral("W3: 0.00");
    QTest::newRow("average") << QStringLiteral("Avg. Width") << QStringLiteral("140.00");
}

void TestDimensionWindow::eachValueComesOntoTheEmptyLabel()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    WindowFixture f;
    draw(f);
    QCOMPARE(item(f)->labelText(), QStringLiteral(" 1 "));
    const int steps = f.stack().count();
    QMenu* menu = f.contextMenu(QPoint(160, 100));
    QVERIFY(menu);
    QVERIFY(f.choose(*menu, name));
    QCOMPARE(value(f, "dispv").toString(), name);
    QVERIFY2(item(f)->labelText().startsWith(QStringLiteral(" 1 <") + shown),
             qPrintable(item(f)->labelText()));
    QCOMPARE(f.stack().count(), steps + 1);
    // It stays there when a further width is drawn; a new dimension begins without one again.
    pick(f);
    f.drag(QPoint(300, 50), QPoint(300, 90), Qt::AltModifier);
    QCOMPARE(value(f, "dispv").toString(), name);
    QVERIFY(item(f)->labelText().contains(QLatin1Char('<')));
    f.drag(QPoint(350, 50), QPoint(350, 90));
    QCOMPARE(tool(f)->getCvObject(2)->labelText(), QStringLiteral(" 2 "));
    f.stack().setIndex(steps);
    QCOMPARE(item(f)->labelText(), QStringLiteral(" 1 "));
}

void TestDimensionWindow::statusBarTellsWhatTheNextDragDoes()
{
    WindowFixture f;
    pick(f);
    const QString first = hint(f);
    QCOMPARE(first, tool(f)->hint());
    f.press(QPoint(50, 50));
    QVERIFY(hint(f) != first);
    f.move(QPoint(50, 250));
    f.release(QPoint(50, 250));
    QVERIFY2(hint(f).contains(QStringLiteral("width 1")), qPrintable(hint(f)));
    f.drag(QPoint(100, 100), QPoint(220, 100), Qt::AltModifier);
    QVERIFY2(hint(f).contains(QStringLiteral("width 2")), qPrintable(hint(f)));
    f.stack().undo();
    QVERIFY2(hint(f).contains(QStringLiteral("width 1")), qPrintable(hint(f)));
    f.stack().undo();
    QCOMPARE(hint(f), first);
}

void TestDimensionWindow::deleteTakesTheDimensionBeingWidened()
{
    WindowFixture f;
    draw(f);
    pick(f);
    f.press(QPoint(300, 50), Qt::AltModifier);
    f.move(QPoint(350, 50), Qt::AltModifier);
    f.actions().theDelete->trigger();
    QVERIFY(!item(f));
    f.move(QPoint(360, 50), Qt::AltModifier);
    f.release(QPoint(360, 50), Qt::AltModifier);
    QVERIFY(f.editor().cvItems().isEmpty());
    f.stack().undo();
    QCOMPARE(value(f, "points").value<QPolygon>(), kDrawn);
    QVERIFY(item(f));
}

void TestDimensionWindow::savedDimensionComesBack()
{
    WindowFixture f;
    draw(f);
    QMenu* menu = f.contextMenu(QPoint(160, 100));
    QVERIFY(menu);
    QVERIFY(f.choose(*menu, QStringLiteral("Width2")));
    const QString label = item(f)->labelText();
    const QString file = f.path(QStringLiteral("work.mtp"));
    {
        const ModalAnswer answer(ModalAnswer::chooseFile(file));
        f.actions().theSaveAs->trigger();
    }
    f.restart();
    QVERIFY(!item(f));
    QVERIFY(f.window().openAtStart(file));
    QCOMPARE(value(f, "points").value<QPolygon>(), kDrawn);
    QVERIFY(item(f));
    QCOMPARE(item(f)->labelText(), label);
    pick(f);
    f.click(QPoint(160, 100));
    f.drag(QPoint(300, 50), QPoint(300, 90), Qt::AltModifier);
    QCOMPARE(value(f, "points").value<QPolygon>().size(), 8);
}

MEASURE_TEST_MAIN(TestDimensionWindow)
#include "TestDimensionWindow.moc"
