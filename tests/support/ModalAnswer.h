#ifndef MODALANSWER_H
#define MODALANSWER_H

#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <functional>

/// Answers the modal dialogs that come while it lives, one answer each, in the order in which they come. The
/// test fails if a dialog doesn't come, if one comes that nobody expects, or if an answer leaves its dialog
/// open.
///
///     ModalAnswer answer(ModalAnswer::press(QMessageBox::Discard));
///     window.close();
///     QVERIFY(answer.isDone());
class ModalAnswer : public QObject
{
    Q_OBJECT

public:
    using Answer = std::function<void(QWidget*)>;

    explicit ModalAnswer(const Answer& aAnswer) : ModalAnswer(QList<Answer>{aAnswer}) {}
    /// Several answers; with none the test fails if any dialog comes.
    explicit ModalAnswer(const QList<Answer>& aAnswers);
    ~ModalAnswer() override;

    /// Waits for dialogs that open from the event loop; true when all answers were given.
    bool wait(int aMilliseconds = 5000);
    bool isDone() const { return theAnswers.isEmpty(); }

    /// Presses a button of a message box by a click; the text of the box is then in lastText().
    static Answer press(QMessageBox::StandardButton aButton);
    /// Presses a message box's button by its text without "&".
    static Answer press(const QString& aButtonText);
    /// Chooses a file in a file dialog.
    static Answer chooseFile(const QString& aPath);
    /// Closes a dialog by Esc.
    static Answer cancel();
    /// The text of the message box that was answered last.
    static QString lastText();

private:
    void look();
    void give(QWidget* aDialog);
    void closeLate(QWidget* aDialog);
    void fail(const QString& aReason) const;

    QList<Answer> theAnswers;
    QList<QPointer<QWidget>> theAnswered; // have had their answers and have to close
    int theTurnsOpen = 0;
    QTimer theTimer;
};

#endif
