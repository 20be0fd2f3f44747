#include "ProjectFile.h"

#include "LmCvManipulator.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "ProjectNames.h"
#include "ProjectReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>
#include <QXmlStreamReader>

#include <cerrno>
#include <cstdio>

using namespace ProjectNames;

namespace {

// As many digits as tell any two numbers apart.
constexpr int kExactDigits = 17;
// The first element of a project stands within the first bytes.
constexpr qint64 kStartSize = 4096;

QString tr(const char* aText)
{
    return QCoreApplication::translate("ProjectFile", aText);
}

bool cannotWrite(const QString& aPath, const QString& aReason, QString& aError)
{
    aError = tr("The project %1 can't be written (%2); save it in another folder.")
                 .arg(QDir::toNativeSeparators(aPath), aReason.simplified());
    return false;
}

/// Text without the control characters that no XML file may hold.
QString xmlText(const QString& aText)
{
    QString text;
    for (const QChar character : aText)
        if (character >= QLatin1Char(' ') || character == QLatin1Char('\t') || character == QLatin1Char('\n'))
            text += character;
    return text;
}

QDomElement pictureElement(QDomDocument& aDocument, const QString& aPath, const QString& aPicture, int aFrame)
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    const QString absolute = QFileInfo(aPicture).absoluteFilePath();
    const QSize size = kernel->getCurrentImageSize();
    QDomElement element = aDocument.createElement(QLatin1String(kPicture));
    element.setAttribute(QLatin1String(kPath), QFileInfo(aPath).absoluteDir().relativeFilePath(absolute));
    element.setAttribute(QLatin1String(kAbsolutePath), absolute);
    element.setAttribute(QLatin1String(kWidth), size.width());
    element.setAttribute(QLatin1String(kHeight), size.height());
    const QRect region = kernel->theCurrentImage->qRoi();
    if (region != QRect(QPoint(0, 0), size))
        element.setAttribute(QLatin1String(kRegion), QStringLiteral("%1 %2 %3 %4")
                                                         .arg(region.x())
                                                         .arg(region.y())
                                                         .arg(region.width())
                                                         .arg(region.height()));
    element.setAttribute(QLatin1String(kFrame), aFrame);
    element.setAttribute(QLatin1String(kFrames), qMax(Int64(1), kernel->theFrameCount));
    if (LmCvManipulator::theCurrentViewAnimated)
        element.setAttribute(QLatin1String(kViewAnimated), 1);
    return element;
}

QDomElement calibrationsElement(QDomDocument& aDocument)
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QString current;
    kernel->getCurrentCalibData(current);
    QDomElement element = aDocument.createElement(QLatin1String(kCalibrations));
    element.setAttribute(QLatin1String(kCurrent), xmlText(current));
    const QMap<QString, LmCalibData>& calibrations = kernel->calibrations();
    for (auto at = calibrations.begin(); at != calibrations.end(); ++at) {
        QDomElement child = aDocument.createElement(QLatin1String(kCalibration));
        child.setAttribute(QLatin1String(kName), xmlText(at.key()));
        child.setAttribute(QLatin1String(kValue), QString::number(at->theValue, 'g', kExactDigits));
        child.setAttribute(QLatin1String(kUnit), xmlText(at->theUnit));
        element.appendChild(child);
    }
    return element;
}

QDomElement objectsElement(QDomDocument& aDocument)
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QDomElement element = aDocument.createElement(QLatin1String(kObjects));
    for (auto type = kernel->theObjects.begin(); type != kernel->theObjects.end(); ++type) {
        const LmKernelObjectDataDescr* descriptor = kernel->getDataDescriptor(type.key());
        if (!descriptor)
            continue;
        for (auto object = type->begin(); object != type->end(); ++object)
            element.appendChild(descriptor->createXML(aDocument, object.key(), **object));
    }
    return element;
}

QByteArray projectBytes(const QString& aPath, const QString& aPicture, int aFrame)
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    QDomElement root = document.createElement(QLatin1String(kRoot));
    root.setAttribute(QLatin1String(ProjectNames::kVersion), ProjectFile::kVersion);
    document.appendChild(root);
    root.appendChild(pictureElement(document, aPath, aPicture, aFrame));
    root.appendChild(calibrationsElement(document));
    root.appendChild(objectsElement(document));
    return document.toByteArray(1);
}

/// Puts a copy of the present file in the place of the former generation, whole or not at all: at no moment
/// is there less than one good file.
bool keepFormer(const QString& aPath, QString& aReason)
{
    QFile present(aPath);
    if (!present.exists())
        return true;
    QTemporaryFile copy(aPath + QStringLiteral("~.XXXXXX"));
    if (!present.open(QIODevice::ReadOnly) || !copy.open()) {
        aReason = present.isOpen() ? copy.errorString() : present.errorString();
        return false;
    }
    const QByteArray bytes = present.readAll();
    copy.setPermissions(present.permissions());
    if (copy.write(bytes) != bytes.size() || !copy.flush()) {
        aReason = copy.errorString();
        return false;
    }
    const QByteArray former = QFile::encodeName(aPath + QLatin1Char('~'));
    if (std::rename(QFile::encodeName(copy.fileName()).constData(), former.constData()) != 0) {
        aReason = qt_error_string(errno);
        return false;
    }
    copy.setAutoRemove(false);
    return true;
}

} // namespace

int ProjectFile::objectType(const QDomElement& aElement)
{
    return aElement.attribute(QLatin1String(kObjectType)).toInt();
}

bool ProjectFile::isProject(const QString& aPath)
{
    const QString suffix = QFileInfo(aPath).suffix().toLower();
    if (suffix == QLatin1String("mtp") || suffix == QLatin1String("mtp~"))
        return true;
    QFile file(aPath);
    if (!QFileInfo(aPath).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader reader(file.read(kStartSize));
    while (!reader.atEnd() && !reader.isStartElement())
        reader.readNext();
    return reader.isStartElement() && reader.name() == QLatin1String(kRoot);
}

bool ProjectFile::read(const QString& aPath, ProjectContent& aContent, QString& aError,
                       const Progress& aProgress)
{
    ProjectReader reader(aPath, aContent, aProgress);
    const bool isRead = reader.read();
    aError = reader.error();
    return isRead;
}

bool ProjectFile::write(const QString& aPath, const QString& aPicture, int aFrame, QString& aError)
{
    if (aPicture.isEmpty() || LmKSKernelData::getInstance()->getCurrentImageSize().isEmpty()) {
        aError = tr("There is no picture to save a project of; open one first.");
        return false;
    }
    QSaveFile file(aPath);
    if (!file.open(QIODevice::WriteOnly))
        return cannotWrite(aPath, file.errorString(), aError);
    const QByteArray bytes = projectBytes(aPath, aPicture, aFrame);
    if (file.write(bytes) != bytes.size())
        return cannotWrite(aPath, file.errorString(), aError);
    QString reason;
    if (!keepFormer(aPath, reason))
        return cannotWrite(aPath, tr("its former version can't be kept: %1").arg(reason), aError);
    return file.commit() ? true : cannotWrite(aPath, file.errorString(), aError);
}
