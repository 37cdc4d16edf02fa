#include "containers/Mp4Info.h"

#include "carve/audio/ByteSet.h"
#include "containers/ContainerConstants.h"
#include "repair/BitReader.h"
#include "repair/BufferedReader.h"

#include <QHash>
#include <QStringList>
#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <memory>
#include <numeric>

namespace mp4info {

namespace {

quint32 fourcc(const char *t)
{
    return quint32(quint8(t[0])) << 24 | quint32(quint8(t[1])) << 16 | quint32(quint8(t[2])) << 8 | quint8(t[3]);
}

struct Atom
{
    quint64 pos = 0;  // of its size field
    quint64 body = 0; // first byte after the header
    quint64 end = 0;  // clamped to what encloses it
    quint32 type = 0;
};

// The atom at pos inside [pos, limit); false when no valid header fits.
bool atomAt(BufferedReader &f, quint64 pos, quint64 limit, Atom &a)
{
    if (pos + kAtomHeader > limit)
        return false;
    quint64 size = f.be32(pos);
    a.pos = pos;
    a.type = f.be32(pos + 4);
    a.body = pos + kAtomHeader;
    if (size == 1) {
        if (pos + kLargeAtomHeader > limit)
            return false;
        size = f.be64(pos + 8);
        a.body = pos + kLargeAtomHeader;
    } else if (size == 0) {
        size = limit - pos;
    }
    if (size < a.body - pos)
        return false;
    a.end = size > limit - pos ? limit : pos + size;
    return true;
}

// Walks the children of [from, to), calling visit(atom) for each.
template <typename Visit>
void children(BufferedReader &f, quint64 from, quint64 to, Visit visit)
{
    Atom a;
    for (quint64 p = from; atomAt(f, p, to, a); p = a.end) {
        visit(a);
        if (a.end <= p)
            break;
    }
}

void readStsd(BufferedReader &f, const Atom &stsd, Track &t, bool video)
{
    // version/flags, entry count, then the first entry.
    const quint64 entry = stsd.body + 8;
    if (entry + 8 > stsd.end)
        return;
    t.codec = f.be32(entry + 4);
    if (video && entry + kEntryHeight + 2 <= stsd.end) {
        t.width = f.be16(entry + kEntryWidth);
        t.height = f.be16(entry + kEntryHeight);
    } else if (!video && entry + kEntrySampleRate + 4 <= stsd.end) {
        t.channels = f.be16(entry + kEntryChannels);
        t.sampleRate = f.be32(entry + kEntrySampleRate) >> 16;
    }
}

void readStts(BufferedReader &f, const Atom &stts, Track &t)
{
    const quint64 count = f.be32(stts.body + 4);
    const quint64 room = stts.end > stts.body + 8 ? (stts.end - stts.body - 8) / 8 : 0;
    QHash<quint32, quint64> seen;
    quint64 best = 0;
    for (quint64 i = 0, n = qMin(count, room); i < n; ++i) {
        const quint64 at = stts.body + 8 + i * 8;
        const quint32 samples = f.be32(at), delta = f.be32(at + 4);
        t.samples += samples;
        if (delta == 0)
            continue;
        quint64 &c = seen[delta];
        c += samples;
        if (c > best || (c == best && delta < t.commonDelta)) {
            best = c;
            t.commonDelta = delta;
        }
    }
}

void readTrak(BufferedReader &f, const Atom &trak, Info &info)
{
    Track t;
    quint32 handler = 0;
    Atom stsd, stts;
    bool haveStsd = false, haveStts = false;
    // mdia holds hdlr and mdhd; minf/stbl hold stsd and stts.
    auto walk = [&](auto &self, const Atom &parent, int depth) -> void {
        if (depth > kMaxDepth)
            return;
        children(f, parent.body, parent.end, [&](const Atom &a) {
            if (a.type == fourcc(tag::mdia) || a.type == fourcc(tag::minf) || a.type == fourcc(tag::stbl)) {
                self(self, a, depth + 1);
            } else if (a.type == fourcc(tag::hdlr) && a.body + 12 <= a.end && handler == 0) {
                // The media's handler comes first; QuickTime's data handler in minf doesn't count.
                handler = f.be32(a.body + 8);
            } else if ((a.type == fourcc(tag::vmhd) || a.type == fourcc(tag::smhd)) && handler == 0) {
                // A media header tells the kind when the handler is missing.
                handler = fourcc(a.type == fourcc(tag::vmhd) ? tag::vide : tag::soun);
            } else if (a.type == fourcc(tag::mdhd) && a.body + 24 <= a.end) {
                t.timeScale = f.be32(a.body + (f.u8(a.body) == 1 ? 20 : 12));
            } else if (a.type == fourcc(tag::stsd) && !haveStsd) {
                stsd = a;
                haveStsd = true;
            } else if (a.type == fourcc(tag::stts) && !haveStts) {
                stts = a;
                haveStts = true;
            }
        });
    };
    walk(walk, trak, 1);
    const bool video = handler == fourcc(tag::vide);
    if (!video && handler != fourcc(tag::soun))
        return;
    Track &slot = video ? info.video : info.sound;
    if (slot.present)
        return; // the first track of each kind counts
    if (haveStsd)
        readStsd(f, stsd, t, video);
    if (haveStts)
        readStts(f, stts, t);
    t.present = true;
    slot = t;
}

// H.264: a slice that starts its picture (first macroblock 0, a slice type,
// parameter set 0), a parameter set, SEI or delimiter. b: header + 4 bytes.
bool h264Unit(const quint8 *b)
{
    if (b[0] & 0x80)
        return false;
    const int type = b[0] & 31, ref = (b[0] >> 5) & 3;
    switch (type) {
    case 5:
        if (ref == 0)
            return false;
        Q_FALLTHROUGH();
    case 1: {
        BitReader r(b + 1, 4);
        if (r.bit() != 1)
            return false;
        const int sliceType = r.ue();
        return sliceType >= 0 && sliceType <= 9 && r.ue() == 0;
    }
    case 7:
    case 8: return ref != 0;
    case 6:
    case 9: return ref == 0;
    default: return false;
    }
}

// HEVC: a known unit type of layer 0 with a temporal id; a slice starts its
// picture and names parameter set 0. b: the two header bytes + 3 bytes.
bool hevcUnit(const quint8 *b)
{
    if ((b[0] & 0x80) || (b[0] & 1) || (b[1] >> 3) || (b[1] & 7) == 0)
        return false;
    const int type = (b[0] >> 1) & 63;
    if (type <= 9 || (type >= 16 && type <= 21)) {
        BitReader r(b + 2, 3);
        if (r.bit() != 1)
            return false;
        if (type >= 16)
            r.bit(); // no_output_of_prior_pics_flag of a random access picture
        return r.ue() == 0;
    }
    return type == 32 || type == 33 || type == 34 || type == 35 || type == 39 || type == 40;
}

} // namespace

Info Read(BufferedReader &f)
{
    Info info;
    if (!f.isOpen())
        return info;
    children(f, 0, f.size(), [&](const Atom &a) {
        if (a.type != fourcc(tag::moov) || info.moov)
            return;
        children(f, a.body, a.end, [&](const Atom &t) {
            if (t.type == fourcc(tag::trak))
                readTrak(f, t, info);
        });
        info.moov = info.video.present || info.sound.present;
    });
    return info;
}

Info ReadFile(const QString &path)
{
    BufferedReader f(size_t(1) << 20);
    if (!f.open(path))
        return Info();
    return Read(f);
}

bool StartsLikeMp4(BufferedReader &f)
{
    Atom a;
    if (!f.isOpen() || !atomAt(f, 0, f.size(), a))
        return false;
    for (const char *t : kTopLevel)
        if (a.type == fourcc(t))
            return true;
    return false;
}

QString Rate::text() const
{
    return den == 1 ? QString::number(num) : QStringLiteral("%1/%2").arg(num).arg(den);
}

Rate ExactRate(const Track &video)
{
    Rate r;
    if (!video.present || video.timeScale == 0 || video.commonDelta == 0)
        return r;
    if (video.timeScale / video.commonDelta >= kMaxFramesPerSecond)
        return r;
    const quint32 g = std::gcd(video.timeScale, video.commonDelta);
    r.num = video.timeScale / g;
    r.den = video.commonDelta / g;
    return r;
}

Codec CodecOf(quint32 c)
{
    switch (c) {
    case 0x61766331: case 0x61766333: return Codec::H264;  // avc1 avc3
    case 0x68766331: case 0x68657631: return Codec::Hevc;  // hvc1 hev1
    case 0x6D703476: return Codec::Mpeg4;                  // mp4v
    case 0x61763031: return Codec::Av1;                    // av01
    case 0x61706368: case 0x6170636E: case 0x61706373: case 0x6170636F: case 0x61703468:
        return Codec::ProRes;                              // apch apcn apcs apco ap4h
    case 0x6A706567: case 0x6D6A7061: return Codec::Mjpeg; // jpeg mjpa
    case 0: return Codec::Unknown;
    default: return Codec::Other;
    }
}

const char *CodecName(Codec c)
{
    switch (c) {
    case Codec::H264: return "H.264";
    case Codec::Hevc: return "HEVC";
    case Codec::Mpeg4: return "MPEG-4 Visual";
    case Codec::Av1: return "AV1";
    case Codec::ProRes: return "ProRes";
    case Codec::Mjpeg: return "Motion JPEG";
    case Codec::Other: return "another codec";
    case Codec::Unknown: break;
    }
    return "unknown";
}

namespace {
// Calls f(i) for each i in [0, n) whose byte is zero, in order, while f
// returns true.
template <typename F>
void forEachZero(const quint8 *b, size_t n, F f)
{
    static const carve::ByteSet zero = [] {
        carve::ByteSet z;
        z.add(0);
        return z;
    }();
    for (size_t i = zero.findIn(b, n); i < n; i += 1 + zero.findIn(b + i + 1, n - i - 1))
        if (!f(i))
            return;
}

// Room for n bytes, in huge pages where the system gives them: a fresh
// buffer of tens of megabytes otherwise costs thousands of page faults.
struct ProbeBuffer
{
    static constexpr size_t kHuge = size_t(2) << 20;
    explicit ProbeBuffer(size_t n)
    {
        const size_t rounded = (n + kHuge - 1) / kHuge * kHuge;
        bytes = static_cast<quint8 *>(std::aligned_alloc(kHuge, rounded ? rounded : kHuge));
#if defined(MADV_HUGEPAGE)
        if (bytes)
            ::madvise(bytes, rounded, MADV_HUGEPAGE);
#endif
    }
    ~ProbeBuffer() { std::free(bytes); }
    ProbeBuffer(const ProbeBuffer &) = delete;
    ProbeBuffer &operator=(const ProbeBuffer &) = delete;
    quint8 *bytes = nullptr;
};
} // namespace

Codec DetectNalCodec(BufferedReader &f, Codec expected)
{
    if (!f.isOpen())
        return Codec::Unknown;
    quint64 start = 0;
    children(f, 0, f.size(), [&](const Atom &a) {
        if (a.type == fourcc(tag::mdat) && start == 0)
            start = a.body;
    });
    const quint64 end = qMin(f.size(), start + kNalProbeBytes);
    // The probe looks ahead and back for every candidate, far on chance hits
    // in sound or ProRes data: the few megabytes it covers are read once.
    const size_t span = start < end ? size_t(end - start) : 0;
    ProbeBuffer buffer(span + 1);
    const quint8 *bytes = buffer.bytes;
    if (!bytes || f.readAt(start, buffer.bytes, span) != span)
        return Codec::Unknown;
    // A unit: a length that fits, then a header of the codec.
    auto unitAt = [&](quint64 p, bool (*valid)(const quint8 *), quint64 *next) {
        const quint8 *b = bytes + (p - start);
        if (b[1] > (kMaxNalUnit >> 16))
            return false;
        const quint32 len = quint32(b[0]) << 24 | quint32(b[1]) << 16 | quint32(b[2]) << 8 | b[3];
        if (len < 3 || len > kMaxNalUnit || p + 4 + len > end || !valid(b + 4))
            return false;
        *next = p + 4 + len;
        return true;
    };
    // Units whose end leads to another unit within a little sound: real
    // streams link, chance hits in other data seldom do. A unit's length
    // opens with a zero byte: only those positions are looked at.
    auto zerosIn = [&](quint64 from, quint64 limit, auto f) {
        if (from + kNalLook <= limit)
            forEachZero(bytes + (from - start), size_t(limit - kNalLook + 1 - from),
                        [&](size_t i) { return f(from + i); });
    };
    auto linkedFrom = [&](quint64 q, bool (*valid)(const quint8 *)) {
        bool found = false;
        zerosIn(q, qMin(end, q + kNalGap), [&](quint64 r) {
            quint64 ignored = 0;
            found = unitAt(r, valid, &ignored);
            return !found;
        });
        return found;
    };
    // Both codecs in one pass.
    int avc = 0, hevc = 0;
    zerosIn(start, end, [&](quint64 p) {
        quint64 q = 0;
        if (unitAt(p, h264Unit, &q) && linkedFrom(q, h264Unit))
            ++avc;
        if (unitAt(p, hevcUnit, &q) && linkedFrom(q, hevcUnit))
            ++hevc;
        return true;
    });
    if ((expected == Codec::H264 && avc >= kMinLinkedUnits) || (expected == Codec::Hevc && hevc >= kMinLinkedUnits))
        return expected;
    if (avc >= kMinLinkedUnits && avc >= kWinFactor * (hevc + 1))
        return Codec::H264;
    if (hevc >= kMinLinkedUnits && hevc >= kWinFactor * (avc + 1))
        return Codec::Hevc;
    return Codec::Unknown;
}

QString Differences(const Info &rec, Codec recCodec, const Info &sample)
{
    QStringList d;
    const Codec sampleCodec = CodecOf(sample.video.codec);
    // A damaged moov may hold anything: only a codec this program knows is
    // taken from it, and only then its frame size and sound.
    const Codec moovCodec = rec.video.present ? CodecOf(rec.video.codec) : Codec::Unknown;
    const bool moovKnown = moovCodec != Codec::Unknown && moovCodec != Codec::Other;
    if (moovKnown)
        recCodec = moovCodec;
    // Without a moov the codec is read from chains of length-prefixed units,
    // which only H.264 and HEVC have; ProRes or JPEG data makes chance chains.
    else if (sampleCodec != Codec::H264 && sampleCodec != Codec::Hevc)
        recCodec = Codec::Unknown;
    if (recCodec != Codec::Unknown && sampleCodec != Codec::Unknown && recCodec != sampleCodec)
        d << QStringLiteral("codec %1 in the recording, %2 in the sample")
                 .arg(QLatin1String(CodecName(recCodec)), QLatin1String(CodecName(sampleCodec)));
    if (moovKnown && sample.video.present && rec.video.width && sample.video.width &&
        (rec.video.width != sample.video.width || rec.video.height != sample.video.height))
        d << QStringLiteral("frame size %1x%2 in the recording, %3x%4 in the sample")
                 .arg(rec.video.width).arg(rec.video.height).arg(sample.video.width).arg(sample.video.height);
    if (moovKnown && rec.sound.present && sample.sound.present && rec.sound.codec && sample.sound.codec &&
        (rec.sound.codec != sample.sound.codec || rec.sound.sampleRate != sample.sound.sampleRate ||
         rec.sound.channels != sample.sound.channels)) {
        auto describe = [](const Track &t) {
            QString name;
            for (int shift = 24; shift >= 0; shift -= 8) {
                const char c = char(t.codec >> shift);
                name += (c >= 0x20 && c < 0x7F) ? QChar(c) : QChar('?');
            }
            return QStringLiteral("%1 %2 Hz %3 ch").arg(name.trimmed()).arg(t.sampleRate).arg(t.channels);
        };
        d << QStringLiteral("sound %1 in the recording, %2 in the sample").arg(describe(rec.sound), describe(sample.sound));
    }
    return d.join(QStringLiteral("; "));
}

} // namespace mp4info
