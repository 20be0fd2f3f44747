#include "ModalAnswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QtTest>

namespace {

constexpr int kInterval = 5; // milliseconds between two looks for a dialog
// An answer may take effect a few turns later, as a click on a default button does.
constexpr int kTurnsToClose = 400;

QString& lastTextStore()
{
    static QString text;
    return text;
}

QMessageBox* messageBox(QWidget* aDialog)
{
    auto* box = qobject_cast<QMessageBox*>(aDialog);
    if (!box)
        QTest::qFail("the dialog is no message box", __FILE__, __LINE__);
    else
        lastTextStore() = box->text();
    return box;
}

} // namespace

ModalAnswer::ModalAnswer(const QList<Answer>& aAnswers) : theAnswers(aAnswers)
{
    lastTextStore().clear();
    connect(&theTimer, &QTimer::timeout, this, &ModalAnswer::look);
    theTimer.start(kInterval);
}

ModalAnswer::~ModalAnswer()
{
    if (!theAnswers.isEmpty())
        fail(QStringLiteral("%1 expected dialogs did not come").arg(theAnswers.size()));
}

bool ModalAnswer::wait(int aMilliseconds)
{
    return QTest::qWaitFor([this] { return isDone() && !QApplication::activeModalWidget(); }, aMilliseconds);
}

void ModalAnswer::look()
{
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog || !dialog->isVisible())
        return;
    if (theAnswered.contains(dialog))
        closeLate(dialog);
    else
        give(dialog);
}

void ModalAnswer::give(QWidget* aDialog)
{
    theAnswered.append(aDialog);
    theTurnsOpen = 0;
    if (theAnswers.isEmpty()) {
        const auto* box = qobject_cast<QMessageBox*>(aDialog);
        fail(QStringLiteral("unexpected dialog \"%1\" %2")
                 .arg(aDialog->windowTitle(), box ? box->text() : QString()));
        aDialog->close();
        return;
    }
    // Outside the timer's turn: a timer stands still while its own slot runs, and the answer may open a
    // dialog.
    const Answer answer = theAnswers.takeFirst();
    QMetaObject::invokeMethod(
        aDialog, [answer, aDialog] { answer(aDialog); }, Qt::QueuedConnection);
}

void ModalAnswer::closeLate(QWidget* aDialog)
{
    if (++theTurnsOpen < kTurnsToClose)
        return;
    fail(QStringLiteral("the answer left the dialog \"%1\" open").arg(aDialog->windowTitle()));
    aDialog->close();
}

void ModalAnswer::fail(const QString& aReason) const
{
    QTest::qFail(qPrintable(aReason), __FILE__, __LINE__);
}

ModalAnswer::Answer ModalAnswer::press(QMessageBox::StandardButton aButton)
{
    return [aButton](QWidget* aDialog) {
        QMessageBox* box = messageBox(aDialog);
        QAbstractButton* button = box ? box->button(aButton) : nullptr;
        if (button)
            QTest::mouseClick(button, Qt::LeftButton);
        else
            aDialog->close();
    };
}

ModalAnswer::Answer ModalAnswer::press(const QString& aButtonText)
{
    return [aButtonText](QWidget* aDialog) {
        const QMessageBox* box = messageBox(aDialog);
        const QList<QAbstractButton*> buttons = box ? box->buttons() : QList<QAbstractButton*>();
        for (QAbstractButton* button : buttons)
            if (button->text().remove(QLatin1Char('&')) == aButtonText) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        QTest::qFail("the message box has no such button", __FILE__, __LINE__);
        aDialog->close();
    };
}

ModalAnswer::Answer ModalAnswer::chooseFile(const QString& aPath)
{
    return [aPath](QWidget* aDialog) {
        auto* dialog = qobject_cast<QFileDialog*>(aDialog);
        auto* name = aDialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (!dialog || !name) {
            QTest::qFail("the dialog is no file dialog", __FILE__, __LINE__);
            aDialog->close();
            return;
        }
        name->setText(aPath);
        QTest::keyClick(name, Qt::Key_Return);
    };
}

ModalAnswer::Answer ModalAnswer::cancel()
{
    return [](QWidget* aDialog) { QTest::keyClick(aDialog, Qt::Key_Escape); };
}

QString ModalAnswer::lastText()
{
    return lastTextStore();
}
