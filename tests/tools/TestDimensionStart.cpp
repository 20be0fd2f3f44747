#include "DimensionFixture.h"
#include "TestFont.h"

#include <QToolButton>

#include <memory>

class TestDimensionStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { theFixture = std::make_unique<DimensionFixture>(); }
    void cleanup() { theFixture.reset(); }

    void startGivesButtonTextsAndValueNames();
    void startRegistersTheFiveParameters();
    void twoArgumentConstructorStartsTheTool();
    void describesItsObjects();

private:
    std::unique_ptr<DimensionFixture> theFixture;
};

void TestDimensionStart::startGivesButtonTextsAndValueNames()
{
    const LmCvManipDim& tool = theFixture->theTool;
    QVERIFY(tool.theInitDone);
    QCOMPARE(tool.theToolButton->toolTip(), QStringLiteral("Dimension tool"));
    QCOMPARE(tool.theToolButton->whatsThis(), QStringLiteral("Tool for create dimensions on the image view"));
    QVERIFY(!tool.theToolIcon.isNull());
    QCOMPARE(tool.theToolButton->icon().cacheKey(), tool.theToolIcon.cacheKey());
    QCOMPARE(tool.theValueNames,
             (QStringList{QStringLiteral("Height"), QStringLiteral("Width1"), QStringLiteral("Width2"),
                          QStringLiteral("Width3"), QStringLiteral("Avg. Width")}));
    QCOMPARE(tool.getCursor().hotSpot(), QPoint(7, 24));
    QVERIFY(!tool.getCursor().pixmap().isNull());
    QVERIFY(QMetaType::fromName("Q3PointArray").isValid());
}

void TestDimensionStart::startRegistersTheFiveParameters()
{
    const LmKernelObjectDataDescr* descriptor = theFixture->theKernel.getDataDescriptor(1112);
    QVERIFY(descriptor);
    struct Expected
    {
        const char* theName;
        QMetaType::Type theType;
        int theKind;
    };
    const Expected expected[] = {{"vis", QMetaType::Bool, 2},
                                 {"col", QMetaType::QColor, 2},
                                 {"dispv", QMetaType::QString, 2},
                                 {"pos", QMetaType::QPoint, 0},
                                 {"points", QMetaType::QPolygon, 0}};
    QCOMPARE(descriptor->count(), 5);
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(descriptor->param(i).theName, QLatin1String(expected[i].theName));
        QCOMPARE(descriptor->param(i).theType, expected[i].theType);
        QCOMPARE(int(descriptor->param(i).theKeyframeType), expected[i].theKind);
    }
}

void TestDimensionStart::twoArgumentConstructorStartsTheTool()
{
    theFixture.reset();
    ToolFixture f;
    LmCvManipDim tool(&f.theToolBar, nullptr);
    QVERIFY(tool.theInitDone);
    QCOMPARE(tool.theValueNames.size(), 5);
    tool.setUndoStack(&f.theStack);
    tool.setCvEditor(&f.theEditor);
    f.theEditor.setCurrentManipulator(&tool);
    f.drag(QPoint(10, 10), QPoint(50, 10));
    QCOMPARE(tool.theCvObjects.size(), 1);
    f.theStack.clear();
}

void TestDimensionStart::describesItsObjects()
{
    LmCvManipDim& tool = theFixture->theTool;
    QCOMPARE(tool.theObjectType, 1112);
    QCOMPARE(tool.getCvObjectFlags(nullptr), 732);
    QCOMPARE(tool.getObjectTypeNames(), QStringList{QStringLiteral("Dimension")});
    QCOMPARE(tool.getObjectName(1), QStringLiteral("Dimension"));
    QCOMPARE(tool.getObjectName(nullptr), QStringLiteral("Dimension"));
    QCOMPARE(&tool.getIconSet(QString()), &tool.theToolIcon);
    QCOMPARE(tool.getAnimatedValueNames(), tool.theValueNames);
}

MEASURE_TEST_MAIN(TestDimensionStart)
#include "TestDimensionStart.moc"
