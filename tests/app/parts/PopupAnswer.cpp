#include "PopupAnswer.h"

#include <QApplication>
#include <QMenu>
#include <QtTest>

namespace {

constexpr int kInterval = 5;       // milliseconds between two looks for a popup
constexpr int kTurnsToClose = 400; // an answer may take effect a few turns later

void fail(const QString& aReason)
{
    QTest::qFail(qPrintable(aReason), __FILE__, __LINE__);
}

QAction* entry(QWidget* aPopup, const QString& aText)
{
    if (qobject_cast<QMenu*>(aPopup))
        for (QAction* action : aPopup->actions())
            if (action->text() == aText)
                return action;
    fail(QStringLiteral("there is no entry ") + aText);
    aPopup->close();
    return nullptr;
}

} // namespace

PopupAnswer::PopupAnswer(const QList<Answer>& aAnswers) : theAnswers(aAnswers)
{
    connect(&theTimer, &QTimer::timeout, this, &PopupAnswer::look);
    theTimer.start(kInterval);
}

void PopupAnswer::look()
{
    QWidget* popup = QApplication::activePopupWidget();
    if (!popup || !popup->isVisible())
        return;
    if (popup == theAnswered) {
        if (++theTurnsOpen < kTurnsToClose)
            return;
        fail(QStringLiteral("the answer left a popup open"));
        popup->close();
        return;
    }
    theAnswered = popup;
    theTurnsOpen = 0;
    if (theAnswers.isEmpty()) {
        fail(QStringLiteral("a popup came that nobody expects"));
        popup->close();
        return;
    }
    // Outside the timer's turn: a timer stands still while its own slot runs, and the answer may open a
    // popup.
    const Answer answer = theAnswers.takeFirst();
    QMetaObject::invokeMethod(
        popup, [answer, popup] { answer(popup); }, Qt::QueuedConnection);
}

PopupAnswer::Answer PopupAnswer::note(QStringList& aEntries)
{
    return [&aEntries](QWidget* aPopup) {
        const QList<QAction*> actions = aPopup->actions();
        for (const QAction* action : actions)
            aEntries << (action->isSeparator() ? QStringLiteral("---") : action->text());
        QTest::keyClick(aPopup, Qt::Key_Escape);
    };
}

PopupAnswer::Answer PopupAnswer::click(const QString& aText)
{
    return [aText](QWidget* aPopup) {
        if (QAction* action = entry(aPopup, aText)) {
            const QPoint place = static_cast<QMenu*>(aPopup)->actionGeometry(action).center();
            QTest::mouseMove(aPopup, place);
            QTest::mouseClick(aPopup, Qt::LeftButton, {}, place);
        }
    };
}

PopupAnswer::Answer PopupAnswer::choose(const QString& aText)
{
    return [aText](QWidget* aPopup) {
        const QAction* wanted = entry(aPopup, aText);
        if (!wanted)
            return;
        auto* menu = static_cast<QMenu*>(aPopup);
        for (qsizetype i = 0; i < menu->actions().size() && menu->activeAction() != wanted; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    };
}

PopupAnswer::Answer PopupAnswer::clickColor(const QString& aName)
{
    return [aName](QWidget* aPopup) {
        const QList<QWidget*> cells = aPopup->findChildren<QWidget*>();
        for (QWidget* cell : cells)
            if (cell->toolTip() == aName) {
                QTest::mouseClick(cell, Qt::LeftButton);
                return;
            }
        fail(QStringLiteral("there is no color ") + aName);
        aPopup->close();
    };
}

PopupAnswer::Answer PopupAnswer::escape()
{
    return [](QWidget* aPopup) { QTest::keyClick(aPopup, Qt::Key_Escape); };
}
