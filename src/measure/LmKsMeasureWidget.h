#ifndef LMKSMEASUREWIDGET_H
#define LMKSMEASUREWIDGET_H

#include "ui_LmKsMeasureWidgetData.h"

#include <QWidget>

/// The contents of the measurement window: the object table, a table of statistics on a tab for each type of
/// object, and the export button.
class LmKsMeasureWidget : public QWidget, public Ui::LmKsMeasureWidgetData
{
    Q_OBJECT

public:
    LmKsMeasureWidget(QWidget* aParent, const char* aName, Qt::WindowFlags aFlags);
    ~LmKsMeasureWidget() override;

Q_SIGNALS:
    /// A menu is asked for in the object table. It concerns the current row, wherever the pointer is.
    void signalContextMenu(const QPoint& aGlobalPos, const int aRow);

protected:
    void contextMenuEvent(QContextMenuEvent* aEvent) override;
};

#endif
