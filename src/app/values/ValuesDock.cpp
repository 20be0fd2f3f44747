#include "ValuesDock.h"

#include "AnimatedValues.h"
#include "CurveColors.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKernelObjectData.h"
#include "Media.h"
#include "ValueChart.h"
#include "ValueStore.h"
#include "ValueTree.h"
#include "WorkProgress.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

ValuesDock::ValuesDock(Media& aMedia, LmCvEditor& aEditor, QWidget* aWindow)
    : QDockWidget(tr("Values over Time"), aWindow), theMedia(aMedia), theEditor(aEditor),
      theStore(new ValueStore(aMedia, this))
{
    setObjectName(QStringLiteral("valuesDock"));
    auto* split = new QSplitter(Qt::Horizontal, this);
    split->addWidget(makeList());
    split->addWidget(makePlot());
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    setWidget(split);
    theRefresh.setSingleShot(true);
    connectAll();
}

QWidget* ValuesDock::makeList()
{
    auto* list = new QWidget(this);
    theTree = new ValueTree(list);
    theExportChecked = new QAction(tr("&Checked Values..."), this);
    theExportAll = new QAction(tr("&All Values of All Animated Objects..."), this);
    auto* menu = new QMenu(list);
    menu->addActions({theExportChecked, theExportAll});
    auto* button = new QToolButton(list);
    button->setObjectName(QStringLiteral("exportValues"));
    button->setText(tr("Export"));
    button->setToolTip(tr("Writes values over time as a table (CSV)"));
    button->setAccessibleName(tr("Export values over time"));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(menu);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* layout = new QVBoxLayout(list);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(theTree);
    layout->addWidget(button);
    return list;
}

QWidget* ValuesDock::makePlot()
{
    auto* plot = new QWidget(this);
    theChart = new ValueChart(theMedia, plot);
    theSentence = new QLabel(plot);
    theSentence->setObjectName(QStringLiteral("valuesSentence"));
    theSentence->setAlignment(Qt::AlignCenter);
    theSentence->setWordWrap(true);
    theSentence->setTextFormat(Qt::PlainText);
    thePages = new QStackedWidget(plot);
    thePages->addWidget(theSentence);
    thePages->addWidget(theChart);

    theNotice = new QWidget(plot);
    auto* told = new QLabel(tr("Values of the pictures have to be read from all frames."), theNotice);
    told->setWordWrap(true);
    theRead = new QPushButton(tr("&Read Pictures"), theNotice);
    theRead->setAccessibleName(tr("Read Pictures"));
    theRead->setObjectName(QStringLiteral("readPictures"));
    auto* row = new QHBoxLayout(theNotice);
    row->setContentsMargins(6, 2, 6, 2);
    row->addWidget(told, 1);
    row->addWidget(theRead);
    theNotice->hide();

    auto* layout = new QVBoxLayout(plot);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(thePages, 1);
    layout->addWidget(theNotice);
    return plot;
}

void ValuesDock::connectAll()
{
    const auto later = [this] { theRefresh.start(0); };
    connect(&theRefresh, &QTimer::timeout, this, &ValuesDock::refresh);
    connect(theStore, &ValueStore::changed, this, later);
    connect(theStore, &ValueStore::aboutToRead, this, &ValuesDock::aboutToRead);
    connect(this, &QDockWidget::visibilityChanged, this, [this, later](bool aSeen) {
        theSeen = aSeen; // a tab behind others is visible for Qt, but not seen
        later();
    });
    connect(toggleViewAction(), &QAction::triggered, this, [this](bool aShown) {
        if (aShown)
            raise();
    });
    connect(&theMedia, &Media::opened, this, [this, later] {
        theTree->clearChecks();
        later();
    });
    connect(&theEditor, &LmCvEditor::signalCurrentObjectChanged, this, later);
    connect(theTree, &ValueTree::toggled, this, &ValuesDock::valueToggled);
    connect(theChart, &ValueChart::frameWanted, this, [this](int aFrame) {
        QString error;
        if (!theMedia.showFrame(aFrame, error))
            Q_EMIT failed(error);
    });
    connect(theRead, &QPushButton::clicked, this, &ValuesDock::readPictures);
    connect(theExportChecked, &QAction::triggered, this, &ValuesDock::exportChecked);
    connect(theExportAll, &QAction::triggered, this, &ValuesDock::exportAll);
}

/// Brings list and chart to what there is. Nothing is worked out for a dock that nobody sees.
void ValuesDock::refresh()
{
    theTree->setObjects(AnimatedValues::objects());
    followCurrent();
    const QList<ValueKey> keys = theTree->checked();
    theStore->want(theSeen ? keys : QList<ValueKey>());
    if (!theSeen)
        return;
    showCurves(keys);
    if (!theReading && theStore->arePicturesQuick() && !theStore->missingPictures().isEmpty())
        readPictures();
}

void ValuesDock::followCurrent()
{
    const LmCvObject* item = theEditor.theCurrentTrack;
    LmCvManipulator* tool = item ? item->theManipulator : nullptr;
    theTree->follow(tool ? AnimatedValues::labelled(tool->theObjectType, tool->getObjectIdx(item))
                         : ValueKey());
}

void ValuesDock::showCurves(const QList<ValueKey>& aKeys)
{
    QList<Curve> curves;
    QList<ValueKey> keys;
    QList<QColor> wanted;
    for (const ValueKey& key : aKeys) {
        const ValueSeriesPtr series = theStore->find(key);
        const LmKernelObjectData* record = AnimatedValues::record(key.theType, key.theIdx);
        if (!series || series->theSamples.empty() || !record)
            continue;
        keys.append(key);
        wanted.append(record->storedValue(ParamDescr::kColor, kDefaultFrame).value<QColor>());
        curves.append({key, AnimatedValues::objectText(key), QColor(), series});
    }
    const QList<QColor> colors = CurveColors::distinct(wanted, theChart->palette().color(QPalette::Base));
    for (qsizetype i = 0; i < curves.size(); ++i)
        curves[i].theColor = colors[i];
    theTree->setColors(keys, colors);
    theChart->setCurves(curves);
    showState(aKeys, !curves.isEmpty());
}

void ValuesDock::showState(const QList<ValueKey>& aKeys, bool aAnyCurve)
{
    theSentence->setText(aAnyCurve ? QString() : emptyText(aKeys));
    thePages->setCurrentIndex(aAnyCurve ? 1 : 0);
    theNotice->setVisible(!theStore->missingPictures().isEmpty() && theMedia.source());
    theExportChecked->setEnabled(!aKeys.isEmpty());
    theExportAll->setEnabled(theTree->topLevelItemCount() > 0);
}

/// What to do to see a curve.
QString ValuesDock::emptyText(const QList<ValueKey>& aKeys) const
{
    if (!theMedia.isOpen() || theMedia.frameCount() < 2)
        return tr("Open a video or a picture of several pages to see values over time.");
    if (theTree->topLevelItemCount() == 0)
        return tr("Select an object and choose Frames > Animate the Object to see its values over time.");
    if (aKeys.isEmpty())
        return tr("Check values in the list to see their curves.");
    if (theStore->isWorking())
        return tr("The values are being worked out...");
    if (theStore->missingPictures().isEmpty())
        return tr("The checked values can't be measured on any frame; check others in the list.");
    return theMedia.source()
               ? QString()
               : tr("Locate the picture with File > Locate Picture to see values of the pictures.");
}

/// Who asks for a value of the pictures wants to see it at once.
void ValuesDock::valueToggled(const ValueKey& aKey, bool aChecked)
{
    refresh();
    if (!aChecked || !AnimatedValues::isFromPictures(aKey) || !theMedia.source() || theReading)
        return;
    if (!theStore->missingPictures().isEmpty())
        readPictures();
}

void ValuesDock::readPictures()
{
    theReading = true;
    {
        WorkProgress progress(tr("Reading the pictures of all frames..."), window());
        theStore->readPictures(
            [&progress](qint64 aDone, qint64 aCount) { return progress.report(aDone, aCount); });
    }
    theReading = false;
    refresh();
}
