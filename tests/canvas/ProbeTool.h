#ifndef PROBETOOL_H
#define PROBETOOL_H

#include "LmCvManipulator.h"

#include <QMouseEvent>

class ProbeItem;

/// A tool for ProbeItems with a record of "vis", "col", "dispv" and "pos". It notes the events that reach it
/// as text, such as "press 10,20".
class ProbeTool : public LmCvManipulator
{
    Q_OBJECT

public:
    enum Param { kVisible, kColor, kShownValue, kPos };
    static constexpr int kType = 1900;

    explicit ProbeTool(QObject* aParent = nullptr, int aType = kType);

    /// Registers type and descriptor and connects the kernel.
    void initManipulator(QToolBar* aToolBar) override;
    void setCvEditor(LmCvEditor* aEditor) override;
    using LmCvManipulator::getObjectName;
    QString getObjectName(int) override { return QStringLiteral("Probe"); }
    QVariant getValue(const QString& aName, const LmCvObject* aObject, QString& aUnit) override;
    using LmCvManipulator::getValues;
    QLinkedList<QVariant> getValues(const QStringList& aNames, const LmKernelObjectData* aData,
                                    QStringList& aUnits) override;
    void mousePressEvent(QMouseEvent* aEvent) override { note("press", aEvent, theAcceptsPress); }
    void mouseReleaseEvent(QMouseEvent* aEvent) override { note("release", aEvent, true); }
    void mouseMoveEvent(QMouseEvent* aEvent) override { note("move", aEvent, true); }
    void mouseDoubleClickEvent(QMouseEvent* aEvent) override
    {
        note("double", aEvent, theAcceptsDoubleClick);
    }
    void mouseLeaveEvent(QEvent*) override { theEvents << QStringLiteral("leave"); }
    void keyPressEvent(QKeyEvent* aEvent) override;
    void keyReleaseEvent(QKeyEvent* aEvent) override;
    bool claimsPress(QMouseEvent* aEvent, LmCvObject* aHit) override;
    bool abortAction() override;

    /// Creates an object with its upper left corner at the canvas point, through an own command.
    ProbeItem* create(const QPoint& aCorner);
    ProbeItem* item(int aIdx) const;
    LmKernelObjectData* record(int aIdx) const;
    QPoint recordedPos(int aIdx) const;

    /// How an event is noted.
    static QString noted(const char* aWhat, const QPoint& aPoint);

    using LmCvManipulator::connectKernel;
    using LmCvManipulator::makeItemCurrent;
    using LmCvManipulator::prepareItem;
    using LmCvManipulator::pushOwn;

    QStringList theEvents;
    QStringList theSlotCalls; // of the slots that only this class declares
    Qt::MouseButtons theLastButtons;
    Qt::MouseButton theLastButton = Qt::NoButton;
    bool theAcceptsPress = true;
    bool theAcceptsDoubleClick = false;
    bool theClaims = false;
    bool theHasAction = false;
    int theAborts = 0;
    int theClaimQuestions = 0;
    LmCvObject* theClaimedHit = nullptr;

public Q_SLOTS:
    void slotCanvasObjectChanged(LmCvObject* aObject);
    void slotCurrentResChangedByCameraInKernel(QSize aOldSize, QSize aNewSize);
    void slotObjectCreatedInKernel(int aType, int aIdx, const LmKernelObjectData* aData);
    void slotObjectChangedInKernel(int aType, int aIdx, const LmKernelObjectData* aData);
    void slotFrameReadyStopInKernel(Int64 aFrame);

private:
    void note(const char* aWhat, QMouseEvent* aEvent, bool aAccept);
    ProbeItem* newItem(int aIdx);
    static QPoint posOf(const LmKernelObjectData* aData);
};

#endif
