#include "VideoScaler.h"

#include "TestFont.h"

extern "C" {
#include <libavutil/imgutils.h>
}

#include <QRandomGenerator>
#include <QtTest>

#include <cstring>

namespace {

/// Noise, in which every mixture of neighbours shows.
VideoHandles::Frame noise(AVPixelFormat aFormat, const QSize& aSize)
{
    VideoHandles::Frame frame(av_frame_alloc());
    frame->format = aFormat;
    frame->width = aSize.width();
    frame->height = aSize.height();
    if (av_frame_get_buffer(frame.get(), 0) < 0)
        return nullptr;
    QRandomGenerator random(7);
    for (const AVBufferRef* buffer : frame->buf)
        for (size_t at = 0; buffer && at < buffer->size; ++at)
            buffer->data[at] = uint8_t(random.bounded(256));
    return frame;
}

} // namespace

class TestVideoScaler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void threadsChangeNoByte_data();
    void threadsChangeNoByte();
    void quickRowsReachTheRightEdge();
};

void TestVideoScaler::threadsChangeNoByte_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("accurate");
    QTest::addColumn<QSize>("size");
    for (const AVPixelFormat format :
         {AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUV444P, AV_PIX_FMT_NV12, AV_PIX_FMT_GRAY8,
          AV_PIX_FMT_RGB24, AV_PIX_FMT_YUV420P10LE})
        for (const bool isAccurate : {true, false})
            for (const QSize& size : {QSize(1280, 720), QSize(643, 517), QSize(64, 1024)})
                QTest::addRow("%s %s %d x %d", av_get_pix_fmt_name(format), isAccurate ? "accurate" : "quick",
                              size.width(), size.height())
                    << int(format) << isAccurate << size;
}

void TestVideoScaler::threadsChangeNoByte()
{
    QFETCH(int, format);
    QFETCH(bool, accurate);
    QFETCH(QSize, size);
    const VideoHandles::Frame frame = noise(AVPixelFormat(format), size);
    QVERIFY(frame);
    VideoScaler alone(accurate, 1);
    QVERIFY(alone.convert(*frame));
    for (const int threads : {2, 3, 8}) {
        VideoScaler together(accurate, threads);
        // The second time the buffers have been used.
        for (int time = 0; time < 2; ++time)
            QVERIFY(together.convert(*frame));
        QCOMPARE(together.channels(), alone.channels());
        for (int y = 0; y < size.height(); ++y)
            QVERIFY2(std::memcmp(together.row(y), alone.row(y), size_t(size.width() * alone.channels())) == 0,
                     qPrintable(QStringLiteral("%1 threads, row %2").arg(threads).arg(y)));
    }
}

void TestVideoScaler::quickRowsReachTheRightEdge()
{
    for (const int width : {426, 853, 810, 8, 21, 1366}) {
        const VideoHandles::Frame frame = noise(AV_PIX_FMT_YUV420P, QSize(width, 16));
        QVERIFY(frame);
        for (int plane = 0; plane < 3; ++plane)
            std::memset(frame->data[plane], 150, size_t(frame->linesize[plane]) * (plane == 0 ? 16 : 8));
        VideoScaler scaler(false, 1);
        QVERIFY(scaler.convert(*frame));
        const uint8_t* row = scaler.row(5);
        for (int x = 0; x < width; ++x)
            QVERIFY2(std::memcmp(row, row + 3 * x, 3) == 0,
                     qPrintable(QStringLiteral("width %1, column %2").arg(width).arg(x)));
    }
}

MEASURE_TEST_MAIN(TestVideoScaler)
#include "TestVideoScaler.moc"
