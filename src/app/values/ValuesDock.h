#ifndef VALUESDOCK_H
#define VALUESDOCK_H

#include "ValueSeries.h"

#include <QDockWidget>
#include <QTimer>

class LmCvEditor;
class Media;
class QAction;
class QLabel;
class QPushButton;
class QStackedWidget;
class ValueChart;
class ValueStore;
class ValueTree;

/// The values of the animated objects as curves over time, beside the list in which they are chosen, and
/// their export.
class ValuesDock : public QDockWidget
{
    Q_OBJECT

public:
    ValuesDock(Media& aMedia, LmCvEditor& aEditor, QWidget* aWindow);

    /// Asks for a file and writes all values of all animated objects, or those that are checked.
    void exportAll();
    void exportChecked();

Q_SIGNALS:
    /// Something couldn't be done: one sentence.
    void failed(const QString& aError);
    /// The pictures of all frames are about to be read.
    void aboutToRead();

private:
    QWidget* makeList();
    QWidget* makePlot();
    void connectAll();
    void refresh();
    void showCurves(const QList<ValueKey>& aKeys);
    void showState(const QList<ValueKey>& aKeys, bool aAnyCurve);
    void followCurrent();
    void readPictures();
    void valueToggled(const ValueKey& aKey, bool aChecked);
    void exportValues(const QList<ValueKey>& aKeys, const QString& aTitle);
    QString emptyText(const QList<ValueKey>& aKeys) const;

    Media& theMedia;
    LmCvEditor& theEditor;
    ValueStore* theStore; // child
    ValueTree* theTree;   // these are children of the content
    ValueChart* theChart;
    QStackedWidget* thePages; // the chart, or a sentence in its place
    QLabel* theSentence;
    QWidget* theNotice; // tells that pictures have to be read
    QPushButton* theRead;
    QAction* theExportChecked;
    QAction* theExportAll;
    QTimer theRefresh;
    bool theSeen = false;
    bool theReading = false; // while the pictures are read, events are handled
};

#endif
