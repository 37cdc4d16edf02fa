// Throughput of the sample-guided carve (learning, splitting, writing the work
// files; ffmpeg left out) on a 1 GB H.264+AAC recording without its moov, and
// the peak memory it needs. The recording is made once from an ffmpeg clip
// whose media data is repeated, and cached in the given folder.

#include "repair/ThreadVideoRepair.h"
#include "mux/MuxStages.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <cstdio>
#include <algorithm>
#include <tuple>
#include <sys/resource.h>
#include <unistd.h>

#include "bench/BenchSupport.h"
#include "tests/support/AnnexB.h"

namespace {
using bench::ffmpeg;
using bench::videoPackets;

quint32 be32(const QByteArray &d, qint64 at)
{
    return quint32(quint8(d[int(at)])) << 24 | quint32(quint8(d[int(at + 1)])) << 16
           | quint32(quint8(d[int(at + 2)])) << 8 | quint8(d[int(at + 3)]);
}

// The clip's ftyp and the content of its mdat.
bool clipParts(const QString &clip, QByteArray &ftyp, QByteArray &payload)
{
    QFile in(clip);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    const QByteArray d = in.readAll();
    for (qint64 p = 0; p + 8 <= d.size();) {
        const quint32 size = be32(d, p);
        if (size < 8)
            break;
        const QByteArray tag = d.mid(int(p + 4), 4);
        if (tag == "ftyp")
            ftyp = d.mid(int(p), int(size));
        else if (tag == "mdat")
            payload = d.mid(int(p + 8), int(size - 8));
        p += size;
    }
    return !ftyp.isEmpty() && !payload.isEmpty();
}

quint64 copiesFor(const QByteArray &payload, quint64 target)
{
    return (target + payload.size() - 1) / quint64(payload.size());
}

bool makeBig(const QString &clip, const QString &big, quint64 target)
{
    QByteArray ftyp, payload;
    if (!clipParts(clip, ftyp, payload))
        return false;
    QFile out(big + ".part");
    if (!out.open(QIODevice::WriteOnly))
        return false;
    const quint64 copies = copiesFor(payload, target);
    const quint64 mdatSize = 16 + copies * quint64(payload.size());
    QByteArray head = ftyp;
    head += QByteArray("\0\0\0\1mdat", 8);
    for (int i = 7; i >= 0; --i)
        head += char((mdatSize >> (8 * i)) & 0xFF);
    out.write(head);
    for (quint64 i = 0; i < copies; ++i)
        if (out.write(payload) != payload.size())
            return false;
    out.close();
    return QFile::rename(big + ".part", big);
}


// Frames in an H.264 stream with start codes: slices of type 1 or 5 that
// begin at the first macroblock (first_mb_in_slice, ue(v), is 0: a 1 bit).
quint64 countFrames(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    quint64 frames = 0;
    QByteArray tail;
    while (!f.atEnd()) {
        const QByteArray d = tail + f.read(64 << 20);
        const int n = d.size();
        for (int i = 0; i + 5 < n; ++i) {
            if (d[i + 3] != 1 || d[i + 2] != 0 || d[i + 1] != 0 || d[i] != 0)
                continue;
            const int type = quint8(d[i + 4]) & 0x1F;
            if ((type == 1 || type == 5) && (quint8(d[i + 5]) & 0x80))
                ++frames;
        }
        tail = d.right(5);
    }
    return frames;
}
// ADTS frames in a stream, by their length fields.
quint64 countAdtsFrames(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    const qint64 size = f.size();
    quint64 frames = 0;
    uchar h[7];
    for (qint64 at = 0; at + 7 <= size; ++frames) {
        f.seek(at);
        if (f.read(reinterpret_cast<char *>(h), 7) != 7 || h[0] != 0xFF)
            break;
        const int len = (h[3] & 3) << 11 | h[4] << 3 | h[5] >> 5;
        if (len < 7)
            break;
        at += len;
    }
    return frames;
}
// The recordings with PCM sound: the main clip's and sample's pictures, copied,
// with new sound in half-second packets (so chunks of it lie between runs of
// frames, as cameras write them). sowt's frame test knows P slices as 61.
struct SoundKind
{
    const char *name;
    QStringList audio;
    bool p61;
    const char *carved; // the work file of the sound
    double bytesPerSecond;
    QStringList video;  // another encoder for clip and sample (the H.264 clip's pictures otherwise)
    const char *stream; // the work file of the pictures
    bool delimited = false; // a temporal delimiter before each picture, as some AV1 recorders write
};
const QStringList kAacCodec = {"-c:a", "aac", "-b:a", "128k", "-ac", "2"};
const SoundKind kSounds[] = {
    {"aac", {}, false, "audio.aac", 0, {}, "video.h264"},
    {"lpcm", {"-af", "asetnsamples=n=48000", "-c:a", "pcm_s24le", "-ar", "96000", "-ac", "2"}, false, "Audio.pcm", 576000, {},
     "video.h264"},
    {"sowt", {"-af", "asetnsamples=n=24000", "-c:a", "pcm_s16le", "-ar", "48000", "-ac", "2"}, true, "audio.wav", 192000, {},
     "video.h264"},
    {"hevc", kAacCodec, false, "audio.aac", 0,
     {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=error:bframes=0:open-gop=0", "-b:v", "8M",
      "-pix_fmt", "yuv420p", "-tag:v", "hvc1"},
     "video.hevc"},
    {"mpeg4", kAacCodec, false, "audio.aac", 0, {"-c:v", "mpeg4", "-b:v", "8M", "-g", "30"}, "video.m4v"},
    {"av1", kAacCodec, false, "audio.aac", 0,
     {"-c:v", "libsvtav1", "-preset", "12", "-g", "30", "-b:v", "8M", "-pix_fmt", "yuv420p"}, "video.Av01", true},
};

// The clip without its moov, each video packet behind the two bytes of a
// temporal delimiter (ffmpeg leaves them out of MP4).
bool withDelimiters(const QString &clip, const QString &to)
{
    if (QFile::exists(to))
        return true;
    QProcess p;
    p.start("ffprobe", {"-v", "error", "-show_entries", "packet=stream_index,pos,size", "-of", "csv=p=0", clip});
    p.waitForFinished(-1);
    struct Item { qint64 pos, size; bool video; };
    QList<Item> items;
    for (const QByteArray &line : p.readAllStandardOutput().split('\n')) {
        const QList<QByteArray> f = line.trimmed().split(',');
        if (f.size() >= 3)
            items << Item{f[2].toLongLong(), f[1].toLongLong(), f[0].toInt() == 0};
    }
    std::sort(items.begin(), items.end(), [](const Item &a, const Item &b) { return a.pos < b.pos; });
    QFile in(clip), out(to);
    QByteArray ftyp, payload;
    if (items.isEmpty() || !clipParts(clip, ftyp, payload) || !in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly))
        return false;
    QByteArray media;
    for (const Item &i : items) {
        in.seek(i.pos);
        media += (i.video ? QByteArray("\x12\x00", 2) : QByteArray()) + in.read(i.size);
    }
    const quint32 mdat = quint32(media.size() + 8);
    out.write(ftyp + QByteArray(1, char(mdat >> 24)) + char(mdat >> 16) + char(mdat >> 8) + char(mdat) + "mdat" + media);
    return out.error() == QFileDevice::NoError;
}

// from's pictures (P slices rewritten for p61) with seconds of new sound.
bool withSound(const SoundKind &k, const QString &from, const QString &to, int seconds, int seed)
{
    if (QFile::exists(to))
        return true;
    QStringList video{"-i", from};
    if (k.p61) {
        const QString es = to + ".h264";
        if (!ffmpeg({"-i", from, "-map", "0:v", "-c", "copy", "-bsf:v", "h264_mp4toannexb", "-f", "h264", es}))
            return false;
        if (!annexb::PSlicesAs61(es))
            return false;
        video = QStringList{"-framerate", "30", "-i", es};
    }
    const QString noise = QStringLiteral("anoisesrc=d=%1:c=pink:a=0.2:r=48000:seed=%2").arg(seconds).arg(seed);
    const bool ok = ffmpeg(video + QStringList{"-f", "lavfi", "-i", noise, "-map", "0:v", "-map", "1:a", "-c:v", "copy"} + k.audio
                           + QStringList{"-shortest", to});
    QFile::remove(to + ".h264");
    return ok;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const SoundKind *kind = argc == 2 ? &kSounds[0] : nullptr;
    for (const SoundKind &k : kSounds)
        if (argc == 3 && qstrcmp(argv[2], k.name) == 0)
            kind = &k;
    if (argc < 2 || !kind) {
        std::fprintf(stderr, "usage: vm-bench-carve FOLDER [aac|lpcm|sowt|hevc|mpeg4|av1]\n");
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(dir);
    QString clip = dir + "/bench-clip.mov", sample = dir + "/bench-sample2.mov", big = dir + "/bench-1g.mov";
    const QStringList common = {"-c:v", "libx264", "-preset", "ultrafast", "-b:v", "8M", "-pix_fmt", "yuv420p",
                                "-c:a", "aac", "-b:a", "128k", "-ac", "2"};
    if (!QFile::exists(clip)
        && !ffmpeg(QStringList{"-f", "lavfi", "-i", "testsrc2=size=1280x720:rate=30:duration=30", "-f", "lavfi", "-i",
                               "anoisesrc=d=30:c=pink:a=0.2:r=48000"} + common + QStringList{clip}))
        return 1;
    // The sample: the same camera in the same room (same sound level), other
    // pictures, another stretch of sound.
    if (!QFile::exists(sample)
        && !ffmpeg(QStringList{"-f", "lavfi", "-i", "smptebars=size=1280x720:rate=30:duration=20", "-f", "lavfi", "-i",
                               "anoisesrc=d=20:c=pink:a=0.2:r=48000:seed=7"} + common + QStringList{sample}))
        return 1;
    if (kind != &kSounds[0]) {
        const QString base = dir + "/bench-" + kind->name;
        const QString ext = kind->delimited ? ".mp4" : ".mov"; // AV1 goes in MP4 only
        // Other pictures: clip and sample made with the kind's encoder.
        for (const auto &[out, source, noise] : {std::tuple<QString, QString, QString>{
                                                      base + "-clip" + ext, "testsrc2=size=1280x720:rate=30:duration=30",
                                                      "anoisesrc=d=30:c=pink:a=0.2:r=48000"},
                                                  {base + "-sample" + ext, "smptebars=size=1280x720:rate=30:duration=20",
                                                   "anoisesrc=d=20:c=pink:a=0.2:r=48000:seed=7"}})
            if (!kind->video.isEmpty() && !QFile::exists(out) &&
                !ffmpeg(QStringList{"-f", "lavfi", "-i", source, "-f", "lavfi", "-i", noise} + kind->video + kind->audio +
                        QStringList{out}))
                return 1;
        if (kind->video.isEmpty() &&
            (!withSound(*kind, clip, base + "-clip.mov", 30, 1) || !withSound(*kind, sample, base + "-sample.mov", 20, 7)))
            return 1;
        clip = base + "-clip" + ext;
        sample = base + "-sample" + ext;
        big = base + "-1g.mov";
    }
    const QString source = kind->delimited ? clip + ".delimited.mov" : clip;
    if (kind->delimited && !withDelimiters(clip, source))
        return 1;
    if (!QFile::exists(big)) {
        std::printf("Making %s (1 GB, once)...\n", qPrintable(big));
        if (!makeBig(source, big, 1000000000ULL))
            return 1;
    }

    QByteArray ftyp, payload;
    if (!clipParts(source, ftyp, payload))
        return 1;
    const quint64 expected = quint64(videoPackets(clip)) * copiesFor(payload, 1000000000ULL);
    // The carve alone: ffmpeg is kept out of reach, so the mux stage runs no command.
    mux::SetKeepWorkFiles(true);
    bench::startLikeCatCopy({dir + "/Repaired"});
    const QByteArray path = qgetenv("PATH");
    struct rusage before;
    getrusage(RUSAGE_SELF, &before);
    const double secs = bench::timedRepair(big, sample, dir);
    qputenv("PATH", path); // ffprobe counts what came out
    const double mb = QFileInfo(big).size() / 1e6;
    struct rusage ru;
    getrusage(RUSAGE_SELF, &ru);
    auto seconds = [](const timeval &t) { return double(t.tv_sec) + double(t.tv_usec) / 1e6; };
    const double cpu = seconds(ru.ru_utime) + seconds(ru.ru_stime) - seconds(before.ru_utime) - seconds(before.ru_stime);
    const QString stream = dir + "/Repaired/" + kind->stream;
    const qint64 video = QFileInfo(stream).size();
    const qint64 audio = QFileInfo(dir + "/Repaired/" + kind->carved).size();
    const quint64 frames = kind->video.isEmpty() ? countFrames(stream) : quint64(videoPackets(stream));
    const double sound = kind->bytesPerSecond > 0 ? audio / kind->bytesPerSecond
                                                  : countAdtsFrames(dir + "/Repaired/audio.aac") * 1024.0 / 48000;
    std::printf("carve %s:  %.1f MB in %.2f s = %.0f MB/s (video %.1f MB, audio %.1f MB written), cpu %.2f s, peak memory %ld MB, "
                "frames %llu of %llu (%.2f %%), sound %.0f s of %.0f s\n",
                kind->name, mb, secs, mb / secs, video / 1e6, audio / 1e6, cpu, ru.ru_maxrss / 1024, (unsigned long long)frames,
                (unsigned long long)expected, expected ? 100.0 * double(frames) / double(expected) : 0.0, sound,
                expected / 30.0);
    return 0;
}
