#include "KernelFixture.h"

#include "ValueText.h"

#include <QFont>
#include <QPolygon>
#include <QRgba64>

#include <climits>

namespace {

char theToolPlaces[8];

int randomCoordinate(QRandomGenerator& aRandom)
{
    switch (aRandom.bounded(8)) {
    case 0:
        return INT_MIN;
    case 1:
        return INT_MAX;
    default:
        return aRandom.bounded(-5000, 5000);
    }
}

QPoint randomPoint(QRandomGenerator& aRandom)
{
    const int x = randomCoordinate(aRandom);
    return QPoint(x, randomCoordinate(aRandom));
}

QString randomText(QRandomGenerator& aRandom)
{
    QString text;
    const int length = aRandom.bounded(12);
    for (int i = 0; i < length; ++i)
        text += aRandom.bounded(2) ? QChar(char16_t(aRandom.bounded(0x10000)))
                                   : QStringLiteral(" \n\t\r\\u<>&\"'x").at(aRandom.bounded(12));
    return text;
}

QColor randomColor(QRandomGenerator& aRandom)
{
    if (aRandom.bounded(5) == 0)
        return QColor();
    if (aRandom.bounded(3) == 0)
        return QColor::fromRgba64(QRgba64::fromRgba64(aRandom.generate64()));
    return QColor::fromRgba(aRandom.generate());
}

QFont randomFont(QRandomGenerator& aRandom)
{
    QFont font(QStringLiteral("DejaVu Sans"), aRandom.bounded(1, 200));
    if (aRandom.bounded(2))
        font.setPixelSize(aRandom.bounded(1, 200));
    font.setBold(aRandom.bounded(2));
    font.setItalic(aRandom.bounded(2));
    font.setUnderline(aRandom.bounded(2));
    font.setStrikeOut(aRandom.bounded(2));
    return font;
}

QVariant randomValue(QRandomGenerator& aRandom, QMetaType::Type aType)
{
    switch (int(aType)) {
    case QMetaType::Bool:
        return aRandom.bounded(2) == 1;
    case QMetaType::QString:
        return randomText(aRandom);
    case QMetaType::QByteArray: {
        QByteArray bytes(aRandom.bounded(20), '\0');
        for (char& byte : bytes)
            byte = char(aRandom.bounded(256));
        return bytes;
    }
    case QMetaType::QPoint:
        return randomPoint(aRandom);
    case QMetaType::QFont:
        return randomFont(aRandom);
    case QMetaType::QColor:
        return randomColor(aRandom);
    default: {
        QPolygon points;
        for (int i = aRandom.bounded(6); i > 0; --i)
            points.append(randomPoint(aRandom));
        return QVariant::fromValue<QPolygon>(points);
    }
    }
}

} // namespace

KernelFixture::KernelFixture()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    const bool typeTaken = kernel->registerObjectType(tool(0), kType);
    const bool descriptorTaken = kernel->registerDataDescriptor(makeDescriptor(), kType);
    Q_ASSERT(typeTaken && descriptorTaken);
    if (!typeTaken || !descriptorTaken)
        qFatal("the kernel isn't clean");
}

KernelFixture::~KernelFixture()
{
    LmKSKernelData* kernel = LmKSKernelData::getInstance();
    for (char& place : theToolPlaces)
        kernel->unregisterManipulator(reinterpret_cast<LmCvManipulator*>(&place));
    const QStringList names = kernel->calibrations().keys();
    for (const QString& name : names)
        kernel->removeCalibration(name);
    kernel->setObjectNamer(nullptr);
    kernel->theCurrentImage = kernel->theAltImage = nullptr;
    kernel->theCalibScale = 1.0;
    kernel->theImageSource = 0;
    kernel->theCurrentFrame = 0;
}

LmCvManipulator* KernelFixture::tool(int aNumber)
{
    return reinterpret_cast<LmCvManipulator*>(&theToolPlaces[aNumber]);
}

LmKernelObjectDataDescr* KernelFixture::makeDescriptor()
{
    auto* descriptor = new LmKernelObjectDataDescr(kType, 8);
    descriptor->addParamDescr(kVis, QStringLiteral("vis"), QMetaType::Bool, ParamDescr::kWhole);
    descriptor->addParamDescr(kCol, QStringLiteral("col"), QMetaType::QColor, ParamDescr::kWhole);
    descriptor->addParamDescr(kDispv, QStringLiteral("dispv"), QMetaType::QString, ParamDescr::kWhole);
    descriptor->addParamDescr(kPos, QStringLiteral("pos"), QMetaType::QPoint, ParamDescr::kBlended);
    descriptor->addParamDescr(kPts, QStringLiteral("pts"), QMetaType::QPolygon, ParamDescr::kBlended);
    descriptor->addParamDescr(kNst, QStringLiteral("nst"), QMetaType::QByteArray, ParamDescr::kHeld);
    descriptor->addParamDescr(kMarks, QStringLiteral("marks"), QMetaType::QPolygon, ParamDescr::kHeld);
    descriptor->addParamDescr(kFont, QStringLiteral("fnt"), QMetaType::QFont, ParamDescr::kWhole);
    return descriptor;
}

LmKernelObjectData* KernelFixture::makeRecord()
{
    const std::unique_ptr<LmKernelObjectDataDescr> descriptor(makeDescriptor());
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    values.setValue(kVis, true);
    values.setValue(kCol, QColor(10, 20, 30));
    values.setValue(kDispv, QStringLiteral("Distance"));
    values.setValue(kPos, QPoint(100, 200));
    values.setValue(kPts, QVariant::fromValue<QPolygon>(QPolygon(QList<QPoint>{{0, 0}, {10, 0}, {10, 10}})));
    values.setValue(kNst, QByteArray("abc"));
    values.setValue(kMarks, QVariant::fromValue<QPolygon>(QPolygon(QList<QPoint>{{1, 1}, {2, 2}})));
    values.setValue(kFont, QFont(QStringLiteral("DejaVu Sans"), 12));
    return new LmKernelObjectData(values, descriptor->getKeyframeTypes(), 0);
}

LmKernelObjectData* KernelFixture::randomRecord(QRandomGenerator& aRandom)
{
    const std::unique_ptr<LmKernelObjectDataDescr> descriptor(makeDescriptor());
    LmParamKeyframeVector values = descriptor->createKeyframeVector();
    for (int i = 0; i < descriptor->count(); ++i)
        if (aRandom.bounded(10) > 0)
            values.setValue(i, randomValue(aRandom, descriptor->param(i).theType));
    auto* data = new LmKernelObjectData(values, descriptor->getKeyframeTypes(), 0);
    data->theAnimated = aRandom.bounded(2) == 1;
    for (int i = kPos; i <= kMarks; ++i)
        for (int frames = aRandom.bounded(6); frames > 0; --frames) {
            const long long frame =
                aRandom.bounded(5) ? aRandom.bounded(100) : LLONG_MAX - aRandom.bounded(3);
            data->storeValue(i, frame, randomValue(aRandom, descriptor->param(i).theType));
        }
    return data;
}

LmParamKeyframeVector KernelFixture::vectorWith(int aParam, const QVariant& aValue, long long aFrame)
{
    LmParamKeyframeVector values(8);
    values.setValue(aParam, aValue);
    values.setFrameNumber(aFrame);
    return values;
}

QStringList KernelFixture::dump(const LmKernelObjectData* aData)
{
    if (!aData)
        return {QStringLiteral("none")};
    const auto line = [](long long aFrame, const QVariant& aValue) {
        const QString text = aValue.isValid() ? ValueText::write(aValue) : QStringLiteral("no value");
        return QStringLiteral("  %1 %2 %3").arg(aFrame).arg(QLatin1String(aValue.typeName())).arg(text);
    };
    QStringList lines(aData->theAnimated ? QStringLiteral("animated") : QStringLiteral("plain"));
    for (int i = 0; i < aData->count(); ++i) {
        lines.append(QStringLiteral(" param %1 of kind %2").arg(i).arg(aData->keyframeType(i)));
        lines.append(line(kDefaultFrame, aData->storedValue(i, kDefaultFrame)));
        for (const LmParamKeyframe& keyframe : aData->getAnimationKeyframes(i))
            lines.append(line(keyframe.getFrame(), keyframe.getValue()));
    }
    return lines;
}

QStringList KernelFixture::dumpKernel()
{
    const LmKSKernelData* kernel = LmKSKernelData::getInstance();
    QStringList lines;
    for (auto type = kernel->theObjects.cbegin(); type != kernel->theObjects.cend(); ++type)
        for (auto object = type->cbegin(); object != type->cend(); ++object)
            lines << QStringLiteral("object %1 %2").arg(type.key()).arg(object.key()) << dump(object.value());
    for (auto it = kernel->calibrations().cbegin(); it != kernel->calibrations().cend(); ++it)
        lines << QStringLiteral("calibration %1 %2 %3").arg(it.key()).arg(it->theValue).arg(it->theUnit);
    QString current;
    kernel->getCurrentCalibData(current);
    return lines << QStringLiteral("current ") + current;
}
