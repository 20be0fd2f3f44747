#ifndef GESTURETOOL_H
#define GESTURETOOL_H

#include "LmCvManipulator.h"

#include <QPointer>

class Q3CanvasItem;

/// A tool of the window itself: it makes no objects and has no button among the measuring tools. It takes the
/// place of the current tool for one gesture on the picture and gives it back.
class GestureTool : public LmCvManipulator
{
    Q_OBJECT

public:
    GestureTool(LmCvEditor& aEditor, QObject* aParent);
    ~GestureTool() override;

    /// Becomes the current tool and waits for its gesture.
    void start();
    /// Takes away what it shows and gives the former tool back.
    void finish();
    virtual bool isRunning() const = 0;

    /// Ends whatever the mouse is doing on the canvas; the current tool stays the current one.
    static void interrupt(LmCvEditor& aEditor);

protected:
    /// Waits for the gesture from its beginning.
    virtual void begin() = 0;
    /// Takes away what the gesture shows; isRunning() is false afterwards.
    virtual void end() = 0;
    /// Takes an item that showed the gesture from the canvas, and the mouse from this tool; null is nothing.
    void takeAway(Q3CanvasItem* aItem);

private:
    void toolChanged(const LmCvManipulator* aTool);

    QPointer<LmCvManipulator> theFormerTool;
    QPointer<QToolButton> theFormerButton;
};

#endif
