#include "BenchState.h"

#include "Document.h"
#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectDataDescr.h"
#include "Media.h"
#include "Workbench.h"

#include <QDomDocument>

QString recordsText()
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("records"));
    document.appendChild(root);
    for (auto type = kernel->theObjects.begin(); type != kernel->theObjects.end(); ++type)
        for (auto object = type->begin(); object != type->end(); ++object)
            root.appendChild(
                kernel->getDataDescriptor(type.key())->createXML(document, object.key(), **object));
    return document.toString();
}

QString benchState(Workbench& aBench)
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QString current;
    kernel->getCurrentCalibData(current);
    QStringList lines{recordsText(), QStringLiteral("current calibration ") + current};
    for (auto at = kernel->calibrations().begin(); at != kernel->calibrations().end(); ++at)
        lines << QStringLiteral("%1 %2 %3").arg(at.key()).arg(at->theValue, 0, 'g', 17).arg(at->theUnit);
    const QSize size = kernel->getCurrentImageSize();
    lines << QStringLiteral("image %1 x %2 at %3")
                 .arg(size.width())
                 .arg(size.height())
                 .arg(quintptr(kernel->theCurrentImage), 0, 16);
    lines << QStringLiteral("frame %1 of %2").arg(kernel->theCurrentFrame).arg(kernel->theFrameCount);
    lines << kernel->theMediaFile << aBench.media().path() << aBench.document().displayName()
          << aBench.document().projectPath();
    for (const LmCvObject* item : aBench.editor().cvItems())
        lines << QStringLiteral("item %1 %2").arg(item->rtti()).arg(item->labelText());
    const QUndoStack& stack = aBench.undoStack();
    lines << QStringLiteral("undo %1 of %2, clean %3")
                 .arg(stack.index())
                 .arg(stack.count())
                 .arg(stack.isClean());
    for (int i = 0; i < stack.count(); ++i)
        lines << stack.text(i);
    lines << QStringLiteral("modified %1, missing %2")
                 .arg(aBench.document().isModified())
                 .arg(aBench.document().isPictureMissing());
    return lines.join(QLatin1Char('\n'));
}
