#ifndef WINDOWFIXTURE_H
#define WINDOWFIXTURE_H

#include "MainWindow.h"

#include <QEvent>
#include <QTemporaryDir>

class LmCvManipulator;
class LmKSKernelData;
class LmKernelObjectData;

/// A shown window with its own settings and, if wanted, a picture of 400 x 300 pixels, and hands that use it:
/// all mouse positions are canvas coordinates, and the events go to the editor's viewport.
class WindowFixture
{
public:
    enum Start { kEmpty, kPicture };

    explicit WindowFixture(Start aStart = kPicture);
    ~WindowFixture();

    MainWindow& window() { return *theWindow; }
    WindowActions& actions() { return theWindow->actions(); }
    Workbench& bench() { return theWindow->workbench(); }
    LmCvEditor& editor() { return bench().editor(); }
    QUndoStack& stack() { return bench().undoStack(); }
    LmKSKernelData& kernel();
    /// A path in the fixture's own folder.
    QString path(const QString& aName) const { return theFolder.filePath(aName); }
    QString picturePath() const { return path(QStringLiteral("picture.png")); }
    /// Writes a picture of this many pages and opens it.
    void openPages(int aCount);
    /// Ends the window and starts another with the same settings.
    void restart();

    void press(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    void release(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    /// Moves with or without the left button held, whichever it is.
    void move(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    void click(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    void drag(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    void key(Qt::Key aKey, Qt::KeyboardModifiers aModifiers = Qt::NoModifier);
    /// Right click; the menu that opens, or null.
    QMenu* contextMenu(const QPoint& aCanvasPoint);
    /// Chooses the entry of the open menu (or of one of its submenus) whose text without "&" is this.
    bool choose(QMenu& aMenu, const QString& aText);
    static QAction* find(const QMenu& aMenu, const QString& aText);

    LmCvManipulator* distanceTool();
    void pickDistance();
    void pickArrow();
    /// Draws a distance with the tool and takes the arrow; its index.
    int draw(const QPoint& aFrom, const QPoint& aTo);
    const LmKernelObjectData* distance(int aIdx);
    int distanceCount();
    QVariant value(int aIdx, const QString& aParam);

private:
    void startWindow();
    void activate();
    void send(QEvent::Type aType, const QPoint& aCanvasPoint, Qt::MouseButton aButton,
              Qt::KeyboardModifiers aModifiers);

    QTemporaryDir theFolder;
    std::unique_ptr<MainWindow> theWindow;
    Qt::MouseButtons theButtons;
};

#endif
