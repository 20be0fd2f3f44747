#include "ProjectReader.h"

#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "PictureFile.h"
#include "ProjectNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>
#include <climits>
#include <cmath>
#include <memory>
#include <vector>

using namespace ProjectNames;

namespace {

// Our files are five deep; a tree of a million levels would exhaust the stack when it is freed.
constexpr int kMaxDepth = 32;
// Objects between two reports of the progress.
constexpr int kProgressStep = 100;

/// A whole number within bounds.
bool intAttribute(const QDomElement& aElement, const char* aName, int aLeast, int aMost, int& aValue)
{
    bool isNumber = false;
    const int value = aElement.attribute(QLatin1String(aName)).toInt(&isNumber);
    if (!isNumber || value < aLeast || value > aMost)
        return false;
    aValue = value;
    return true;
}

} // namespace

ProjectReader::ProjectReader(const QString& aPath, ProjectContent& aContent,
                             const ProjectFile::Progress& aProgress)
    : thePath(QFileInfo(aPath).absoluteFilePath()), theContent(aContent), theProgress(aProgress)
{
}

QString ProjectReader::subject() const
{
    return tr("The project %1").arg(QDir::toNativeSeparators(thePath));
}

bool ProjectReader::fail(const QString& aSentence)
{
    theError = aSentence.simplified();
    return false;
}

bool ProjectReader::damaged(const QString& aWhat)
{
    // The kernel's descriptors speak in whole sentences.
    QString what = aWhat.simplified();
    while (what.endsWith(QLatin1Char('.')))
        what.chop(1);
    what[0] = what.at(0).toLower();
    const QString former = thePath + QLatin1Char('~');
    const QString advice = QFileInfo::exists(former)
                               ? tr("open its former version %1").arg(QDir::toNativeSeparators(former))
                               : tr("open a copy of it that is whole");
    return fail(tr("%1 can't be opened (%2); %3.").arg(subject(), what, advice));
}

bool ProjectReader::damagedAt(const QDomElement& aElement, const QString& aWhat)
{
    return damaged(tr("line %1, element <%2>: %3").arg(aElement.lineNumber()).arg(aElement.tagName(), aWhat));
}

bool ProjectReader::read()
{
    QByteArray bytes;
    if (!readBytes(bytes) || !checkStructure(bytes))
        return false;
    QString reason;
    int line = 0;
    int column = 0;
    if (!theContent.theDocument.setContent(bytes, &reason, &line, &column))
        return damaged(tr("line %1, column %2: %3").arg(line).arg(column).arg(reason));
    return readRoot();
}

bool ProjectReader::readBytes(QByteArray& aBytes)
{
    const QFileInfo info(thePath);
    if (!info.exists())
        return fail(tr("%1 is not there; look where it was moved or choose another one.").arg(subject()));
    if (info.isDir())
        return fail(tr("%1 is a folder; choose a project in it.").arg(subject()));
    if (!info.isFile())
        return fail(tr("%1 is not a plain file; choose another one.").arg(subject()));
    QFile file(thePath);
    if (!file.open(QIODevice::ReadOnly))
        return fail(tr("%1 may not be read; change its permissions or choose another one.").arg(subject()));
    aBytes = file.readAll();
    return aBytes.isEmpty() ? damaged(tr("it is empty")) : true;
}

/// Walks over the whole text before a tree is built of it.
bool ProjectReader::checkStructure(const QByteArray& aBytes)
{
    QXmlStreamReader reader(aBytes);
    int depth = 0;
    bool rootSeen = false;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::DTD)
            return damaged(tr("line %1: a project has no document type").arg(reader.lineNumber()));
        if (token == QXmlStreamReader::EndElement)
            --depth;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (depth == 0 && !checkRoot(reader))
            return false;
        rootSeen = true;
        if (++depth > kMaxDepth)
            return damaged(tr("line %1: its elements lie too deep").arg(reader.lineNumber()));
    }
    if (!reader.hasError())
        return true;
    return damaged(tr("line %1, column %2: %3")
                       .arg(reader.lineNumber())
                       .arg(reader.columnNumber())
                       .arg(rootSeen ? reader.errorString() : tr("this is no XML")));
}

bool ProjectReader::checkRoot(QXmlStreamReader& aReader)
{
    if (aReader.qualifiedName() != QLatin1String(kRoot))
        return fail(tr("%1 is no project of this program; choose a file that it has saved.").arg(subject()));
    bool isNumber = false;
    const qlonglong version = aReader.attributes().value(QLatin1String(kVersion)).toLongLong(&isNumber);
    if (!isNumber || version < 1)
        return damaged(tr("line %1, element <%2>: the version is missing or wrong")
                           .arg(aReader.lineNumber())
                           .arg(QLatin1String(kRoot)));
    if (version > ProjectFile::kVersion)
        return fail(tr("%1 was written by a newer version of this program; update the program to open it.")
                        .arg(subject()));
    return true;
}

bool ProjectReader::readRoot()
{
    const QDomElement root = theContent.theDocument.documentElement();
    QDomElement picture;
    QDomElement calibrations;
    QDomElement objects;
    for (QDomElement child = root.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        QDomElement* place = child.tagName() == QLatin1String(kPicture)        ? &picture
                             : child.tagName() == QLatin1String(kCalibrations) ? &calibrations
                             : child.tagName() == QLatin1String(kObjects)      ? &objects
                                                                               : nullptr;
        if (!place)
            return damagedAt(child, tr("it is unknown here"));
        if (!place->isNull())
            return damagedAt(child, tr("it stands here twice"));
        *place = child;
    }
    if (picture.isNull())
        return damagedAt(root, tr("the picture is missing in it"));
    return readPicture(picture) && readCalibrations(calibrations) && readObjects(objects);
}

bool ProjectReader::readPicture(const QDomElement& aElement)
{
    int width = 0;
    int height = 0;
    const bool hasSize = intAttribute(aElement, kWidth, 1, INT_MAX, width) &&
                         intAttribute(aElement, kHeight, 1, INT_MAX, height);
    if (!hasSize || qint64(width) * height > PictureFile::kMaxPixels)
        return damagedAt(aElement, tr("the size is missing or impossible"));
    if (!intAttribute(aElement, kFrames, 1, INT_MAX, theContent.theFrameCount))
        return damagedAt(aElement, tr("the number of frames is missing or impossible"));
    if (!intAttribute(aElement, kFrame, 0, theContent.theFrameCount - 1, theContent.theFrame))
        return damagedAt(aElement, tr("the frame is missing or impossible"));
    theContent.theViewAnimated = aElement.attribute(QLatin1String(kViewAnimated)) == QLatin1String("1");
    theContent.thePictureSize = QSize(width, height);
    if (!readRegion(aElement))
        return damagedAt(aElement, tr("the region of interest is no rectangle inside the picture"));
    theContent.thePicture = findPicture(aElement);
    return theContent.thePicture.isEmpty() ? damagedAt(aElement, tr("the path is missing")) : true;
}

bool ProjectReader::readRegion(const QDomElement& aElement)
{
    if (!aElement.hasAttribute(QLatin1String(kRegion)))
        return true;
    QList<int> numbers;
    for (const QString& text : aElement.attribute(QLatin1String(kRegion)).split(QLatin1Char(' '))) {
        bool isNumber = false;
        numbers << text.toInt(&isNumber);
        // No number beyond the picture's size is right, and sums of smaller ones don't overflow.
        if (!isNumber || numbers.last() < 0 || numbers.last() > PictureFile::kMaxPixels)
            return false;
    }
    if (numbers.size() != 4 || numbers[2] < 1 || numbers[3] < 1)
        return false;
    theContent.theRegion = QRect(numbers[0], numbers[1], numbers[2], numbers[3]);
    return QRect(QPoint(0, 0), theContent.thePictureSize).contains(theContent.theRegion);
}

/// The relative path counts where it leads to something, else the absolute one.
QString ProjectReader::findPicture(const QDomElement& aElement) const
{
    const QString relative = aElement.attribute(QLatin1String(kPath));
    const QString absolute = aElement.attribute(QLatin1String(kAbsolutePath));
    const QDir folder = QFileInfo(thePath).absoluteDir();
    const QString beside =
        relative.isEmpty() ? QString() : QDir::cleanPath(folder.absoluteFilePath(relative));
    if (absolute.isEmpty() || (!beside.isEmpty() && QFileInfo::exists(beside)))
        return beside;
    return QDir::cleanPath(folder.absoluteFilePath(absolute));
}

bool ProjectReader::readCalibrations(const QDomElement& aElement)
{
    for (QDomElement child = aElement.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        if (!readCalibration(child))
            return false;
    theContent.theCurrentCalibration = aElement.attribute(QLatin1String(kCurrent));
    const bool isKnown = theContent.theCurrentCalibration.isEmpty() ||
                         theContent.theCalibrations.contains(theContent.theCurrentCalibration);
    return isKnown ? true : damagedAt(aElement, tr("the current calibration is not among them"));
}

bool ProjectReader::readCalibration(const QDomElement& aElement)
{
    if (aElement.tagName() != QLatin1String(kCalibration))
        return damagedAt(aElement, tr("it is unknown here"));
    const QString name = aElement.attribute(QLatin1String(kName));
    if (name.isEmpty())
        return damagedAt(aElement, tr("the name is missing"));
    if (theContent.theCalibrations.contains(name))
        return damagedAt(aElement, tr("the name %1 stands here twice").arg(name));
    bool isNumber = false;
    LmCalibData data;
    data.theValue = aElement.attribute(QLatin1String(kValue)).toDouble(&isNumber);
    data.theUnit = aElement.attribute(QLatin1String(kUnit));
    if (!isNumber || !std::isfinite(data.theValue) || data.theValue < 0.0)
        return damagedAt(aElement, tr("the value is missing or wrong"));
    theContent.theCalibrations.insert(name, data);
    return true;
}

bool ProjectReader::readObjects(const QDomElement& aElement)
{
    struct Entry
    {
        QPair<int, int> theKey;
        QDomElement theElement;
    };

    std::vector<Entry> entries;
    const int count = aElement.childNodes().count();
    for (QDomElement child = aElement.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        QPair<int, int> key;
        if (!readObject(child, key))
            return false;
        entries.push_back({key, child});
        const int done = int(entries.size());
        if (theProgress && done % kProgressStep == 0 && !theProgress(done, count))
            return fail(tr("%1 was not opened because you stopped it; nothing has changed.").arg(subject()));
    }
    std::sort(entries.begin(), entries.end(),
              [](const Entry& aOne, const Entry& aOther) { return aOne.theKey < aOther.theKey; });
    for (const Entry& entry : entries)
        theContent.theObjects.append(entry.theElement);
    return true;
}

bool ProjectReader::readObject(const QDomElement& aElement, QPair<int, int>& aKey)
{
    const int type = ProjectFile::objectType(aElement);
    const LmKernelObjectDataDescr* descriptor = LmKSKernelData::getInstance()->getDataDescriptor(type);
    if (!descriptor)
        return damagedAt(
            aElement,
            tr("objects of the type %1 are unknown").arg(aElement.attribute(QLatin1String(kObjectType))));
    int idx = 0;
    const std::unique_ptr<LmKernelObjectData> data(
        descriptor->createObjectDataFromXML(aElement, idx, nullptr));
    if (!data)
        return damaged(descriptor->xmlError());
    aKey = {type, idx};
    if (theKnownObjects.contains(aKey))
        return damagedAt(aElement, tr("the object %1 of the type %2 stands here twice").arg(idx).arg(type));
    theKnownObjects.insert(aKey);
    return true;
}
