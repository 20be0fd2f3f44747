#include "QtColorPickerPopup.h"

#include "ColorPickerItem.h"
#include "QtColorPickerButton.h"

#include <QColorDialog>
#include <QEventLoop>
#include <QGridLayout>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>

QtColorPickerPopup::QtColorPickerPopup(int aColumns, bool aWithDialog, QWidget* aParent)
    : QFrame(aParent, Qt::Popup), cols(aColumns)
{
    setFrameStyle(QFrame::StyledPanel);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    if (aWithDialog) {
        moreButton = new QtColorPickerButton(this);
        connect(moreButton, &QtColorPickerButton::clicked, this, &QtColorPickerPopup::getColorFromDialog);
    }
    regenerateGrid();
}

QtColorPickerPopup::~QtColorPickerPopup() = default;

ColorPickerItem* QtColorPickerPopup::find(const QColor& aColor) const
{
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const ColorPickerItem* aItem) { return aItem->color() == aColor; });
    return found == items.end() ? nullptr : *found;
}

void QtColorPickerPopup::insertColor(const QColor& aColor, const QString& aText, int aIndex)
{
    ColorPickerItem* former = find(lastSel);
    if (ColorPickerItem* existing = find(aColor)) {
        if (former && former != existing)
            former->setSelected(false);
        existing->setFocus();
        existing->setSelected(true);
        return;
    }
    auto* item = new ColorPickerItem(aColor, aText, this);
    if (former) {
        former->setSelected(false);
    } else {
        item->setSelected(true);
        lastSel = aColor;
    }
    item->setFocus();
    connect(item, &ColorPickerItem::selected, this, &QtColorPickerPopup::updateSelected);
    items.insert(aIndex < 0 ? items.size() : std::min(qsizetype(aIndex), items.size()), item);
    regenerateGrid();
    update();
}

void QtColorPickerPopup::regenerateGrid()
{
    widgetAt.clear();
    delete grid;
    grid = new QGridLayout(this);
    grid->setContentsMargins(1, 1, 1, 1);
    grid->setSpacing(0);
    QList<QWidget*> cells(items.begin(), items.end());
    if (moreButton)
        cells.append(moreButton);
    const int columns = cols == -1 ? int(std::ceil(std::sqrt(double(items.size())))) : cols;
    for (int i = 0; i < cells.size(); ++i) {
        const Cell cell{i / std::max(columns, 1), i % std::max(columns, 1)};
        widgetAt[cell.theRow][cell.theColumn] = cells[i];
        grid->addWidget(cells[i], cell.theRow, cell.theColumn);
    }
}

void QtColorPickerPopup::exec()
{
    show();
    QEventLoop loop;
    eventLoop = &loop;
    loop.exec();
    eventLoop = nullptr;
}

/// The first by columns and then by rows.
ColorPickerItem* QtColorPickerPopup::firstSelected() const
{
    for (int column = 0; isFilled(0, column); ++column)
        for (int row = 0; isFilled(row, column); ++row) {
            auto* item = qobject_cast<ColorPickerItem*>(widgetAt.value(row).value(column));
            if (item && item->isSelected())
                return item;
        }
    return nullptr;
}

void QtColorPickerPopup::showEvent(QShowEvent* aEvent)
{
    QFrame::showEvent(aEvent);
    if (ColorPickerItem* chosen = firstSelected())
        chosen->setFocus();
    else if (!items.isEmpty())
        widgetAt[0][0]->setFocus();
    else
        setFocus();
}

void QtColorPickerPopup::hideEvent(QHideEvent* aEvent)
{
    QFrame::hideEvent(aEvent);
    if (theAsking)
        return;
    if (eventLoop)
        eventLoop->exit();
    setFocus();
    Q_EMIT hid();
}

void QtColorPickerPopup::mouseReleaseEvent(QMouseEvent* aEvent)
{
    if (!rect().contains(aEvent->pos()))
        hide();
}

QtColorPickerPopup::Cell QtColorPickerPopup::focusCell() const
{
    for (auto row = widgetAt.cbegin(); row != widgetAt.cend(); ++row)
        for (auto cell = row->cbegin(); cell != row->cend(); ++cell)
            if ((*cell)->hasFocus())
                return {row.key(), cell.key()};
    return {};
}

bool QtColorPickerPopup::isFilled(int aRow, int aColumn) const
{
    return widgetAt.value(aRow).contains(aColumn);
}

/// Moves a cell as an arrow key does; false for another key.
bool QtColorPickerPopup::moved(Cell& aCell, int aKey) const
{
    auto& [row, column] = aCell;
    switch (aKey) {
    case Qt::Key_Left:
        if (column > 0)
            --column;
        else if (row > 0)
            column = widgetAt.value(--row).lastKey();
        return true;
    case Qt::Key_Right:
        if (isFilled(row, column + 1))
            ++column;
        else if (isFilled(row + 1, 0))
            aCell = {row + 1, 0};
        return true;
    case Qt::Key_Up:
        if (row > 0)
            --row;
        else
            column = 0;
        return true;
    case Qt::Key_Down:
        if (isFilled(row + 1, 0))
            aCell = {row + 1, std::min(column, widgetAt.value(row + 1).lastKey())};
        return true;
    default:
        return false;
    }
}

void QtColorPickerPopup::keyPressEvent(QKeyEvent* aEvent)
{
    Cell cell = focusCell();
    if (moved(cell, aEvent->key())) {
        if (isFilled(cell.theRow, cell.theColumn))
            widgetAt[cell.theRow][cell.theColumn]->setFocus();
        return;
    }
    switch (aEvent->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto* item = qobject_cast<ColorPickerItem*>(widgetAt.value(cell.theRow).value(cell.theColumn)))
            choose(item);
        return;
    case Qt::Key_Escape:
        hide();
        return;
    default:
        aEvent->ignore();
    }
}

void QtColorPickerPopup::choose(ColorPickerItem* aItem)
{
    for (ColorPickerItem* item : qAsConst(items))
        item->setSelected(item == aItem);
    lastSel = aItem->color();
    Q_EMIT selected(lastSel);
    hide();
}

void QtColorPickerPopup::updateSelected()
{
    if (auto* item = qobject_cast<ColorPickerItem*>(sender()))
        choose(item);
}

// The popup stays open, so that the user sees the colour among the others. A dialog takes popups off the
// screen while it stands.
void QtColorPickerPopup::getColorFromDialog()
{
    theAsking = true;
    const QColor color =
        QColorDialog::getColor(lastSel, parentWidget(), QString(), QColorDialog::ShowAlphaChannel);
    show();
    theAsking = false;
    if (!color.isValid())
        return;
    // A colour that was chosen by hue and saturation would be another than its equal on the grid.
    const QColor chosen = QColor::fromRgba(color.rgba());
    insertColor(chosen, tr("Custom"), -1);
    lastSel = chosen;
    Q_EMIT selected(chosen);
}
