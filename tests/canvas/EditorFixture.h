#ifndef EDITORFIXTURE_H
#define EDITORFIXTURE_H

#include "LmCvEditor.h"
#include "LmCvSelection.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "ProbeItem.h"
#include "ProbeTool.h"

#include <QToolBar>
#include <QUndoStack>

/// An editor of 400 by 300 pixels that shows a picture of just that size at zoom 1, with two tools of which
/// none is active, their buttons and an undo stack. Mouse positions are given in canvas coordinates.
///
/// The kernel lives as long as the process; everything put into it goes with the fixture.
struct EditorFixture
{
    static constexpr QPoint kEmpty{300, 200}; // no item of the tests stands here

    EditorFixture();
    ~EditorFixture();

    QPoint toViewport(const QPoint& aCanvasPoint) const;
    void press(const QPoint& aCanvasPoint, Qt::MouseButton aButton = Qt::LeftButton,
               Qt::KeyboardModifiers aKeys = Qt::NoModifier);
    void move(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aKeys = Qt::NoModifier);
    void release(const QPoint& aCanvasPoint, Qt::MouseButton aButton = Qt::LeftButton,
                 Qt::KeyboardModifiers aKeys = Qt::NoModifier);
    void click(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aKeys = Qt::NoModifier);
    void drag(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aKeys = Qt::NoModifier);
    void wheel(int aAngle, const QPoint& aViewportPos);
    /// Whether the event was taken.
    bool contextMenu(const QPoint& aCanvasPoint);

    LmImage theImage;
    QUndoStack theStack; // before the tools and the editor, which know it
    QToolBar theBar;
    LmCvEditor theEditor;
    ProbeTool theTool;
    ProbeTool theOtherTool;
};

#endif
