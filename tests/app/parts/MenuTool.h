#ifndef MENUTOOL_H
#define MENUTOOL_H

#include "ProbeTool.h"

class WindowFixture;

/// A measuring tool in the window of the program, with the flags and custom actions that a test wants. It
/// notes what its menu asks of it.
class MenuTool : public ProbeTool
{
    Q_OBJECT

public:
    explicit MenuTool(WindowFixture& aFixture, int aFlags);
    ~MenuTool() override;

    int getCvObjectFlags(LmCvObject* aObject) override;
    using ProbeTool::getObjectName;
    QString getObjectName(const LmCvObject*) override { return QStringLiteral("Probe"); }
    QLinkedList<QPair<QString, int>> getCustomActions() override { return theActions; }
    void editCvObject(LmCvObject* aObject, QPoint aPoint) override;
    void actionOnCvObject(LmCvObject* aObject, QPoint aPoint, int aAction) override;

    QStringList theCalls; // such as "edit 1 at 10,20" and "action 3 on 1 at 10,20"
    QLinkedList<QPair<QString, int>> theActions;

private:
    static QString place(const QPoint& aPoint);

    WindowFixture& theFixture;
    int theFlags;
};

#endif
