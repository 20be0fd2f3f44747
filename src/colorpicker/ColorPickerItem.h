#ifndef COLORPICKERITEM_H
#define COLORPICKERITEM_H

#include <QColor>
#include <QFrame>

/// One colour of the popup.
class ColorPickerItem : public QFrame
{
    Q_OBJECT

public:
    /// The text is the swatch's tool tip and what a screen reader says.
    ColorPickerItem(const QColor& aColor, const QString& aText, QWidget* aParent);
    ~ColorPickerItem() override;

    QColor color() const { return theColor; }
    QString text() const { return theText; }
    bool isSelected() const { return theSelected; }
    void setSelected(bool aOn);

Q_SIGNALS:
    void selected();

protected:
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void paintEvent(QPaintEvent* aEvent) override;

private:
    QColor theColor;
    QString theText;
    bool theSelected = false;
};

#endif
