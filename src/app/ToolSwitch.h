#ifndef TOOLSWITCH_H
#define TOOLSWITCH_H

#include <QList>
#include <QObject>
#include <QString>

class LmCvEditor;
class LmCvManipulator;
class QAction;
class QMenu;
class QToolButton;

/// Which tool is in the hand: keeps the tools' buttons, their menu entries and the selection arrow in step
/// with the editor, and remembers for each tool which value a new object of it shows.
class ToolSwitch : public QObject
{
    Q_OBJECT

public:
    ToolSwitch(LmCvEditor& aEditor, QAction& aArrow, QObject* aParent);

    /// Takes each button of the tools into the menu, with the keys 1 to 9, and a button's own menu as well.
    void addTools(const QList<LmCvManipulator*>& aTools, QMenu& aMenu);
    /// Without a picture there is nothing to measure.
    void setToolsEnabled(bool aOn);

    /// The value that a new object of the tool shows: the one chosen last, at first the tool's first value.
    QString valueName(const LmCvManipulator* aTool) const;
    void setValueName(const LmCvManipulator* aTool, const QString& aName);

private:
    struct Entry
    {
        LmCvManipulator* theTool; // not owned, lives as long as the window, its button too
        QToolButton* theButton;
        QAction* theAction;
    };

    void addButton(LmCvManipulator* aTool, QToolButton* aButton, QMenu& aMenu);
    QAction* makeAction(QToolButton* aButton, int aNumber);
    void choose(QToolButton* aButton, bool aOn);
    void show(LmCvManipulator* aTool);

    LmCvEditor& theEditor;
    QAction& theArrow;
    QList<Entry> theEntries;
};

#endif
