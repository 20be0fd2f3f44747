#ifndef ELIDEDLABEL_H
#define ELIDEDLABEL_H

#include <QLabel>

/// A line of text that ends in dots where there is no room for all of it, and asks for no room of its own.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* aParent);

protected:
    void paintEvent(QPaintEvent* aEvent) override;
};

#endif
