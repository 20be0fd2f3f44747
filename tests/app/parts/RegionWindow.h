#ifndef REGIONWINDOW_H
#define REGIONWINDOW_H

#include "WindowFixture.h"

#include <QList>
#include <QPolygon>
#include <QSize>
#include <QStringList>

class LmCvObject;
class QToolButton;

/// A window with the Region tool's pen and pencil, and hands that draw with them. Canvas and image
/// coordinates are the same here.
class RegionWindow : public WindowFixture
{
public:
    static constexpr int kType = 1103;

    using WindowFixture::WindowFixture;

    /// Opens a picture of this size.
    void openPicture(const QSize& aSize);

    LmCvManipulator* regionTool();
    QToolButton* penButton();
    QToolButton* pencilButton();
    void pickPen();
    void pickPencil();
    /// Sets the entries of the pencil's menu, which takes the pencil as well.
    void pickPencil(bool aSmooth, bool aAutoShape);
    /// Whether this button and no other is on, in the tool bar and in the menu; null for the arrow.
    bool isOnly(QToolButton* aButton);

    void clickAll(const QList<QPoint>& aPoints);
    /// Presses at the first point, moves over all and releases at the last.
    void stroke(const QList<QPoint>& aPoints);
    /// A closed outline of these corners with the pen, the arrow afterwards; its index.
    int drawClosed(const QList<QPoint>& aCorners);

    /// The records at the current frame; empty values where there is none.
    const LmKernelObjectData* region(int aIdx);
    int regionCount();
    QVariant regionValue(int aIdx, const QString& aParam);
    /// All points, the handles included.
    QPolygon points(int aIdx);
    QList<QPoint> anchors(int aIdx);
    bool isClosed(int aIdx);
    /// The item of the object, null without one.
    LmCvObject* item(int aIdx);
    /// How many nodes the item has, by selecting all of them.
    qsizetype itemNodeCount(int aIdx);

    /// What the status bar says to do next, and what it says has been done.
    QString hint();
    QString report();
    QStringList undoTexts();

private:
    QAction* pencilEntry(const QString& aText);
};

#endif
