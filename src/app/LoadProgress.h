#ifndef LOADPROGRESS_H
#define LOADPROGRESS_H

#include <QString>

#include <memory>

class QProgressDialog;
class QWidget;

/// The progress dialog of a load, which comes up for long ones only and where there is a window.
class LoadProgress
{
public:
    LoadProgress(const QString& aText, QWidget* aParent);
    ~LoadProgress();

    /// Shows how far the load is; false when the user has stopped it.
    bool report(int aDone, int aCount);

private:
    QString theText;
    QWidget* theParent; // not owned; null without a window
    std::unique_ptr<QProgressDialog> theDialog;
};

#endif
