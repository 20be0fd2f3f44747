#ifndef LOADPROGRESS_H
#define LOADPROGRESS_H

#include <QString>

#include <memory>

class QProgressDialog;
class QWidget;

/// The progress dialog of a load, which comes up for long ones only and where there is a
/// window.
class LoadProgress
{
public:
    /// Fewer than aLongFrom steps are done before a dialog could be read.
    LoadProgress(const QString& aText, QWidget* aParent, int aLongFrom);
    ~LoadProgress();

    /// Shows how far the load is; false when the user has stopped it.
    bool report(int aDone, int aCount);

private:
    QString theText;
    QWidget* theParent; // not owned; null without a window
    int theLongFrom;
    std::unique_ptr<QProgressDialog> theDialog;
};

#endif
