#include "Messages.h"

#include <QCoreApplication>
#include <QMessageBox>

void tellError(QWidget* aWindow, const QString& aSentence)
{
    QMessageBox box(QMessageBox::Warning, QCoreApplication::translate("Messages", "MeasureTools"), aSentence,
                    QMessageBox::Ok, aWindow);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void tellAbout(QWidget* aWindow)
{
    const QString text = QCoreApplication::translate(
        "Messages", "<h3>MeasureTools %1</h3><p>Measuring on images and video.</p>");
    QMessageBox::about(aWindow, QCoreApplication::translate("Messages", "About MeasureTools"),
                       text.arg(QCoreApplication::applicationVersion()));
}
