#ifndef WORKPROGRESS_H
#define WORKPROGRESS_H

#include <QElapsedTimer>
#include <QString>

#include <memory>

class QProgressDialog;
class QWidget;

/// The progress dialog of work in pieces, which comes up once the work takes longer than a moment, and where
/// there is a window.
class WorkProgress
{
public:
    /// aParent may be null.
    WorkProgress(const QString& aText, QWidget* aParent);
    ~WorkProgress();

    /// Between two pieces: shows how much is done; false when the user has stopped it.
    bool report(qint64 aDone, qint64 aCount);

private:
    QString theText;
    QWidget* theParent; // not owned
    QElapsedTimer theSinceStart;
    QElapsedTimer theSinceLook;
    std::unique_ptr<QProgressDialog> theDialog;
};

#endif
