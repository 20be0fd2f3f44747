#ifndef PATIENTRUN_H
#define PATIENTRUN_H

#include <QPointer>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

class QProgressDialog;
class QWidget;

/// Work that a person may have to wait for: a busy cursor at first, and after a while a dialog that shows the
/// progress and can cancel.
class PatientRun
{
public:
    /// aPatience in milliseconds, until the dialog comes.
    PatientRun(const QString& aText, int aPatience, QWidget* aParent);
    ~PatientRun();

    /// Does the work in another thread and waits for its end; false when it was cancelled. It is then told so
    /// and left to end by itself, so it may hold only what it owns.
    bool inThread(const std::function<void(const std::atomic_bool& aCancelled)>& aWork);
    /// Between two pieces of work of this thread: shows how many of them are done; false when it was
    /// cancelled.
    bool goOn(int aDone, int aCount);

private:
    void showDialog(int aCount);
    bool isCancelled() const;

    class Watch;

    QString theText;
    int thePatience;
    QWidget* theParent;                  // not owned
    QPointer<QProgressDialog> theDialog; // from the time on when it is shown; the parent may take it along
    std::unique_ptr<Watch> theWatch;
};

#endif
