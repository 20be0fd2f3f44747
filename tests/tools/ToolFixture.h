#ifndef TOOLFIXTURE_H
#define TOOLFIXTURE_H

#include "LmCvEditor.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"

#include <QToolBar>
#include <QUndoStack>

/// What a tool lives in: the kernel with an image of 400 x 300 pixels that shows the region of interest from
/// (40, 30), an editor on screen at zoom 1, an undo stack and a tool bar. All shared state is as new before
/// and after.
class ToolFixture
{
public:
    ToolFixture();
    ToolFixture(const ToolFixture&) = delete;
    ToolFixture& operator=(const ToolFixture&) = delete;
    ~ToolFixture();

    /// Gives the tool the stack, the editor and a button, and makes it the current one.
    void start(LmCvManipulator& aTool);

    // Mouse events on the editor's viewport, at canvas points.
    void press(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = {});
    void move(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = {});
    void release(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = {});
    void drag(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aModifiers = {});
    void click(const QPoint& aCanvasPoint);
    void key(Qt::Key aKey);

    /// The whole image is aWidth units wide: the step is 400 / aWidth.
    void calibrate(double aWidth, const QString& aUnit);
    int itemCount() const { return int(theEditor.cvItems().size()); }
    /// A record's default value.
    QVariant stored(int aType, int aIdx, int aParam) const;

    LmKSKernelData& theKernel;
    LmImage theImage;
    QUndoStack theStack;
    QToolBar theToolBar;
    LmCvEditor theEditor;

protected:
    QPoint viewportPos(const QPoint& aCanvasPoint) const;

private:
    void resetSharedState();
};

#endif
