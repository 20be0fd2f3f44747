#include "LmCvDistance.h"
#include "LmCvManipDist.h"
#include "LmKernelObjectDataDescr.h"
#include "LmParamKeyframeVector.h"
#include "TestFont.h"
#include "ToolFixture.h"

#include <memory>

namespace {

constexpr int kType = 1102;
enum Param { kVis, kCol, kDispv, kPos, kEp };

/// A distance tool that can give its vector to the end with a type that the record refuses.
class WrongTool : public LmCvManipDist
{
public:
    WrongTool() : LmCvManipDist(nullptr) {}

    bool theWrongEnd = true;

protected:
    NamedValues geometryOf(const LmCvObject* aItem, const QPoint& aOrigin,
                           const LmKernelObjectData* aFormer) const override
    {
        NamedValues values = LmCvManipDist::geometryOf(aItem, aOrigin, aFormer);
        if (theWrongEnd)
            values[1].second = QStringLiteral("no point");
        return values;
    }
};

} // namespace

/// A value that the record refuses ends the filling of a vector; what stands before it still counts.
class TestRefusedValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void creationKeepsWhatStandsBeforeIt();
    void changeKeepsWhatStandsBeforeIt();

private:
    QVariant stored(Param aParam) const { return theFixture->stored(kType, 1, aParam); }

    std::unique_ptr<ToolFixture> theFixture;
    std::unique_ptr<WrongTool> theTool;
};

void TestRefusedValues::init()
{
    theFixture = std::make_unique<ToolFixture>();
    theTool = std::make_unique<WrongTool>();
    theFixture->start(*theTool);
}

// The commands' records, the tool, its surroundings.
void TestRefusedValues::cleanup()
{
    theFixture->theStack.clear();
    theTool.reset();
    theFixture.reset();
}

void TestRefusedValues::creationKeepsWhatStandsBeforeIt()
{
    theFixture->drag(QPoint(20, 50), QPoint(120, 50));
    QCOMPARE(theFixture->theStack.count(), 1);
    QCOMPARE(stored(kPos), QVariant(QPoint(110, 80)));
    for (const Param param : {kEp, kDispv, kCol, kVis})
        QVERIFY2(!stored(param).isValid(), qPrintable(QString::number(param)));
}

void TestRefusedValues::changeKeepsWhatStandsBeforeIt()
{
    theTool->theWrongEnd = false;
    theFixture->drag(QPoint(20, 50), QPoint(120, 50));
    QCOMPARE(stored(kEp), QVariant(QPoint(50, 0)));
    const QVariant color = stored(kCol);
    QVERIFY(color.isValid());
    theTool->theWrongEnd = true;
    theTool->theCvObjects.value(1)->setColor(Qt::blue); // would come behind the refused value
    theFixture->drag(QPoint(120, 50), QPoint(140, 90));
    QCOMPARE(theFixture->theStack.count(), 2);
    QCOMPARE(stored(kPos), QVariant(QPoint(120, 100)));
    QCOMPARE(stored(kEp), QVariant(QPoint(50, 0)));
    QCOMPARE(stored(kCol), color);
    theFixture->theStack.undo();
    QCOMPARE(stored(kPos), QVariant(QPoint(110, 80)));
}

MEASURE_TEST_MAIN(TestRefusedValues)
#include "TestRefusedValues.moc"
