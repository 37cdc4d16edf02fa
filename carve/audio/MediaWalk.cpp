#include "carve/audio/MediaWalk.h"

#include "carve/audio/Adts.h"
#include "carve/audio/AudioConstants.h"
#include "carve/audio/StreamOut.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QtDebug>

#include <cstring>

namespace carve {

namespace {
constexpr bool everyTagLeadKnown()
{
    for (const char *t : kSkipTags)
        if (!MayOpenTag(quint8(t[0])))
            return false;
    return MayOpenTag('m'); // "mdat"
}
static_assert(everyTagLeadKnown(), "MayOpenTag must know the first letter of every tag stepped over");
} // namespace

bool IsSkipTag(BufferedReader &f, quint64 p)
{
    // Asked at every byte of a scan: look at the first letter before comparing tags.
    quint8 tmp[4];
    const quint8 *b = BytesAt(f, p, tmp, 4);
    if (!MayOpenTag(b[0]))
        return false;
    for (const char *t : kSkipTags)
        if (std::memcmp(b, t, 4) == 0)
            return true;
    return false;
}

quint64 TopLevelWalk(BufferedReader &f, MediaSpan &span, bool videoOnlyBranch, const std::atomic<bool> &stop)
{
    const quint64 size = span.fileSize = f.size();
    span.begin = 0;
    span.end = size;
    quint64 p = 0;
    while (p < size && !stop) {
        if (IsSkipTag(f, p + 4)) {
            const quint32 sz = f.be32(p);
            if (!span.fits(p, sz))
                break;
            p += sz;
        } else if (f.tagAt(p + 4, "mdat")) {
            const quint32 sz = f.be32(p);
            const quint64 whole = sz == 1 ? f.be64(p + 8) : sz;
            span.begin = p;
            span.end = whole >= kAtomHeader && whole <= size - p ? p + whole : size;
            if (videoOnlyBranch)
                p += sz == 1 ? 16 : 8;
            else
                p += sz < 2 ? sz + 15 : 8;
        } else {
            break;
        }
    }
    return p;
}

bool IsPadding(BufferedReader &f, quint64 p, int n)
{
    quint8 tmp[kPaddingOuter];
    const quint8 *b = BytesAt(f, p, tmp, size_t(n));
    if (b[0] != 0 && b[0] != 0xFF)
        return false;
    for (int i = 1; i < n; ++i)
        if (b[i] != b[0])
            return false;
    return true;
}

BufferedReader &OpenSplit(CarverArgs &args, RepairState &s, const char *videoFile)
{
    workfiles::EnsureWorkFolderIn(s.strWorkBase);
    if (args.strVideo.isEmpty())
        args.strVideo = workfiles::PathIn(s.strWorkBase, videoFile);
    if (!args.fpVideo) {
        args.fpVideo.reset(new QFile(args.strVideo));
        args.fpVideo->open(QIODevice::ReadWrite);
    }
    args.fpSource.reset(new BufferedReader(audio::kSplitWindow));
    args.fpSource->open(args.strSource);
    s.ullFileSize = args.fpSource->size();
    return *args.fpSource;
}

quint64 AtomStep(BufferedReader &f, const MediaSpan &span, quint64 p)
{
    if (IsSkipTag(f, p + 4) && span.fits(p, f.be32(p)))
        return f.be32(p);
    if (f.tagAt(p + 4, "mdat"))
        return f.be32(p) == 1 ? kAtomHeader + 8 : kAtomHeader;
    return 0;
}

bool WriteAdtsFrame(StreamOut &out, BufferedReader &f, quint64 from, quint64 n, RepairState &s, int variant)
{
    if (!adts::BuildAdtsHeader(s, quint32(n), adts::Variant(variant)))
        return false;
    quint8 h[audio::kAdtsHeaderBytes];
    for (int i = 0; i < audio::kAdtsHeaderBytes; ++i)
        h[i] = quint8(s.nAdtsBytes[i]);
    out.write(h, sizeof h);
    out.copy(f, from, n);
    ++s.carve.soundFrames;
    s.carve.soundBytes += n;
    s.carve.claimedBytes += n;
    return true;
}

bool StreamsFailed(const StreamOut *video, const StreamOut *sound, RepairState &s, const QString &fileName)
{
    const StreamOut *failed = video && video->error() ? video : sound && sound->error() ? sound : nullptr;
    if (!failed)
        return false;
    s.carve.failReason = QStringLiteral("Could not write the carved %1 stream: %2")
                             .arg(failed == video ? QStringLiteral("video") : QStringLiteral("sound"), failed->errorText());
    qWarning().noquote() << s.carve.failReason << "(" << fileName << ")";
    s.carve.fail(outcome::Why::WriteFailed, failed->errorText());
    return true;
}

} // namespace carve
