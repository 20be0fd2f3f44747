#ifndef QTCOLORPICKERBUTTON_H
#define QTCOLORPICKERBUTTON_H

#include <QFrame>

/// The button of the popup that opens the dialog of all colours. It is painted pressed while it is sunken.
class QtColorPickerButton : public QFrame
{
    Q_OBJECT

public:
    explicit QtColorPickerButton(QWidget* aParent);
    ~QtColorPickerButton() override;

Q_SIGNALS:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void keyPressEvent(QKeyEvent* aEvent) override;
    void keyReleaseEvent(QKeyEvent* aEvent) override;
    void focusInEvent(QFocusEvent* aEvent) override;
    void focusOutEvent(QFocusEvent* aEvent) override;
    void paintEvent(QPaintEvent* aEvent) override;

private:
    void setPressed(bool aOn);
    void click();
};

#endif
