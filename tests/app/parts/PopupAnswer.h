#ifndef POPUPANSWER_H
#define POPUPANSWER_H

#include <QList>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>

class QMenu;

/// Uses the popups (menus, the grid of colours) that come while it lives and wait for the user, one answer
/// each, in the order in which they come. The test fails if one comes that nobody expects, or if an answer
/// leaves it open. It looks from a timer, so that the popup is used while its opener waits.
class PopupAnswer : public QObject
{
    Q_OBJECT

public:
    using Answer = std::function<void(QWidget*)>;

    explicit PopupAnswer(const QList<Answer>& aAnswers = {});

    /// Whether all answers were given.
    bool isDone() const { return theAnswers.isEmpty(); }

    /// Notes the entries of a menu, a separator as "---", and closes it by Esc.
    static Answer note(QStringList& aEntries);
    /// Clicks an entry of a menu.
    static Answer click(const QString& aText);
    /// Goes to an entry of a menu with the arrow keys and presses Return.
    static Answer choose(const QString& aText);
    /// Clicks the colour of this name.
    static Answer clickColor(const QString& aName);
    static Answer escape();

private:
    void look();

    QList<Answer> theAnswers;
    QPointer<QWidget> theAnswered;
    int theTurnsOpen = 0;
    QTimer theTimer;
};

#endif
