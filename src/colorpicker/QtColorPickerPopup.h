#ifndef QTCOLORPICKERPOPUP_H
#define QTCOLORPICKERPOPUP_H

#include <QColor>
#include <QFrame>
#include <QList>
#include <QMap>

class ColorPickerItem;
class QEventLoop;
class QGridLayout;
class QtColorPickerButton;

/// A popup with a grid of colours and, if asked for, a button for all others.
///
/// The first colour inserted is the chosen one until the user chooses another, so a popup that is closed
/// without a choice has that colour as its result.
class QtColorPickerPopup : public QFrame
{
    Q_OBJECT

public:
    /// aColumns -1 asks for a grid that is about square.
    QtColorPickerPopup(int aColumns, bool aWithDialog, QWidget* aParent);
    ~QtColorPickerPopup() override;

    /// A colour that is there already is only selected. An index of -1 appends.
    void insertColor(const QColor& aColor, const QString& aText, int aIndex);
    QColor lastSelected() const { return lastSel; }
    /// Shows the popup and returns when it is hidden.
    void exec();

    QMap<int, QMap<int, QWidget*>> widgetAt; // by row and column; owned by the widget tree
    QList<ColorPickerItem*> items;           // owned by the widget tree
    QGridLayout* grid = nullptr;
    QtColorPickerButton* moreButton = nullptr; // owned by the widget tree
    QEventLoop* eventLoop = nullptr;           // of exec, null outside of it
    int cols;
    QColor lastSel; // invalid before the first colour

Q_SIGNALS:
    void selected(const QColor& aColor);
    void hid();

protected:
    void keyPressEvent(QKeyEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void showEvent(QShowEvent* aEvent) override;
    void hideEvent(QHideEvent* aEvent) override;

private:
    struct Cell
    {
        int theRow = 0;
        int theColumn = 0;
    };

    ColorPickerItem* find(const QColor& aColor) const;
    ColorPickerItem* firstSelected() const;
    void regenerateGrid();
    Cell focusCell() const;
    bool isFilled(int aRow, int aColumn) const;
    bool moved(Cell& aCell, int aKey) const;
    void choose(ColorPickerItem* aItem);
    void updateSelected();
    void getColorFromDialog();

    bool theAsking = false; // the dialog of all colours stands
};

#endif
