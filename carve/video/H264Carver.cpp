// The H.264 and HEVC carver family: the first-run check of a damaged file,
// and the harvest of a sample (parameter sets and the first bytes of its NAL
// units). Fifteen members share this code; their differences are the rows below.

#include "carve/video/CarveConstants.h"
#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QFileInfo>
#include <cstring>
#include <QtDebug>

using namespace carve;

namespace {

//   name                     code full  index mdat  thum  dji   one   finaliser              learner
const CarverRow kH264Carvers[] = {
    {"CarveH264WithAac", 0, true, true, true, false, true, true, Finaliser::H264Aac, Learner::Aac},
    {"CarveH264WithSowtPcm", 1, false, false, true, true, false, false, Finaliser::H264Sowt, Learner::Sowt},
    {"CarveH264WithMp3", 4, false, false, true, false, false, false, Finaliser::H264Mp3, Learner::Mp3},
    {"CarveH264WithTwosPcm", 5, false, false, false, false, false, false, Finaliser::H264Twos, Learner::Twos},
    {"CarveH264WithAc3", 8, true, false, true, false, false, false, Finaliser::Aac192, Learner::Ac3},
    {"CarveH264WithImaAdpcm", 9, true, true, true, false, false, false, Finaliser::Aac192, Learner::Ima},
    {"CarveH264WithOpus", 10, true, false, true, false, false, false, Finaliser::Aac192Opus, Learner::Opus},
    {"CarveH264WithAlaw", 11, false, false, true, false, false, false, Finaliser::Aac192, Learner::Alaw},
    {"CarveH264WithLpcm", 12, true, true, false, false, false, false, Finaliser::H264Lpcm, Learner::Lpcm},
    {"CarveH264WithUlaw", 13, false, false, true, false, false, false, Finaliser::Aac192Opus, Learner::Ulaw},
};

// The HEVC twins keep their H.264 twin's particulars where nothing replaces them.
//   name                     code full  index mdat  thum  dji   one   finaliser              learner
const CarverRow kHevcCarvers[] = {
    {"CarveHevcWithAac", 6, true, true, true, false, false, false, Finaliser::HevcAac, Learner::HevcAac, true,
     EntryRule::HevcAac},
    {"CarveHevcWithTwosPcm", 5, false, false, false, false, false, false, Finaliser::HevcTwos, Learner::HevcTwos, true},
    {"CarveHevcWithAlaw", 11, false, false, true, false, false, false, Finaliser::Aac192Opus, Learner::HevcAlaw, true},
    {"CarveHevcWithLpcm", 12, true, true, false, false, false, false, Finaliser::HevcLpcm, Learner::HevcLpcm, true,
     EntryRule::HevcLpcm},
    {"CarveHevcWithUlaw", 13, false, false, true, false, false, false, Finaliser::Aac192, Learner::HevcUlaw, true},
};

// MPEG-4 Visual frames carry start codes: the sample gives only its object headers.
const CarverRow kMpeg4Carver = {"CarveMpeg4Video", 7, false, false, true, false, false, false, Finaliser::Mpeg4,
                                Learner::Mpeg4Aac, false, EntryRule::FirstByte, true};

const CarverRow kAv1Carver = {"CarveAv1Video", 15, false, false, true, false, false, false, Finaliser::Av1,
                              Learner::Av1Aac, false, EntryRule::Av1Obu, false, true};

// The header bytes (b4) of the HEVC first-run rule; the AAC set also takes 00 01.
bool hevcEntryOpens(EntryRule rule, const quint8 *b)
{
    static const NalSet kLpcm{0x02, 0x10, 0x12, 0x26, 0x28, 0x2A, 0x46, 0x4E};
    // A wide set that mixes in H.264 header values.
    static const NalSet kAac = NalSet{0x01, 0x02, 0x06, 0x21, 0x25, 0x26, 0x27, 0x28, 0x40, 0x41, 0x42, 0x44, 0x46,
                                      0x4E, 0x61, 0x65, 0x68}.b5Between({0x00}, 1, 1);
    const NalSet &set = rule == EntryRule::HevcLpcm ? kLpcm : kAac;
    return b[0] == 0 && set.member[b[4]] && b[5] >= set.b5Low[b[4]] && b[5] <= set.b5High[b[4]];
}

// A unit the HEVC harvest takes (b: 7 bytes, b6 the first payload byte). The
// LPCM set wants b5 and b6 non-zero (46: b5 only, but b6 too for a chunk's
// first unit); the AAC set is as wide as its first-run rule.
bool hevcHarvestUnit(EntryRule rule, const quint8 *b, bool chunkFirst)
{
    if (b[0] == 0 && b[1] == 0 && b[2] == 0 && b[3] == 2 && b[4] == kAudHeader)
        return true;
    if (rule == EntryRule::HevcAac)
        return hevcEntryOpens(rule, b);
    if (b[0] != 0)
        return false;
    switch (b[4]) {
    case 0x02: case 0x10: case 0x12: case 0x26: case 0x28: case 0x2A: case 0x4E: return b[5] != 0 && b[6] != 0;
    case 0x46: return b[5] != 0 && (!chunkFirst || b[6] != 0);
    default: return false;
    }
}

bool isLeadTag(BufferedReader &f, quint64 p)
{
    for (const char *t : {"ftyp", "free", "meta", "wide", "uuid"})
        if (f.tagAt(p, t))
            return true;
    return false;
}

QFile *openWork(std::unique_ptr<QFile> &slot, const QString &path)
{
    slot.reset(new QFile(path));
    slot->open(QIODevice::ReadWrite | QIODevice::Truncate);
    return slot.get();
}
} // namespace

namespace carve {

const CarverRow &H264CarverRow(quint32 code)
{
    for (const CarverRow &r : kH264Carvers)
        if (r.code == code)
            return r;
    return kH264Carvers[0];
}

const CarverRow &Mpeg4CarverRow() { return kMpeg4Carver; }
const CarverRow &Av1CarverRow() { return kAv1Carver; }

const CarverRow &HevcCarverRow(quint32 code)
{
    for (const CarverRow &r : kHevcCarvers)
        if (r.code == code)
            return r;
    return kHevcCarvers[0];
}


// The top-level walk shared by both modes. Returns true on "moov" (ullScanPos
// at its tag), false when the walk fails: unknown tag, zero size, or a stop.
bool H264TopLevelWalk(const CarverRow &row, BufferedReader &f, RepairState &s, bool &mdatSeen)
{
    while (!s.bStopRepair) {
        const quint64 p = s.ullScanPos;
        quint64 size = 0;
        if (isLeadTag(f, p)) {
            s.nLeadAtomSize = f.be32(p - 4);
            size = s.nLeadAtomSize;
        } else if (f.tagAt(p, "frea")) {
            size = s.nFreaAtomSize = f.be32(p - 4);
        } else if (f.tagAt(p, "skip")) {
            size = s.nSkipAtomSize = f.be32(p - 4);
        } else if (f.tagAt(p, "beam")) {
            size = s.nBeamAtomSize = f.be32(p - 4);
        } else if (row.thum && f.tagAt(p, "thum")) {
            size = f.be32(p - 4);
        } else if (f.tagAt(p, "mdat")) {
            s.ullMdatSize = f.be32(p - 4);
            if (s.ullMdatSize == 1)
                s.ullMdatSize = f.be64(p + 4);
            size = s.ullMdatSize;
            mdatSeen = true;
        } else if (f.tagAt(p, "moov")) {
            return true;
        } else {
            return false;
        }
        // An atom that would run past the end of the file is no atom here.
        if (size < carve::kAtomHeader || p < 4 || size > f.size() - qMin(f.size(), p - 4))
            return false;
        s.ullScanPos = p + size;
    }
    return false;
}

FirstRun H264FirstRunCheck(const CarverRow &row, CarverArgs &args, Env &env)
{
    RepairState &s = env.state;
    s.bInSoundTrak = false;
    const QString workDir = workfiles::EnsureWorkFolderIn(s.strWorkBase);
    s.lstMuxedFiles << workDir + "/" + env.fileName;
    args.fpSample.reset(new BufferedReader);
    args.fpSample->open(args.strSource);
    BufferedReader &f = *args.fpSample;
    s.ullFileSize = env.fileLeft = f.size();
    s.ullScanPos = 4;

    auto fail = [&] {
        args.fpSample.reset();
        s.bMoovParsed = false;
        s.bCarveFailed = true;
        s.bKeepLogHandle = true;
        return FirstRun::Failed;
    };
    auto remux = [&] {
        args.fpSample.reset();
        return FirstRun::Remux;
    };

    bool mdatSeen = false;
    // The walk comes back here after a chunk table that can't decide, and then
    // fails on what it finds inside the moov.
    while (!s.bStopRepair && H264TopLevelWalk(row, f, s, mdatSeen)) {
        s.ullMoovPos = s.ullScanPos;
        s.nMoovSize = f.be32(s.ullScanPos - 4);
        quint64 &P = s.ullScanPos;
        bool tableMet = false;
        for (; P < s.ullFileSize && !s.bStopRepair; ++P, --env.fileLeft) {
            // A file cut short is not searched further.
            if (row.mdatSeenRule && mdatSeen && quint64(s.nMoovSize) + s.ullMdatSize > s.ullFileSize)
                break;
            if (f.tagAt(P, "trak")) {
                s.nTrakLeft = f.be32(P - 4);
                s.ullTrakPos = P;
                for (quint64 q = P; q < s.ullFileSize; ++q) {
                    if (f.tagAt(q, "vmhd")) {
                        s.bInVideoTrak = true;
                        break;
                    }
                }
                continue;
            }
            if (!s.bInVideoTrak)
                continue;
            const bool co64 = f.tagAt(P, "co64");
            if (!co64 && !f.tagAt(P, "stco"))
                continue;
            // The chunk table: does its first chunk begin like a length prefix?
            s.nChunkCount = f.be32(P + 8);
            if (row.entryRule == EntryRule::Av1Obu && !co64) {
                // AV1: one byte an entry, every entry but the last an OBU header
                // (sequence header, temporal delimiter, frame header, frame).
                // A count of 0 passes at once; 1 leaves the table undecided.
                if (s.nChunkCount == 1) {
                    tableMet = true;
                    break;
                }
                // A table longer than the file reads zeros past it, and fails there.
                const quint64 count = qMin<quint64>(s.nChunkCount, (s.ullFileSize - qMin(P + 12, s.ullFileSize)) / 4 + 2);
                for (quint64 i = 0; i + 1 < count && !s.bStopRepair; ++i) {
                    switch (f.u8(f.be32(P + 12 + 4 * i))) {
                    case 0x0A: case 0x12: case 0x1A: case 0x32: continue;
                    default: return fail();
                    }
                }
                s.bSampleHasAudio = true;
                return remux();
            }
            if (row.entryRule == EntryRule::HevcLpcm || row.entryRule == EntryRule::HevcAac) {
                // HEVC with signatures: every chunk must open like a unit. The
                // walk steps 4 bytes an entry, in a co64 too (whose entries are
                // 8 bytes wide), as it always has. Reading an entry again
                // gives the same bytes, so one read decides it.
                const quint64 count = qMin<quint64>(s.nChunkCount, (s.ullFileSize - qMin(P + 12, s.ullFileSize)) / 4 + 1);
                for (quint64 i = 0; i < count && !s.bStopRepair; ++i) {
                    const quint64 at = P + 12 + 4 * i;
                    const quint64 chunk = co64 ? f.be64(at) : f.be32(at);
                    quint8 b[6];
                    f.readAt(chunk, b, 6);
                    if (b[0] != 0 || !hevcEntryOpens(row.entryRule, b))
                        return fail();
                }
                if (count == 0)
                    return fail();
                s.bSampleHasAudio = true;
                return remux();
            }
            const quint64 first = co64 ? f.be64(P + 12) : f.be32(P + 12);
            if (s.nChunkCount < 2 && !(row.countOneAlone && s.nChunkCount == 1)) {
                tableMet = true;
                break;
            }
            s.bSampleHasAudio = false;
            if (f.u8(first) != 0)
                return fail();
            // On the second entry (read 4 bytes on, also in a co64, as it always
            // was; its value decides nothing) the index is taken as usable.
            s.bSampleHasAudio = true;
            return remux();
        }
        if (!tableMet)
            break;
        // A table under two entries: the walk goes on from here, and fails.
    }
    return fail();
}

void HarvestH264Sample(const CarverRow &row, CarverArgs &args, Env &env)
{
    RepairState &s = env.state;
    const QString workDir = workfiles::EnsureWorkFolderIn(s.strWorkBase);
    s.lstMuxedFiles << workDir + "/" + env.fileName;
    args.fpSample.reset(new BufferedReader);
    const bool opened = args.fpSample->open(args.strSample);
    BufferedReader &f = *args.fpSample;
    s.ullFileSize = env.fileLeft = f.size();
    args.strVideo = workfiles::PathIn(s.strWorkBase, row.av1     ? workfiles::kVideoAv1
                                                  : row.mpeg4 ? workfiles::kVideoM4v
                                                  : row.hevc  ? workfiles::kVideoHevc
                                                              : workfiles::kVideoH264);
    args.strVideoHeads = workfiles::PathIn(s.strWorkBase, workfiles::kVideoHeads);
    args.strIndexing = workfiles::PathIn(s.strWorkBase, workfiles::kIndexing);
    QFile *video = openWork(args.fpVideo, args.strVideo);
    QFile *heads = openWork(args.fpVideoHeads, args.strVideoHeads);
    std::unique_ptr<QFile> indexingSlot;
    QFile *indexing = row.indexing ? openWork(indexingSlot, args.strIndexing) : nullptr;

    const NalSet &nalLike = HarvestNalSet();
    auto record = [&](quint64 at) {
        quint8 b[3];
        f.readAt(at, b, 3);
        heads->write(reinterpret_cast<const char *>(b), 3);
    };
    auto isNalLike = [&](quint64 at, bool chunkFirst) {
        quint8 b[7];
        f.readAt(at, b, 7);
        return row.hevc ? hevcHarvestUnit(row.entryRule, b, chunkFirst) : nalLike.test(b);
    };
    const QByteArray startCode(reinterpret_cast<const char *>(kStartCode), 4);
    // MPEG-4's object headers from the "esds": the sequence start without its
    // profile byte (dropped, as it always was), the visual object start up to
    // the 00 00 of the start code behind it, and from a video object layer
    // start up to "stts" (the descriptor's tail and the atoms behind come
    // along; decoders pass over them).
    auto find = [&](quint64 from, quint64 end, const char *bytes, int n) {
        for (quint64 q = from; q + quint64(n) <= end; ++q) {
            quint8 b[4];
            f.readAt(q, b, size_t(n));
            if (std::memcmp(b, bytes, size_t(n)) == 0)
                return q;
        }
        return end;
    };
    auto esdsHead = [&](quint64 stsd) {
        const quint64 end = qMin(s.ullFileSize, stsd + kEsdsSearch);
        QByteArray head;
        const quint64 esds = find(stsd, end, "esds", 4);
        const quint64 seq = find(esds, end, "\0\0\1\xB0", 4);
        if (seq >= end)
            return head;
        head.append("\0\0\1\xB0", 4);
        const quint64 b = find(seq + 5, end, "\0\0\1\xB5", 4);
        const quint64 e = find(b, end, "\1\0", 2);
        if (b >= end || e >= end)
            return head;
        QByteArray part(int(e - b), '\0');
        f.readAt(b, part.data(), size_t(part.size()));
        head += part;
        if (f.be32(e + 2) == 0x00000120) {
            const quint64 stts = find(e + 2, end, "stts", 4);
            if (stts < end && stts >= e + 6) {
                QByteArray vol(int(stts - 4 - (e + 2)), '\0');
                f.readAt(e + 2, vol.data(), size_t(vol.size()));
                head += vol;
            }
        }
        return head;
    };
    // HEVC's configuration: a single VPS in the first array, then the first
    // SPS and PPS found by their array openings (A1/21, A2/22).
    auto hvcC = [&](quint64 q) {
        const quint64 end = qMin(s.ullFileSize, q + kHvcCSearch);
        QByteArray head;
        quint64 p = q + kHvcCArrays;
        if ((f.u8(p) == 0xA0 || f.u8(p) == 0x20) && f.be16(p + 1) == 1) {
            const quint16 len = f.be16(p + 3);
            QByteArray vps(len, '\0');
            f.readAt(p + 5, vps.data(), len);
            head = startCode + vps;
            p += 5 + len;
        }
        const int lastSet = head.size(); // where the SPS goes: behind the VPS
        for (; p + 5 <= end; ++p) {
            const quint8 type = f.u8(p);
            const quint16 count = f.be16(p + 1);
            const bool sps = (type == 0xA1 && (count == 1 || count == 2)) || (type == 0x21 && count == 1);
            const bool pps = (type == 0xA2 && (count == 1 || count == 2)) || (type == 0x22 && count == 1);
            if (!sps && !pps)
                continue;
            const quint16 len = f.be16(p + 3);
            QByteArray unit(len, '\0');
            f.readAt(p + 5, unit.data(), len);
            if (sps) {
                // Over whatever stood behind the parameter set before it.
                head = head.left(lastSet) + startCode + unit;
                p += 5 + len - 2; // on at one byte before the end of what was copied
                continue;
            }
            head += startCode + unit;
            break;
        }
        return head;
    };

    bool mdatSeen = false;
    s.ullScanPos = 4;
    while (opened && !s.bStopRepair && H264TopLevelWalk(row, f, s, mdatSeen)) {
        s.ullMoovPos = s.ullScanPos;
        s.nMoovSize = f.be32(s.ullScanPos - 4);
        quint64 &P = s.ullScanPos;
        bool tableDone = false;
        for (; P < s.ullFileSize && !s.bStopRepair && !tableDone; ++P, --env.fileLeft) {
            if (f.tagAt(P, "mvhd")) {
                s.nSampleTimeScale = f.be32(P + 16);
                s.nSampleDuration = f.be32(P + 20);
            } else if (f.tagAt(P, "trak")) {
                s.nTrakLeft = f.be32(P - 4);
                s.ullTrakPos = P;
                // Bounded by the end of the file (a last trak without vmhd would
                // otherwise keep the run searching until the user stops it).
                for (quint64 q = P; q < s.ullFileSize && !s.bStopRepair; ++q) {
                    if (row.djiTag && f.tagAt(q, "DJI."))
                        s.bSampleHasDjiTag = true;
                    if (f.tagAt(q, "vmhd")) {
                        s.bInVideoTrak = true;
                        P = s.ullTrakPos + 4; // read the track again, now knowing its kind
                        break;
                    }
                }
            } else if (s.bInVideoTrak && f.tagAt(P, "stsz")) {
                s.nSampleFrames = f.be32(P + 12);
            } else if (s.bInVideoTrak && row.av1 && f.tagAt(P, "stsd")) {
                // Nothing of AV1's configuration is taken.
            } else if (s.bInVideoTrak && row.mpeg4 && f.tagAt(P, "stsd")) {
                video->seek(0);
                video->write(esdsHead(P));
            } else if (s.bInVideoTrak && row.hevc && f.tagAt(P, "stsd")) {
                quint64 q = P;
                while (q < s.ullFileSize && !f.tagAt(q, "hvcC"))
                    ++q;
                if (q < s.ullFileSize) {
                    const QByteArray head = hvcC(q);
                    video->seek(0);
                    video->write(head);
                    if (indexing)
                        indexing->write(head);
                }
            } else if (s.bInVideoTrak && f.tagAt(P, "stsd")) {
                // The decoder configuration: first SPS and first PPS of avcC.
                quint64 q = P;
                while (q < s.ullFileSize && !f.tagAt(q, "avcC"))
                    ++q;
                if (q < s.ullFileSize) {
                    const quint16 spsLen = f.be16(q + 10);
                    QByteArray sps(spsLen, '\0');
                    f.readAt(q + 12, sps.data(), spsLen);
                    const quint16 ppsLen = f.be16(q + 12 + spsLen + 1);
                    QByteArray pps(ppsLen, '\0');
                    f.readAt(q + 12 + spsLen + 3, pps.data(), ppsLen);
                    const QByteArray start(reinterpret_cast<const char *>(kStartCode), 4);
                    const QByteArray head = start + sps + start + pps;
                    video->seek(0);
                    video->write(head);
                    if (indexing)
                        indexing->write(head);
                }
            } else if (s.bInVideoTrak && (row.mpeg4 || row.av1) && (f.tagAt(P, "stco") || f.tagAt(P, "co64"))) {
                // No signatures of video in this chain: the table ends the search.
                s.bInVideoTrak = false;
                tableDone = true;
            } else if (s.bInVideoTrak && (f.tagAt(P, "stco") || f.tagAt(P, "co64"))) {
                const bool co64 = f.tagAt(P, "co64");
                s.nChunkCount = f.be32(P + 8);
                const quint64 table = P + 12;
                const int entryBytes = co64 ? 8 : 4;
                quint32 count = s.nChunkCount;
                if (row.fullHarvest && !(count == 1 && !co64)) { // a one-entry stco yields nothing: kept
                    // The table is the sample's own: bound it by the sample's size.
                    count = quint32(qMin<quint64>(count, (s.ullFileSize - qMin(table, s.ullFileSize)) / entryBytes));
                    // The HEVC walk compares its counter with the count less one:
                    // the last entry ends the table.
                    if (row.hevc && count > 0)
                        --count;
                    quint32 read = 0;
                    for (quint32 i = 0; i < count; ++i) {
                        const quint64 off = co64 ? f.be64(table + quint64(i) * 8) : f.be32(table + quint64(i) * 4);
                        if (off == 0)
                            continue;
                        if (isNalLike(off, true))
                            record(off + 4);
                        if (read++ < 1) {
                            // Walk the NAL chain of the first chunk.
                            quint64 c = off;
                            bool zeroEnd = false;
                            for (int guard = 0; guard < 1 << 20; ++guard) {
                                const quint32 L = f.be32(c);
                                const quint64 n = c + 4 + L;
                                s.ullNextNalPos = n;
                                if (L == 0) {
                                    zeroEnd = true;
                                    break;
                                }
                                record(c + 4);
                                if (!isNalLike(n, false))
                                    break; // the last unit of the run has counted too
                                c = n;
                            }
                            // The walk sets the index back to the second entry; one that
                            // ended on a zero length leaves the last entry out.
                            if (count >= 2) {
                                i = 0;
                                if (zeroEnd)
                                    --count;
                            }
                        }
                    }
                }
                s.bInVideoTrak = false;
                P += 1;
                tableDone = true;
            }
        }
        if (!tableDone)
            break;
        // The walk takes up behind the table and finds no tag there: the end.
    }
    args.fpSample.reset();
    args.fpVideoHeads.reset();
    indexingSlot.reset();
    video->flush();
    // The video file stays open: the splitter appends the frames.
}

} // namespace carve
