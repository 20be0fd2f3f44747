#ifndef OBJECTCOLOR_H
#define OBJECTCOLOR_H

#include <QObject>

class QAction;
class QColor;
class QWidget;

/// The colour that new objects have: chosen in a dialog, kept in the settings, shown in the icon of its
/// action.
class ObjectColor : public QObject
{
    Q_OBJECT

public:
    ObjectColor(QAction& aAction, QWidget& aWindow);

    void set(const QColor& aColor);

private:
    void ask();
    void showInIcon();

    QAction& theAction;
    QWidget& theWindow;
};

#endif
