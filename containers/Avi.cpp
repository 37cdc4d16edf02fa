#include "containers/Avi.h"

#include "containers/ContainerConstants.h"
#include "rebuild/LogReader.h"
#include "rebuild/RebuildOutput.h"
#include "repair/BufferedReader.h"
#include "repair/StageProgress.h"

#include <QFile>
#include <QtDebug>
#include <algorithm>
#include <cstring>
#include <memory>

namespace avi {

namespace {

bool isTag(const quint8 *p, const char *tag) { return std::memcmp(p, tag, 4) == 0; }

bool confirms(BufferedReader &f, quint64 at)
{
    for (const char *t : kConfirmingTags)
        if (f.tagAt(at, t))
            return true;
    return false;
}

// One piece of a stream header in the new file: bytes copied from the found
// header (offset from B), zeros, the stream's type, or a count the chunk scan
// made.
enum class Part : quint8 { Copy, Zeros, Type, VideoChunks, SoundBytes };
struct Piece
{
    Part part;
    quint8 at = 0; // Copy: offset from B
    quint8 len = 0;
};

// How each stream kind is written: its strh fields, the smallest format that
// is written, and its name.
struct StreamRow
{
    const char *type;
    Piece strh[8];
    quint32 minFormat;
    char name[7];
};

const StreamRow kVideoRow{kVids,
                          {{Part::Type},
                           {Part::Copy, 16, 4},  // handler
                           {Part::Zeros, 0, 12}, // flags, priority and language, initial frames
                           {Part::Copy, 32, 12}, // scale, rate, start
                           {Part::VideoChunks},
                           {Part::Copy, 48, 8},  // suggested buffer, quality
                           {Part::Zeros, 0, 8},  // sample size, the frame's left and top
                           {Part::Copy, 64, 4}}, // the 4 bytes where the frame rectangle starts
                          kMinVideoFormat,
                          "Video "};
const StreamRow kSoundRow{kAuds,
                          {{Part::Type},
                           {Part::Copy, 16, 28}, // handler to start
                           {Part::SoundBytes},   // length as a byte count, as players of MP3 expect
                           {Part::Copy, 48, 20}}, // suggested buffer to the frame rectangle
                          1,
                          "Audio "};

constexpr quint64 kStrlFixed = 4 + kChunkHead + kStrhWritten + kChunkHead + kChunkHead + 6; // "strl", strh, strf head, strn
static_assert(kStrlFixed == 90, "a stream list is its format plus 90 bytes");

class LeWriter
{
public:
    explicit LeWriter(QFile &f) : m_out(f) {}
    void tag(const char *t) { m_out.write(t, 4); }
    void u32(quint32 v)
    {
        const quint8 b[4] = {quint8(v), quint8(v >> 8), quint8(v >> 16), quint8(v >> 24)};
        m_out.write(b, 4);
    }
    void zeros(size_t n)
    {
        static const quint8 z[64] = {};
        while (n) {
            const size_t k = std::min(n, sizeof z);
            m_out.write(z, k);
            n -= k;
        }
    }
    void copy(BufferedReader &f, quint64 at, quint64 n, quint8 *buffer, const std::atomic<bool> &stop)
    {
        m_out.copyFrom(f, at, n, buffer, stop);
    }
    rebuild::Output &out() { return m_out; }

private:
    rebuild::Output m_out;
};

quint32 streamListSize(const StreamPlace &p, const StreamRow &row)
{
    // The size counts what is written: a stream whose format is too small has
    // no strf chunk, so its list is 8 bytes shorter.
    const bool hasFormat = p.formatSize >= row.minFormat;
    return quint32(kStrlFixed - kChunkHead + (hasFormat ? kChunkHead + p.formatSize : 0));
}

void writeStream(LeWriter &w, const StreamPlace &p, const StreamRow &row, BufferedReader &header,
                 BufferedReader &format, const ChunkList &chunks, quint8 *buffer, const std::atomic<bool> &stop)
{
    w.tag(kList);
    w.u32(streamListSize(p, row));
    w.tag(kStrl);
    w.tag(kStrh);
    w.u32(kStrhWritten);
    for (const Piece &piece : row.strh) {
        switch (piece.part) {
        case Part::Type: w.tag(row.type); break;
        case Part::Copy: w.copy(header, p.strl + piece.at, piece.len, buffer, stop); break;
        case Part::Zeros: w.zeros(piece.len); break;
        case Part::VideoChunks: w.u32(chunks.videoChunks); break;
        case Part::SoundBytes: w.u32(quint32(chunks.soundBytes)); break;
        }
    }
    if (p.formatSize >= row.minFormat) {
        w.tag(kStrf);
        w.u32(p.formatSize);
        w.copy(format, p.strl + p.strhSize + kFormatAt, p.formatSize, buffer, stop);
    }
    w.tag(kStrn);
    w.u32(6);
    w.out().write(row.name, 6);
}

} // namespace

bool Headers::meets(bool withSound) const
{
    return video.found && video.complete && (!withSound || (sound.found && sound.complete));
}

bool HasSoundChunks(BufferedReader &file, quint64 size, StageProgress *progress)
{
    constexpr quint64 kBlock = 0x10000;
    const quint64 end = std::min<quint64>(size / kSearchShare, file.size());
    for (quint64 pos = 0; pos + 4 <= end;) {
        size_t len = 0;
        const quint8 *p = file.span(pos, &len);
        if (!p)
            break;
        const quint64 n = std::min<quint64>(len, end - pos);
        const quint8 *hit = static_cast<const quint8 *>(memmem(p, size_t(n), kSoundChunk, 4));
        if (hit)
            return true;
        if (progress)
            for (quint64 b = pos / kBlock; b < (pos + n) / kBlock; ++b)
                progress->setValue(kProgressSearch);
        if (pos + n >= end)
            break;
        pos += n - 3; // a tag across the window's edge is seen in the next
    }
    return false;
}

Headers FindHeaders(BufferedReader &file, quint64 size, bool withSound, StageProgress *progress,
                    const std::atomic<bool> &stop)
{
    constexpr quint64 kBlock = 0x100000;
    Headers h;
    const quint64 end = std::min<quint64>(size / kSearchShare, file.size());
    quint64 nextBlock = 0;
    for (quint64 b = 0; b + 4 <= end && !stop; ++b) {
        if (b >= nextBlock) {
            if (progress)
                progress->setValue(kProgressSearch);
            nextBlock += kBlock;
        }
        const quint8 *p = file.peek(b, 12);
        if (!p || !isTag(p, kStrl) || !isTag(p + 4, kStrh))
            continue;
        const quint32 hSize = quint32(p[8]) | quint32(p[9]) << 8 | quint32(p[10]) << 16 | quint32(p[11]) << 24;
        if (std::find(std::begin(kStrhSizes), std::end(kStrhSizes), hSize) == std::end(kStrhSizes))
            continue;
        StreamPlace *place = file.tagAt(b + kStreamTypeAt, kVids)   ? &h.video
                             : file.tagAt(b + kStreamTypeAt, kAuds) ? &h.sound
                                                                    : nullptr;
        const quint64 f = b + hSize;
        if (!place || !file.tagAt(f + kFormatTagAt, kStrf))
            continue;
        const quint32 formatSize = file.le32(f + kFormatSizeAt);
        if (formatSize > file.size() - std::min(file.size(), f + kFormatAt))
            continue; // a format larger than the file holds is no header
        place->found = true;
        place->strl = b;
        place->strhSize = hSize;
        place->formatSize = formatSize;
        place->complete = confirms(file, f + kFormatAt + formatSize);
        if (h.meets(withSound))
            break;
    }
    return h;
}

ChunkList ListChunks(BufferedReader &file, quint64 size, QIODevice &log, RepairLine &cipher, QIODevice &index,
                     StageProgress *progress, const std::atomic<bool> &stop)
{
    ChunkList list;
    list.moviSize = kMovieStart;
    if (progress)
        progress->setRange(qint64(quint32(size)));
    const quint64 end = std::min(size, file.size());
    quint64 total = 0;
    for (quint64 pos = 0; pos + 4 <= end && !stop;) {
        const quint8 *p = file.peek(pos, 4);
        if (!p)
            break;
        // Most bytes start no tag: test the first one cheaply.
        if (p[0] != '0' && p[0] != 'i') {
            ++pos;
            continue;
        }
        if (isTag(p, kIdx1))
            break;
        const bool sound = isTag(p, kSoundChunk);
        if (!sound && !isTag(p, kVideoChunk) && !isTag(p, kVideoChunkRaw)) {
            ++pos;
            continue;
        }
        const quint32 s = file.le32(pos + 4);
        if (std::find(std::begin(kFalseChunkSizes), std::end(kFalseChunkSizes), s) != std::end(kFalseChunkSizes)
            || s >= size / kMaxChunkShare) {
            ++pos;
            continue;
        }
        if (!rebuild::WritePairLine(log, cipher, pos, s))
            list.written = false;
        total += s;
        if (progress)
            progress->setValue(qint64(total));
        quint32 flags = 0;
        if (sound) {
            flags = kKeyFlag;
            ++list.soundChunks;
            list.soundBytes += s;
        } else {
            ++list.videoChunks;
            if (list.videoChunks % kKeyEvery == 1)
                flags = kKeyFlag;
        }
        const quint32 entry[4] = {quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24,
                                  flags, quint32(list.moviSize), s};
        quint8 bytes[kIndexEntry];
        for (int i = 0; i < 4; ++i)
            for (int k = 0; k < 4; ++k)
                bytes[i * 4 + k] = quint8(entry[i] >> (8 * k));
        if (index.write(reinterpret_cast<const char *>(bytes), kIndexEntry) != qint64(kIndexEntry))
            list.written = false;
        list.moviSize += kChunkHead + s + (s & 1);
        pos += kChunkHead + s;
    }
    return list;
}

QString WriteFile(const QString &outPath, const Headers &h, const Sources &from, BufferedReader &media,
                  const ChunkList &chunks, bool withSound, const QString &logPath, const QString &indexPath,
                  const std::atomic<bool> &stop)
{
    const quint64 indexSize = quint64(chunks.videoChunks + chunks.soundChunks) * kIndexEntry;
    const quint32 videoList = streamListSize(h.video, kVideoRow);
    const quint32 soundList = withSound ? streamListSize(h.sound, kSoundRow) : 0;
    // "hdrl", the main header, and a list head per stream.
    const quint32 hdrl = 4 + quint32(kChunkHead) + kAvihSize + quint32(kChunkHead) + videoList
                         + (withSound ? quint32(kChunkHead) + soundList : 0);
    const quint64 riff = 4 + kChunkHead + hdrl + kChunkHead + chunks.moviSize + kChunkHead + indexSize;

    QFile file(outPath);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate))
        return file.errorString();
    LeWriter w(file);
    auto buffer = std::make_unique<quint8[]>(rebuild::kCopyBuffer);

    w.tag(kRiff);
    w.u32(quint32(riff)); // past 4 GB a RIFF size can't say it; players then read to the end
    w.tag(kAviForm);
    w.tag(kList);
    w.u32(hdrl);
    w.tag(kHdrl);
    w.tag(kAvih);
    w.u32(kAvihSize);
    for (quint32 v : {kMicroSecPerFrame, kMaxBytesPerSec, kPaddingGranularity, kAvihFlags, chunks.videoChunks,
                      quint32(0), quint32(withSound ? 2 : 1), kSuggestedBuffer})
        w.u32(v);
    w.copy(*from.videoFormat, h.video.strl + h.video.strhSize + kFrameSizeAt, 8, buffer.get(), stop);
    w.zeros(16);
    writeStream(w, h.video, kVideoRow, *from.videoHeader, *from.videoFormat, chunks, buffer.get(), stop);
    if (withSound)
        writeStream(w, h.sound, kSoundRow, *from.soundHeader, *from.soundFormat, chunks, buffer.get(), stop);
    w.tag(kList);
    w.u32(quint32(chunks.moviSize));
    w.tag(kMovi);

    // The chunks as the scan listed them; an odd one takes its padding byte
    // from the source too.
    rebuild::LogReader log(logPath, rebuild::LineForm::Pair);
    rebuild::Piece piece;
    while (!stop && log.next(piece))
        w.copy(media, piece.offset, kChunkHead + piece.size + (piece.size & 1), buffer.get(), stop);

    QFile index(indexPath);
    if (!stop && index.open(QIODevice::ReadOnly)) {
        w.tag(kIdx1);
        w.u32(quint32(indexSize));
        quint64 left = indexSize;
        while (left) {
            const qint64 n = index.read(reinterpret_cast<char *>(buffer.get()),
                                        qint64(std::min<quint64>(left, rebuild::kCopyBuffer)));
            if (n <= 0)
                break;
            w.out().write(buffer.get(), size_t(n));
            left -= quint64(n);
        }
        if (left)
            w.zeros(size_t(left)); // a short index file: the size above must still hold
    }
    QString error;
    if (w.out().failed())
        error = w.out().errorString();
    file.close();
    if (!error.isEmpty())
        QFile::remove(outPath);
    return error;
}

} // namespace avi
