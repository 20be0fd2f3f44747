#ifndef SAMPLECLIPS_H
#define SAMPLECLIPS_H

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <map>

/// One clip of every kind whose frames are known to be got wrong easily.
class SampleClips
{
public:
    struct Clip
    {
        QString thePath;
        int theCount = 0;        // of the frames that are shown
        int theFirst = 0;        // the number on the first of them
        bool theDecoded = false; // the container knows only when frames are decoded
    };

    /// False if one can't be written.
    bool write();
    QStringList names() const;
    const Clip& clip(const QString& aName) const { return theClips.at(aName); }

private:
    bool add(const QString& aName, const QString& aEnding, const struct ClipOptions& aOptions);
    bool addGroups();
    bool addStamps();
    bool addFields();

    QTemporaryDir theFolder;
    std::map<QString, Clip> theClips;
};

#endif
