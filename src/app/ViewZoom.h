#ifndef VIEWZOOM_H
#define VIEWZOOM_H

#include <QObject>

class LmCvEditor;

/// The zoom commands of the view. Once fitted, the picture stays fitted when the window changes its size,
/// until the user zooms in another way.
class ViewZoom : public QObject
{
    Q_OBJECT

public:
    ViewZoom(LmCvEditor& aEditor, QObject* aParent);

    bool isFitting() const { return theFitting; }

public Q_SLOTS:
    void fit();
    /// Fits the picture, which has another size now, where it was fitted before.
    void refit();
    void one();
    void in() { step(1); }
    void out() { step(-1); }

protected:
    bool eventFilter(QObject* aObject, QEvent* aEvent) override;

private:
    void step(int aSteps);
    void zoomChanged();

    LmCvEditor& theEditor;
    bool theFitting = false;
    bool theSelfChange = false; // the zoom is being changed by fit()
};

#endif
