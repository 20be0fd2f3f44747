#ifndef AUTOCREATEFIXTURE_H
#define AUTOCREATEFIXTURE_H

#include "LmCVSequence.h"
#include "LmCvManipAutoCreate.h"
#include "RegionFixture.h"

#include <functional>

/// A tool that takes part in automatic creation and only notes what it is given.
class MakerTool : public LmCvManipulator
{
    Q_OBJECT

public:
    static constexpr int kType = 1950;

    explicit MakerTool(const QStringList& aNames = {"Thing", "Blob"});

    void initManipulator(QToolBar* aToolBar) override;
    int getCvObjectFlags(LmCvObject*) override { return 256; }
    QStringList getObjectTypeNames() override { return theNames; }
    QIcon& getAutoCreationIconSet(const QString& aType) override { return theIcons[aType]; }
    int createObjectFromContour(const LmCVSequence& aContour, QString aName) override;
    void modifyObjectFromContour(const LmCVSequence& aContour, int aIdx) override;

    QStringList theNames;
    QMap<QString, QIcon> theIcons; // empty ones at first
    QList<QRect> theCreated;       // the outlines' bounding rectangles, canvas
    QStringList theCreatedNames;
    QList<int> theModified;
    std::function<void()> theOnCreate;
};

/// The automatic creation beside the Region tool and a MakerTool, loaded and current, on a black picture.
class AutoCreateFixture : public RegionFixture
{
public:
    AutoCreateFixture();
    ~AutoCreateFixture();

    /// Colours pixels; image coordinates.
    void paint(const QRect& aRect, int aRed, int aGreen, int aBlue);
    void choose(const QString& aTypeName);
    void chooseGroup() { theAuto.slotMenuItemActivated(1); }
    /// The menu's entry, null for an unknown text.
    QAction* entry(const QString& aText) const;
    static QRect onCanvas(const QRect& aImageRect) { return aImageRect.translated(-40, -30); }
    static QIcon pictureIcon(int aNumber);

    MakerTool theMaker;
    LmCvManipAutoCreate theAuto{nullptr};
};

#endif
