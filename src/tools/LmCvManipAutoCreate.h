#ifndef LMCVMANIPAUTOCREATE_H
#define LMCVMANIPAUTOCREATE_H

#include "LmCvManipulator.h"

class LmCVSequence;
class LmImage;
class PatientRun;
class Q3CanvasItem;
class Q3CanvasRectangle;
class QMenu;

/// Finds things in the picture and has the tool that is chosen in its menu make objects of their outlines. A
/// click or a short drag over a thing finds that one, a rubber rectangle in group mode all within it.
///
/// It has no objects of its own. What it can make is known once all tools are loaded.
class LmCvManipAutoCreate : public LmCvManipulator
{
    Q_OBJECT

public:
    explicit LmCvManipAutoCreate(QObject* aParent);
    LmCvManipAutoCreate(QToolBar* aToolBar, QObject* aParent);
    ~LmCvManipAutoCreate() override;

    void initManipulator(QToolBar* aToolBar) override;
    QIcon& getIconSet(const QString& aType) override;
    void setCvEditor(LmCvEditor* aEditor) override;
    void mousePressEvent(QMouseEvent* aEvent) override;
    void mouseReleaseEvent(QMouseEvent* aEvent) override;
    void mouseMoveEvent(QMouseEvent* aEvent) override;
    const QCursor& getCursor() const override;
    LmCvManipulator* objectTool() override;
    bool abortAction() override;
    QString hint() const override;

    // The rubber rectangle; owned by the canvas until it is deleted here, cleared when it goes.
    Q3CanvasRectangle* theOuterRubber = nullptr; // black
    Q3CanvasRectangle* theInnerRubber = nullptr; // white dashes over it, so that it shows on any ground
    QCursor theSpareCursor;                      // shown by nobody
    QCursor theSingleCursor;
    QCursor theGroupCursor;
    QPoint thePressPos; // canvas
    QString theCurrentTypeName;
    QIcon theEllipseIcon;
    QIcon theOtherIcon;
    bool theGroupMode = false;
    QMap<int, QString> theIdToName;   // menu entry to object type
    QMap<QString, int> theNameToType; // object type to theObjectType of its tool
    QMenu* theMenu = nullptr;         // owned by the tool button, by the tool where there is none
    // Red, green and blue: what the mouse has passed over since the press, and the pressed pixel.
    unsigned char theMinColour[3] = {0, 0, 0};
    unsigned char theMaxColour[3] = {0, 0, 0};
    unsigned char theSeedColour[3] = {0, 0, 0};
    int thePatience = 1000; // ms after which a search shows its progress and can be cancelled

public Q_SLOTS:
    void slotManipulatorsLoaded();
    void slotMenuItemActivated(int aId);
    /// There are no objects of its own that could change.
    void slotCanvasObjectChanged(LmCvObject* aObject);

private:
    void fillMenu();
    void dressButton(const QIcon& aIcon);
    void forgetRubber(const Q3CanvasItem* aItem);
    const LmImage* picture() const; // null without pixels
    bool readColour(const QPoint& aCanvasPoint, unsigned char* aColour) const;
    void widenColours(const QPoint& aCanvasPoint);
    void stretchRubber(const QPoint& aCanvasPoint);
    Q3CanvasRectangle* newRubber(const QRect& aRect, const QColor& aColour, Qt::PenStyle aStyle, double aZ);
    bool dropRubber();
    bool findOne(LmCvManipulator& aTool, const QMouseEvent& aEvent);
    bool modifiedObject(const LmCvManipulator& aTool, int& aIdx) const;
    void findAll(const LmImage& aImage);
    bool searchContours(const LmImage& aImage, const QRect& aArea, PatientRun& aRun,
                        QLinkedList<LmCVSequence>& aContours);
    void createAll(const QLinkedList<LmCVSequence>& aContours, PatientRun& aRun);
    void reportFound(int aCount);
};

#endif
