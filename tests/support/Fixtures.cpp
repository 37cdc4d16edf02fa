#include "Fixtures.h"
#include "MediaCompare.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSaveFile>
#include <QSet>
#include <QStandardPaths>
#include <QVector>
#include <QtEndian>
#include <QtGlobal>

namespace fixtures {

namespace {

struct Row {
    QString name;
    QStringList args;  // everything between the fixed leading flags and the output path
};

const QStringList kVideo = {"-f", "lavfi", "-i", "testsrc2=size=320x240:rate=25:duration=2"};
const QStringList kSound = {"-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:duration=2"};
// The mov muxer only switches to an "lpcm" entry once the rate no longer fits its 16-bit field.
const QStringList kSound96k = {"-f", "lavfi", "-i", "sine=frequency=440:sample_rate=96000:duration=2"};
// veryfast keeps B-frames (so ctts exists); one IDR a second gives several sync samples.
const QStringList kX264 = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "30", "-g", "25",
                           "-pix_fmt", "yuv420p"};
const QStringList kX265 = {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=error",
                           "-g", "25", "-tag:v", "hvc1"};
const QStringList kAac = {"-c:a", "aac", "-b:a", "64k"};
const QStringList kCamX264 = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "28", "-g", "30", "-pix_fmt", "yuv420p"};
const QStringList kCamAac = {"-c:a", "aac", "-b:a", "128k", "-ac", "2"};
const QStringList kMp3 = {"-c:a", "libmp3lame", "-b:a", "128k"};
// Carve recordings (4 s of moving pictures, loud noise) and samples (3 s of
// bars, quieter noise of another seed) at a frame rate; hz 0: no sound.
QStringList camClip(bool sample, const QString &rate = "30", int hz = 48000, const char *size = "320x240")
{
    QStringList in = {"-f", "lavfi", "-i", QStringLiteral("%1=size=%2:rate=%3:duration=%4")
                                               .arg(sample ? "smptebars" : "testsrc2", size, rate).arg(sample ? 3 : 4)};
    if (hz)
        in << "-f" << "lavfi" << "-i" << QStringLiteral("anoisesrc=d=%1:c=pink:a=%2:r=%3:seed=%4")
                                               .arg(sample ? 3 : 4).arg(sample ? "0.15" : "0.2").arg(hz).arg(sample ? 7 : 1);
    return in;
}
// Sound that differs in kind and loudness from the recordings': a quiet tone,
// bursts of noise between silences (as speech comes), silence; and a recording
// whose sound changes halfway (loud noise, then a soft tone).
QStringList camSound(const QString &expr, int seconds)
{
    return {"-f", "lavfi", "-i", QStringLiteral("aevalsrc=%1:c=stereo:s=48000:d=%2").arg(expr).arg(seconds)};
}
const QStringList kCamToneSample = camClip(true, "30", 0) + camSound("0.03*sin(2*PI*523*t)", 3);

QStringList audio(const QString &codec) { return {"-c:a", codec}; }
// The stream scanners' recordings: ProRes with 24-bit PCM (in 1 s packets or
// ffmpeg's own), Motion JPEG with 8-bit PCM and its moov in front, 3GP with AMR.
QStringList scanClip(const QString &video, const QString &noise, const QStringList &codecs)
{
    // The same noise every time the fixture is made (a sample names its own seed).
    const QString seeded = noise.contains("seed=") ? noise : noise + ":seed=1";
    return QStringList{"-f", "lavfi", "-i", video, "-f", "lavfi", "-i", "anoisesrc=c=pink:a=0.2:" + seeded} + codecs;
}
const QStringList kScanProRes = {"-ac", "2", "-c:v", "prores_ks", "-profile:v", "0", "-c:a", "pcm_s24le"};
const QStringList kScanSecond = {"-af", "asetnsamples=n=48000"};
const QStringList kScanMjpeg = {"-c:v", "mjpeg", "-q:v", "5", "-pix_fmt", "yuvj420p", "-c:a", "pcm_u8", "-movflags", "+faststart"};
QStringList scanAmr(const char *video, const char *rate) { return {"-c:v", video, "-c:a", "libopencore_amrnb", "-ar", "8000", "-b:a", rate}; }


const QVector<Row> &table()
{
    static const QVector<Row> rows = {
        {"h264_aac.mp4", kVideo + kSound + kX264 + kAac},
        {"h264_aac.mov", kVideo + kSound + kX264 + kAac},
        {"h264_aac_faststart.mov", kVideo + kSound + kX264 + kAac + QStringList{"-movflags", "+faststart"}},
        // In .mov ffmpeg writes MP3 as ".mp3"; only the mp4 muxer gives mp4a with object type 0x6B.
        {"h264_mp3.mp4", kVideo + kSound + kX264 + QStringList{"-c:a", "libmp3lame", "-b:a", "64k"}},
        {"h264_sowt.mov", kVideo + kSound + kX264 + audio("pcm_s16le")},
        {"h264_twos.mov", kVideo + kSound + kX264 + audio("pcm_s16be")},
        {"h264_lpcm.mov", kVideo + kSound96k + kX264 + audio("pcm_s16le")},
        {"h264_in24.mov", kVideo + kSound + kX264 + audio("pcm_s24le")},
        {"h264_alaw.mov", kVideo + kSound + kX264 + audio("pcm_alaw")},
        {"h264_ulaw.mov", kVideo + kSound + kX264 + audio("pcm_mulaw")},
        {"h264_ima.mov", kVideo + kSound + kX264 + audio("adpcm_ima_wav")},
        {"h264_opus.mp4", kVideo + kSound + kX264 + QStringList{"-c:a", "libopus", "-b:a", "32k"}},
        {"h264_ac3.mp4", kVideo + kSound + kX264 + QStringList{"-c:a", "ac3", "-b:a", "96k"}},
        {"hevc_aac.mp4", kVideo + kSound + kX265 + kAac},
        {"hevc_pcm.mov", kVideo + kSound + kX265 + audio("pcm_s16be")},
        {"mpeg4.mp4", kVideo + kSound + QStringList{"-c:v", "mpeg4", "-q:v", "8", "-g", "25"} + kAac},
        {"av1.mp4", kVideo + kSound
                        + QStringList{"-c:v", "libaom-av1", "-usage", "realtime", "-cpu-used", "8", "-g", "25"}
                        + kAac},
        {"prores.mov", kVideo + kSound + QStringList{"-c:v", "prores_ks", "-profile:v", "2", "-q:v", "20"} + audio("pcm_s16le")},
        // Without sound, so the video tag alone decides the code.
        {"prores_silent.mov", kVideo + QStringList{"-c:v", "prores_ks", "-profile:v", "2", "-q:v", "20"}},
        {"mjpeg_silent.mov", kVideo + QStringList{"-c:v", "mjpeg", "-q:v", "15", "-pix_fmt", "yuvj420p"}},
        {"video_only.mp4", kVideo + kX264},
        {"h264_aac.ts", kVideo + kSound + kX264 + kAac},
        {"h264_mp2.ps", kVideo + kSound + kX264 + QStringList{"-c:a", "mp2", "-b:a", "64k", "-f", "mpeg"}},
        {"h264_aac.3gp", kVideo + kSound + kX264 + kAac},
        // The carve's recordings with their samples "from the same camera" are added below.
        {"carve_aac48_tone_sample.mov", kCamToneSample + kCamX264 + kCamAac},
        {"carve_aac48_bursts_sample.mov", camClip(true, "30", 0) + camSound("0.7*(random(0)-0.5)*gt(sin(2*PI*1.3*t)\\,0.2)", 3) + kCamX264 + kCamAac},
        {"carve_aac48_hush_sample.mov", camClip(true, "30", 0) + camSound("0", 3) + kCamX264 + kCamAac},
        {"carve_mixed.mov", camClip(false, "30", 0) + camSound("if(lt(t\\,2)\\,0.5*(random(0)-0.5)\\,0.04*sin(2*PI*330*t))", 4) + kCamX264 + kCamAac},
        {"carve_mp3_tone_sample.mp4", kCamToneSample + kCamX264 + kMp3},
        {"carve_wide_sample.mov", camClip(true, "30", 48000, "640x360") + kCamX264 + kCamAac},
        {"carve_hevc_sample.mov", camClip(true) + kX265 + QStringList{"-tag:v", "hvc1"} + kCamAac},
        // Recordings of the stream scanners, each with a 3 s sample of other content.
        {"scan_prores.mov", scanClip("testsrc2=size=1280x720:rate=25:duration=8", "d=8.5:r=48000", kScanProRes + kScanSecond)},
        {"scan_prores_fine.mov", scanClip("testsrc2=size=1280x720:rate=25:duration=8", "d=8.5:r=48000", kScanProRes)},
        {"scan_prores_sample.mov", scanClip("smptebars=size=1280x720:rate=25:duration=3", "d=3:r=48000:seed=7", kScanProRes + kScanSecond)},
        {"scan_mjpeg.mov", scanClip("testsrc2=size=640x480:rate=30:duration=4", "d=3.9:r=16000", kScanMjpeg)},
        {"scan_mjpeg_sample.mov", scanClip("smptebars=size=640x480:rate=30:duration=3", "d=2.9:r=16000:seed=7", kScanMjpeg)},
        {"scan_mjpeg_sowt_first.mov", scanClip("testsrc2=size=640x480:rate=30:duration=4", "d=3.9:r=16000",
                                               kScanMjpeg + QStringList{"-map", "1:a", "-map", "0:v", "-c:a", "pcm_s16le"})},
        {"scan_mjpeg_black.mov", scanClip("color=c=black:size=640x480:rate=30:duration=1[a];testsrc2=size=640x480:rate=30:"
                                          "duration=3[b];[a][b]concat[out0]", "d=3.9:r=16000", kScanMjpeg)},
        {"scan_mjpeg_end.mov", scanClip("testsrc2=size=640x480:rate=30:duration=4", "d=3.9:r=16000", kScanMjpeg.mid(0, 8))},
        {"scan_h263.3gp", scanClip("testsrc2=size=qcif:rate=15:duration=10", "d=10:r=8000", scanAmr("h263", "12.2k"))},
        {"scan_h263_sample.3gp", scanClip("smptebars=size=qcif:rate=15:duration=3", "d=3:r=8000:seed=7", scanAmr("h263", "12.2k"))},
        {"scan_mpeg4.3gp", scanClip("testsrc2=size=qcif:rate=15:duration=10", "d=10:r=8000", scanAmr("mpeg4", "5.15k"))},
        {"scan_mpeg4_sample.3gp", scanClip("smptebars=size=qcif:rate=15:duration=3", "d=3:r=8000:seed=7", scanAmr("mpeg4", "5.15k"))},
        // Elementary streams, as the carvers leave them in the work folder.
        {"es.h264", kVideo + kX264},
        {"es.hevc", kVideo + kX265},
        {"es.m4v", kVideo + QStringList{"-c:v", "mpeg4", "-q:v", "8", "-g", "25"}},
        {"es.obu", kVideo + QStringList{"-c:v", "libaom-av1", "-usage", "realtime", "-cpu-used", "8", "-g", "25"}},
        {"es.aac", kSound + kAac},
        {"es.ac3", kSound + QStringList{"-c:a", "ac3", "-b:a", "96k"}},
        {"es.wav", kSound + audio("pcm_s16le")},
        {"es_s16le.pcm", kSound + QStringList{"-f", "s16le", "-ac", "2", "-c:a", "pcm_s16le"}},
        {"es_s16be.pcm", kSound + QStringList{"-f", "s16be", "-ac", "2", "-c:a", "pcm_s16be"}},
        {"es_s24le.pcm", kSound + QStringList{"-f", "s24le", "-ac", "2", "-c:a", "pcm_s24le"}},
        {"es.mp3", kSound + QStringList{"-c:a", "libmp3lame", "-b:a", "64k"}},
    };
    static const QVector<Row> all = [] {
        const struct { const char *name, *ext; QStringList codecs; const char *rate; int hz; } pairs[] = {
            {"carve_aac48", "mov", kCamX264 + kCamAac, "30", 48000},
            {"carve_aac44", "mov", kCamX264 + kCamAac, "30", 44100},
            {"carve_mono", "mov", kCamX264 + kCamAac + QStringList{"-ac", "1"}, "30", 48000},
            {"carve_mp3", "mp4", kCamX264 + kMp3, "30", 48000},
            {"carve_silent", "mov", kCamX264, "30", 0},
            {"carve_nob", "mov", kCamX264 + kCamAac + QStringList{"-bf", "0"}, "30", 48000},
            {"carve_aud", "mov", kCamX264 + kCamAac + QStringList{"-x264-params", "aud=1"}, "30", 48000},
            {"carve_slices", "mov", kCamX264 + kCamAac + QStringList{"-x264-params", "slices=2"}, "30", 48000},
            {"carve_r25", "mov", kCamX264 + kCamAac, "25", 48000},
            {"carve_r2997", "mov", kCamX264 + kCamAac, "30000/1001", 48000},
        };
        QVector<Row> r = rows;
        for (const auto &p : pairs)
            for (bool sample : {false, true})
                r.append({QStringLiteral("%1%2.%3").arg(p.name, sample ? "_sample" : "", p.ext),
                          camClip(sample, p.rate, p.hz) + p.codecs});
        return r;
    }();
    return all;
}

// Keeps encoder names and dates out of the output so reruns give comparable files.
const QStringList kBitexact = {"-map_metadata", "-1", "-fflags", "+bitexact",
                               "-flags:v", "+bitexact", "-flags:a", "+bitexact"};

using media::readAll;
bool writeAtomically(const QString &path, const QByteArray &data);

// Runs one table row, once. The argument list is stored beside the output, so
// editing a row makes its file anew instead of silently testing a stale one.
QString generate(const Row &row)
{
    static QSet<QString> failed; // don't rerun a failing ffmpeg for every test
    const QString dest = dir() + QLatin1Char('/') + row.name, stampPath = dir() + "/." + row.name + ".args";
    const QByteArray stamp = row.args.join(QLatin1Char('\n')).toUtf8();
    if (failed.contains(row.name))
        return {};
    if (media::readAll(stampPath) != stamp)
        QFile::remove(dest);
    if (media::made(row.name, row.args + kBitexact).isEmpty()) {
        qWarning("fixtures: ffmpeg failed to make %s\n  ffmpeg %s", qPrintable(row.name), qPrintable(row.args.join(' ')));
        failed.insert(row.name);
        return {};
    }
    writeAtomically(stampPath, stamp);
    return dest;
}

// <dir>/<base>.<tag>.<ext>, e.g. h264_aac.nomoov.mov
QString derivedPath(const QString &src, const QString &tag)
{
    const QFileInfo fi(src);
    QString name = fi.completeBaseName() + QLatin1Char('.') + tag;
    if (!fi.suffix().isEmpty())
        name += QLatin1Char('.') + fi.suffix();
    return fi.absolutePath() + QLatin1Char('/') + name;
}

bool upToDate(const QString &derived, const QString &src)
{
    const QFileInfo d(derived), s(src);
    return d.exists() && d.lastModified() >= s.lastModified();
}

bool writeAtomically(const QString &path, const QByteArray &data)
{
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(data) != data.size() || !f.commit()) {
        qWarning("fixtures: cannot write %s: %s", qPrintable(path), qPrintable(f.errorString()));
        return false;
    }
    return true;
}

const Atom *findAtom(const QList<Atom> &atoms, const char *type)
{
    for (const Atom &a : atoms)
        if (a.type == type)
            return &a;
    return nullptr;
}

// Shared frame for the damage helpers: cache check, reading, locating the atom,
// writing the result. `damage` edits the bytes and returns false (after a warning)
// when this source cannot take that damage.
template <typename Damage>
QString damaged(const QString &src, const QString &tag, const char *atomType, Damage damage)
{
    if (src.isEmpty() || !QFileInfo(src).isFile()) {
        qWarning("fixtures: no source file for the %s copy: '%s'", qPrintable(tag), qPrintable(src));
        return {};
    }
    const QString dest = derivedPath(src, tag);
    if (upToDate(dest, src))
        return dest;
    const QList<Atom> atoms = topLevelAtoms(src);
    const Atom *atom = findAtom(atoms, atomType);
    if (!atom) {
        qWarning("fixtures: %s has no top-level %s atom", qPrintable(src), atomType);
        return {};
    }
    QByteArray data = readAll(src);
    if (data.isEmpty() || atom->offset + 16 > quint64(data.size())) {
        qWarning("fixtures: %s is unreadable or its %s atom is truncated", qPrintable(src), atomType);
        return {};
    }
    // A declared size past the end only happens in already damaged sources; damage what is there.
    Atom clamped = *atom;
    clamped.size = qMin<quint64>(clamped.size, quint64(data.size()) - clamped.offset);
    if (!damage(data, clamped, atoms))
        return {};
    return writeAtomically(dest, data) ? dest : QString();
}

void putBE32(QByteArray &data, quint64 at, quint32 v)
{
    qToBigEndian(v, reinterpret_cast<uchar *>(data.data() + at));
}

} // namespace

QByteArray digest(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash h(QCryptographicHash::Sha1);
    h.addData(&f);
    return h.result();
}

QString dir()
{
#ifdef VM_FIXTURE_DIR
    static const QString path = QStringLiteral(VM_FIXTURE_DIR);
#else
    static const QString path = QDir::tempPath() + QStringLiteral("/videomend-fixtures");
#endif
    if (!QDir().mkpath(path))
        qWarning("fixtures: cannot create %s", qPrintable(path));
    return path;
}

QString ffmpeg()
{
    static const QString path = QStandardPaths::findExecutable(QStringLiteral("ffmpeg"));
    return path;
}

QString healthy(const QString &name)
{
    for (const Row &row : table())
        if (row.name == name)
            return generate(row);
    qWarning("fixtures: no healthy fixture called %s", qPrintable(name));
    return {};
}

QStringList healthyNames()
{
    QStringList names;
    for (const Row &row : table())
        names << row.name;
    return names;
}

QString moovRemoved(const QString &src)
{
    return damaged(src, QStringLiteral("nomoov"), "moov", [](QByteArray &data, const Atom &moov, const QList<Atom> &) {
        data.remove(int(moov.offset), int(moov.size));
        return true;
    });
}

QString moovAtEndCut(const QString &src)
{
    return damaged(src, QStringLiteral("moovcut"), "moov",
                   [&src](QByteArray &data, const Atom &moov, const QList<Atom> &atoms) {
                       if (atoms.last().offset != moov.offset) {
                           qWarning("fixtures: moov is not the last atom of %s; use a file without faststart",
                                    qPrintable(src));
                           return false;
                       }
                       data.truncate(int(moov.offset + 100));
                       return true;
                   });
}

QString ftypZeroed(const QString &src)
{
    return damaged(src, QStringLiteral("ftypzero"), "ftyp", [](QByteArray &data, const Atom &ftyp, const QList<Atom> &) {
        data.replace(int(ftyp.offset), int(ftyp.size), QByteArray(int(ftyp.size), '\0'));
        return true;
    });
}

QString moovZeroed(const QString &src)
{
    return damaged(src, QStringLiteral("moovzero"), "moov", [](QByteArray &data, const Atom &moov, const QList<Atom> &) {
        data.replace(int(moov.offset), int(moov.size), QByteArray(int(moov.size), '\0'));
        return true;
    });
}

QString mdatSizeZero(const QString &src)
{
    return damaged(src, QStringLiteral("mdat0"), "mdat", [](QByteArray &data, const Atom &mdat, const QList<Atom> &) {
        putBE32(data, mdat.offset, 0);
        return true;
    });
}

QString mdatSize64(const QString &src)
{
    return damaged(src, QStringLiteral("mdat64"), "mdat",
                   [&src](QByteArray &data, const Atom &mdat, const QList<Atom> &) {
                       if (qFromBigEndian<quint32>(data.constData() + mdat.offset) == 1) {
                           qWarning("fixtures: the mdat of %s already has a 64-bit size", qPrintable(src));
                           return false;
                       }
                       QByteArray large(8, '\0');
                       qToBigEndian<quint64>(mdat.size + 8, reinterpret_cast<uchar *>(large.data()));
                       putBE32(data, mdat.offset, 1);
                       data.insert(int(mdat.offset + 8), large);
                       return true;
                   });
}

QString cutAt(const QString &src, int percent)
{
    const QString dest = derivedPath(src, QStringLiteral("cut%1").arg(percent));
    if (upToDate(dest, src))
        return dest;
    QByteArray data = readAll(src);
    if (data.isEmpty())
        return {};
    data.truncate(int(qint64(data.size()) * percent / 100));
    return writeAtomically(dest, data) ? dest : QString();
}

QVector<QVector<Packet>> packets(const QString &path)
{
    QProcess probe;
    probe.start(QStringLiteral("ffprobe"), {"-v", "error", "-show_entries", "packet=stream_index,pos,size", "-of",
                                            "compact=p=0", path});
    if (!probe.waitForFinished(60000))
        return {};
    QVector<QVector<Packet>> streams;
    for (const QByteArray &line : probe.readAllStandardOutput().split('\n')) {
        int stream = -1;
        Packet packet{~quint64(0), 0};
        for (const QByteArray &field : line.split('|')) {
            const QList<QByteArray> kv = field.split('=');
            if (kv.value(0) == "stream_index")
                stream = kv.value(1).toInt();
            else if (kv.value(0) == "pos")
                packet.pos = kv.value(1).toULongLong();
            else if (kv.value(0) == "size")
                packet.size = kv.value(1).toULongLong();
        }
        if (stream < 0 || packet.pos == ~quint64(0) || packet.size == 0)
            continue;
        if (streams.size() <= stream)
            streams.resize(stream + 1);
        streams[stream].append(packet);
    }
    return streams;
}

namespace {
// The trak, mdia, minf and stbl boxes of a moov, rebuilt with new chunk
// tables: each track's samples keep their order and sizes, `per` of them to
// a chunk, at the offsets given.
struct ChunkTables
{
    QVector<QVector<quint32>> offsets; // per track
    QVector<int> per, samples;
    int track = -1;

    QByteArray rewrite(const QByteArray &box)
    {
        const QByteArray type = box.mid(4, 4);
        auto be = [](quint32 v) {
            QByteArray b(4, '\0');
            qToBigEndian(v, reinterpret_cast<uchar *>(b.data()));
            return b;
        };
        if (type == "moov" || type == "trak" || type == "mdia" || type == "minf" || type == "stbl") {
            if (type == "trak")
                ++track;
            QByteArray children;
            for (int at = 8; at + 8 <= box.size();) {
                const int size = int(qFromBigEndian<quint32>(reinterpret_cast<const uchar *>(box.constData() + at)));
                if (size < 8 || at + size > box.size())
                    break;
                children += rewrite(box.mid(at, size));
                at += size;
            }
            return be(quint32(children.size() + 8)) + type + children;
        }
        if ((type == "stco" || type == "co64") && track >= 0 && track < offsets.size()) {
            QByteArray body = be(0) + be(quint32(offsets[track].size()));
            for (quint32 o : offsets[track])
                body += be(o);
            return be(quint32(body.size() + 8)) + "stco" + body;
        }
        if (type == "stsc" && track >= 0 && track < offsets.size()) {
            const int n = per[track], total = samples[track], full = total / n, rest = total % n;
            QByteArray entries;
            int count = 0;
            if (full) {
                entries += be(1) + be(quint32(n)) + be(1);
                ++count;
            }
            if (rest) {
                entries += be(quint32(full + 1)) + be(quint32(rest)) + be(1);
                ++count;
            }
            const QByteArray body = be(0) + be(quint32(count)) + entries;
            return be(quint32(body.size() + 8)) + "stsc" + body;
        }
        return box;
    }
};
} // namespace

QString cameraLayout(const QString &src, double seconds, int soundPerSecond)
{
    const QString dest = derivedPath(src, seconds == 1.0 ? QStringLiteral("camera")
                                                         : QStringLiteral("camera%1ms").arg(int(seconds * 1000)));
    if (upToDate(dest, src))
        return dest;
    const QByteArray data = readAll(src);
    const QList<Atom> atoms = topLevelAtoms(src);
    const Atom *ftyp = findAtom(atoms, "ftyp"), *moov = findAtom(atoms, "moov");
    if (data.isEmpty() || !ftyp || !moov)
        return {};
    const QVector<QVector<Packet>> tracks = packets(src);
    if (tracks.isEmpty())
        return {};
    // About a second per chunk: 30 frames of video, 47 frames of AAC (or of
    // whatever the second track holds), video first.
    ChunkTables t;
    t.offsets.resize(tracks.size());
    for (int i = 0; i < tracks.size(); ++i) {
        t.per << qMax(1, int((i == 0 ? 30 : soundPerSecond) * seconds + 0.5));
        t.samples << tracks[i].size();
    }
    const QByteArray head = data.mid(int(ftyp->offset), int(ftyp->size));
    QByteArray media;
    QVector<int> next(tracks.size(), 0);
    for (bool more = true; more;) {
        more = false;
        for (int i = 0; i < tracks.size(); ++i) {
            if (next[i] >= tracks[i].size())
                continue;
            more = true;
            t.offsets[i] << quint32(head.size() + 8 + media.size());
            for (int k = 0; k < t.per[i] && next[i] < tracks[i].size(); ++k, ++next[i])
                media += data.mid(int(tracks[i][next[i]].pos), int(tracks[i][next[i]].size));
        }
    }
    QByteArray mdat(4, '\0');
    qToBigEndian(quint32(media.size() + 8), reinterpret_cast<uchar *>(mdat.data()));
    mdat += "mdat" + media;
    return writeAtomically(dest, head + mdat + t.rewrite(data.mid(int(moov->offset), int(moov->size)))) ? dest
                                                                                                       : QString();
}

QString damagedMiddle(const QString &src, bool random, quint64 *damageOffset)
{
    constexpr int kBlock = 64 << 10;
    // Centred in the media data and wholly inside it; worked out before the
    // cache is asked, so the caller learns the place either way.
    const QList<Atom> atoms = topLevelAtoms(src);
    const Atom *mdat = findAtom(atoms, "mdat");
    if (!mdat || mdat->size < quint64(kBlock + (16 << 10)))
        return {};
    const quint64 at = mdat->offset + (mdat->size - kBlock) / 2;
    if (damageOffset)
        *damageOffset = at;
    return damaged(src, random ? "random" : "zeros", "mdat", [&](QByteArray &data, const Atom &, const QList<Atom> &) {
        QByteArray block(kBlock, '\0');
        quint32 x = 2463534242u; // fixed, so reruns damage alike
        for (int i = 0; random && i < block.size(); ++i) {
            x ^= x << 13;
            x ^= x >> 17;
            x ^= x << 5;
            block[i] = char(x & 0xFF);
        }
        data.replace(int(at), block.size(), block);
        return true;
    });
}

QString emptyFile(const QString &name)
{
    const QString path = dir() + QLatin1Char('/') + name;
    const QFileInfo fi(path);
    if (fi.isFile() && fi.size() == 0)
        return path;
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qWarning("fixtures: cannot create %s: %s", qPrintable(path), qPrintable(f.errorString()));
        return {};
    }
    return path;
}

QString imkhFile()
{
    const QString src = healthy(QStringLiteral("h264_mp2.ps"));
    if (src.isEmpty())
        return {};
    const QString dest = dir() + QStringLiteral("/imkh_stream.mp4");
    if (upToDate(dest, src))
        return dest;
    const QByteArray body = readAll(src);
    if (body.isEmpty())
        return {};
    // Vendor header stand-in: never zero, so it cannot fake an MPEG start code.
    QByteArray header("IMKH");
    for (int i = 0; i < 60; ++i)
        header.append(char(0x20 + (i * 7) % 0x5f));
    return writeAtomically(dest, header + body) ? dest : QString();
}

QString withSuffix(const QString &src, const QString &suffix)
{
    const QFileInfo fi(src);
    if (src.isEmpty() || !fi.isFile()) {
        qWarning("fixtures: no source file to copy: '%s'", qPrintable(src));
        return {};
    }
    QString ext = suffix;
    if (ext.startsWith(QLatin1Char('.')))
        ext.remove(0, 1);
    const QString dest = fi.absoluteFilePath() + QLatin1Char('.') + ext;
    if (upToDate(dest, src))
        return dest;
    const QByteArray data = readAll(src);
    if (data.isEmpty() && fi.size() > 0)
        return {};
    return writeAtomically(dest, data) ? dest : QString();
}

QList<Atom> topLevelAtoms(const QString &path)
{
    QList<Atom> atoms;
    if (path.isEmpty())
        return atoms;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        qWarning("fixtures: cannot open %s: %s", qPrintable(path), qPrintable(f.errorString()));
        return atoms;
    }
    const quint64 fileSize = quint64(f.size());
    quint64 offset = 0;
    while (offset + 8 <= fileSize) {
        f.seek(qint64(offset));
        const QByteArray head = f.read(16);
        if (head.size() < 8)
            break;
        Atom a;
        a.offset = offset;
        a.type = head.mid(4, 4);
        const quint32 size32 = qFromBigEndian<quint32>(head.constData());
        quint64 headerSize = 8;
        if (size32 == 1) {
            if (head.size() < 16)
                break;
            a.size = qFromBigEndian<quint64>(head.constData() + 8);
            headerSize = 16;
        } else if (size32 == 0) {
            a.size = fileSize - offset;
        } else {
            a.size = size32;
        }
        if (a.size < headerSize)
            break;
        atoms.append(a);
        if (a.size > fileSize - offset)
            break;
        offset += a.size;
    }
    return atoms;
}

int inChildWithFileLimit(quint64 maxFileBytes, const std::function<int()> &body)
{
    const pid_t pid = fork();
    if (pid < 0)
        return -1;
    if (pid == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit lim{rlim_t(maxFileBytes), rlim_t(maxFileBytes)};
        _exit(setrlimit(RLIMIT_FSIZE, &lim) == 0 ? body() : 125);
    }
    int status = 0;
    if (waitpid(pid, &status, 0) != pid || !WIFEXITED(status) || WEXITSTATUS(status) == 125)
        return -1;
    return WEXITSTATUS(status);
}

Streams probe(const QString &path)
{
    Streams p;
    QProcess proc;
    proc.start("ffprobe", {"-v", "error", "-count_packets", "-show_entries",
                           "stream=codec_type,nb_read_packets,duration,r_frame_rate", "-of", "json", path});
    proc.waitForFinished(60000);
    for (const QJsonValue &v : QJsonDocument::fromJson(proc.readAllStandardOutput()).object().value("streams").toArray()) {
        const QJsonObject o = v.toObject();
        const QString type = o.value("codec_type").toString();
        const int packets = o.value("nb_read_packets").toString().toInt();
        const double seconds = o.value("duration").toString().toDouble();
        if (type == "video" && p.video < 0) {
            p.video = packets, p.videoSeconds = seconds, p.videoRate = o.value("r_frame_rate").toString();
        } else if (type == "audio") {
            if (p.audioStreams++ == 0)
                p.audio = packets, p.audioSeconds = seconds;
        }
    }
    return p;
}

} // namespace fixtures
