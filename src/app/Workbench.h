#ifndef WORKBENCH_H
#define WORKBENCH_H

#include <QList>
#include <QObject>
#include <QUndoStack>

#include <memory>

class Document;
class LmCvEditor;
class LmCvManipulator;
class Media;
class QMainWindow;
class QToolBar;

/// Editor, undo stack, tools and document wired together: what the window and the program without a window
/// share. One workbench exists at a time, since the kernel is one; it leaves the kernel empty behind.
class Workbench : public QObject
{
    Q_OBJECT

public:
    explicit Workbench(QObject* aParent = nullptr);
    ~Workbench() override;

    /// Loads the plug-in and starts its tools, whose buttons go into the tool bar. False with one sentence in
    /// aError when the plug-in is missing or doesn't fit; the workbench then goes on without tools. Docks of
    /// tools go into the tool bar's window. What is missing of both is there unseen.
    bool loadTools(QToolBar* aToolBar, QString& aError);
    const QList<LmCvManipulator*>& tools() const { return theTools; }

    LmCvEditor& editor() { return *theEditor; }
    QUndoStack& undoStack() { return theUndoStack; }
    Media& media() { return *theMedia; }
    Document& document() { return *theDocument; }

private:
    QUndoStack theUndoStack;
    LmCvEditor*
        theEditor; // owned, also when a window has taken it as a child widget; null once that deletes it
    std::unique_ptr<QMainWindow> theHiddenWindow; // with a tool bar
    std::unique_ptr<Media> theMedia;
    std::unique_ptr<Document> theDocument;
    QList<LmCvManipulator*> theTools; // owned
};

#endif
