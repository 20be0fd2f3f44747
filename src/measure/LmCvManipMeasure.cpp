#include "LmCvManipMeasure.h"

#include "ExactValues.h"
#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "LmKsMeasureWidget.h"
#include "StatisticsTable.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QToolButton>

LmCvManipMeasure::LmCvManipMeasure(QObject* aParent) : LmCvManipulator(aParent)
{
    makeDock();
    Q3Table* table = theMeasureWidget->theTable;
    table->setReadOnly(true);
    table->setSelectionMode(Q3Table::SingleRow);
    table->setColumnMovingEnabled(true);
    StatisticsTable::makeCompact(*table);
    new ExactValues(*this);
    QTabWidget* tabs = theMeasureWidget->theTabType;
    if (tabs->count() > 0)
        tabs->removeTab(tabs->currentIndex()); // the form's placeholder
}

LmCvManipMeasure::~LmCvManipMeasure() = default;

void LmCvManipMeasure::makeDock()
{
    auto* window = qobject_cast<QMainWindow*>(parent());
    auto* dock = new QDockWidget(tr("Measurements"), window);
    dock->setObjectName(tr("Measurements"));
    dock->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    dock->setGeometry(337, 455, 577, 351);
    theMeasureWidget = new LmKsMeasureWidget(dock, nullptr, {});
    connect(theMeasureWidget, SIGNAL(signalContextMenu(const QPoint&, const int)), this,
            SLOT(slotContextMenu(const QPoint&, const int)));
    dock->setWidget(theMeasureWidget);
    dock->setAllowedAreas(Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    if (window)
        window->addDockWidget(Qt::TopDockWidgetArea, dock);
}

void LmCvManipMeasure::setCvEditor(LmCvEditor* aEditor)
{
    LmCvManipulator::setCvEditor(aEditor);
    if (aEditor)
        connect(aEditor, SIGNAL(signalCurrentObjectChanged(LmCvObject*)), this,
                SLOT(slotCanvasObjectCurrent(LmCvObject*)));
}

// The base class isn't asked: this tool has no button and no type of objects.
void LmCvManipMeasure::initManipulator(QToolBar*)
{
    theInitDone = true;
    const auto fromKernel = [this](const char* aSignal, const char* aSlot) {
        connect(theKernel, aSignal, this, aSlot);
    };
    fromKernel(SIGNAL(signalAfterCalibrationChanged(const QString&, const LmCalibData&)),
               SLOT(slotAfterCalibrationChangedInKernel(const QString&, const LmCalibData&)));
    fromKernel(SIGNAL(signalObjectShow(const int, const int, bool)),
               SLOT(slotObjectShowInKernel(const int, const int, bool)));
    fromKernel(SIGNAL(signalObjectCreated(const int, const int, const LmKernelObjectData*)),
               SLOT(slotObjectCreatedInKernel(const int, const int, const LmKernelObjectData*)));
    fromKernel(SIGNAL(signalObjectBeforeRemove(const int, const int)),
               SLOT(slotObjectBeforeRemoveInKernel(const int, const int)));
    fromKernel(SIGNAL(signalObjectRemoved(const int, const int)),
               SLOT(slotObjectRemovedInKernel(const int, const int)));
    fromKernel(SIGNAL(signalObjectChanged(const int, const int, const LmKernelObjectData*)),
               SLOT(slotObjectChangedInKernel(const int, const int, const LmKernelObjectData*)));
    fromKernel(SIGNAL(signalObjectColorChanged(const int, const int, const QColor&)),
               SLOT(slotObjectColorChangedInKernel(const int, const int, const QColor&)));
    fromKernel(SIGNAL(signalManipulatorsLoaded()), SLOT(slotManipulatorsLoadedInKernel()));
    fromKernel(SIGNAL(signalFrameReadyStop(Int64)), SLOT(slotFrameReadyStopInKernel(Int64)));

    Q3Table* table = theMeasureWidget->theTable;
    connect(table, SIGNAL(currentChanged(int, int)), this, SLOT(slotTableCurrentChanged(int, int)));
    connect(theMeasureWidget->theTbExport, SIGNAL(clicked()), this, SLOT(slotExportData()));
    connect(table->horizontalHeader(), SIGNAL(indexChange(int, int, int)), this,
            SLOT(slotColumnMoved(int, int, int)));
    delete theToolButton;
    theToolButton = nullptr;
}

void LmCvManipMeasure::slotManipulatorsLoadedInKernel()
{
    const QList<LmCvManipulator*> tools = theKernelData->getCvManipulatorList();
    for (LmCvManipulator* tool : tools) {
        if ((tool->getCvObjectFlags(nullptr) & kMeasuredFlag) == 0)
            continue;
        const QStringList typeNames = tool->getObjectTypeNames();
        for (const QString& typeName : typeNames)
            makeCalcTable(*tool, typeName);
    }
}

void LmCvManipMeasure::makeCalcTable(LmCvManipulator& aTool, const QString& aTypeName)
{
    QTabWidget* tabs = theMeasureWidget->theTabType;
    auto* table = new StatisticsTable(tabs);
    table->setAccessibleName(tr("Statistics of %1").arg(aTypeName));
    theCalcTables.insert(aTypeName, table);
    fillWhenRead(table, aTypeName);
    tabs->insertTab(-1, table, aTool.getIconSet(aTypeName), aTypeName);
    const QStringList columns = QStringList(aTool.theValueNames) << QStringLiteral(" ");
    const int count = int(columns.size());
    table->setNumCols(count);
    table->setColumnLabels(columns);
    table->setColumnStretchable(count - 1, true);
    const QStringList rows{tr("Average"), tr("Min"), tr("Max"), tr("Std dev.")};
    table->setNumRows(int(rows.size()));
    for (int row = 0; row < rows.size(); ++row) {
        table->setRowStretchable(row, false);
        table->verticalHeader()->setLabel(row, rows[row], -1);
    }
    table->setReadOnly(true);
    table->setSelectionMode(Q3Table::SingleRow);
    table->setColumnMovingEnabled(true);
}

void LmCvManipMeasure::showCalcTable(const QString& aTypeName)
{
    if (Q3Table* table = theCalcTables.value(aTypeName))
        theMeasureWidget->theTabType->setCurrentWidget(table);
}

LmCvManipulator* LmCvManipMeasure::measuringTool(int aType) const
{
    LmCvManipulator* tool = theKernelData->getCvManipulator(aType);
    return tool && (tool->getCvObjectFlags(nullptr) & kMeasuredFlag) != 0 ? tool : nullptr;
}
