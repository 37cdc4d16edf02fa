// The audio harvests: what a sample teaches about its sound. Seventeen
// members, one walk; each row says what its member reads and writes and
// which stage follows.

#include "carve/audio/AudioConstants.h"
#include "carve/video/CarveConstants.h"
#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QFile>
#include <QSet>

#include <QtDebug>

using namespace carve;

namespace {
using namespace workfiles;

//  id, name, audio file, heads, built-in, average, gmhd+mmpu, thum, lpcm fields, sowt bits, test, close, next
const LearnerRow kLearners[] = {
    {Learner::Aac, "LearnAacHeads", kAudioAac, true, 37, true, false, false, false, false, 0, false, Splitter::H264Aac},
    {Learner::HevcAac, "LearnHevcAacHeads", kAudioAac, true, 206, true, true, false, false, false, 1, false,
     Splitter::HevcAac},
    {Learner::Mpeg4Aac, "LearnMpeg4AacHeads", kAudioAac, true, 0, true, false, false, false, false, 0, false,
     Splitter::Mpeg4Aac},
    {Learner::Av1Aac, "LearnAv1AacHeads", kAudioAac, true, 0, true, false, false, false, false, -1, false,
     Splitter::Av1Aac},
    {Learner::Ac3, "LearnAc3Heads", kAudioAc3, true, 0, false, false, false, false, false, 0, true, Splitter::Ac3},
    {Learner::Lpcm, "LearnLpcmHeads", nullptr, true, 0, false, true, false, true, false, -1, false, Splitter::H264Lpcm},
    {Learner::HevcLpcm, "LearnHevcLpcmHeads", nullptr, true, 0, false, true, false, true, false, -1, false,
     Splitter::HevcLpcm},
    {Learner::Ima, "LearnImaHeads", kAudioWav, true, 0, false, false, false, false, false, 0, false, Splitter::ImaWav},
    {Learner::Opus, "LearnOpusHeads", kAudioWav, true, 0, false, false, false, false, false, 0, false,
     Splitter::OpusWav},
    {Learner::Mp3, "LearnMp3Params", kAudioAac, false, 0, true, false, false, false, false, 0, false, Splitter::H264Mp3},
    {Learner::Alaw, "LearnAlawParams", kAudioWav, false, 0, false, false, false, false, false, 0, false,
     Splitter::AlawWav},
    {Learner::Ulaw, "LearnUlawParams", kAudioWav, false, 0, false, false, false, false, false, 0, false,
     Splitter::UlawWav},
    {Learner::HevcAlaw, "LearnHevcAlawParams", kAudioWav, false, 0, false, false, false, false, false, 0, false,
     Splitter::HevcAlawWav},
    {Learner::HevcUlaw, "LearnHevcUlawParams", kAudioWav, false, 0, false, false, false, false, false, 0, false,
     Splitter::HevcUlawWav},
    {Learner::Sowt, "LearnSowtParams", kAudioWav, false, 0, false, false, true, false, true, 0, false,
     Splitter::H264Sowt},
    {Learner::Twos, "LearnTwosParams", kAudioPcm, false, 0, false, false, false, false, false, 0, false,
     Splitter::H264Twos},
    {Learner::HevcTwos, "LearnHevcTwosParams", kAudioPcm, false, 0, false, false, false, false, false, 0, false,
     Splitter::HevcTwos},
};
static_assert(sizeof kLearners / sizeof kLearners[0] == size_t(Learner::Count), "one row per harvest, in order");

// Common openings of AAC frames, for samples too short to show them all.
const quint8 kH264AacHeads[37][3] = {
    {0x21, 0x4c, 0xc6}, {0x21, 0x4c, 0xd2}, {0x21, 0x2a, 0xd4}, {0x21, 0x4c, 0xcc}, {0x21, 0x4c, 0x9a},
    {0x21, 0x1a, 0xce}, {0x21, 0x1a, 0xcb}, {0x21, 0x1a, 0xcd}, {0x21, 0x4c, 0xda}, {0x21, 0x4c, 0x6c},
    {0x20, 0x8c, 0x2a}, {0x20, 0x83, 0x4c}, {0x20, 0x84, 0x4c}, {0x20, 0x91, 0x7a}, {0x21, 0x4c, 0xd8},
    {0x20, 0x98, 0x7a}, {0x20, 0x98, 0x1a}, {0x20, 0x90, 0x2a}, {0x20, 0x8f, 0x4c}, {0x20, 0x99, 0x2a},
    {0x20, 0x95, 0x2a}, {0x20, 0x91, 0x4c}, {0x20, 0x99, 0x7a}, {0x20, 0x94, 0x4c}, {0x20, 0x97, 0x1a},
    {0x20, 0xa2, 0x7a}, {0x20, 0xa5, 0x1a}, {0x21, 0x7a, 0xd5}, {0x20, 0x8e, 0x2a}, {0x20, 0x86, 0x4c},
    {0x20, 0x90, 0x7a}, {0x20, 0x8c, 0x7a}, {0x20, 0x8a, 0x4c}, {0x20, 0x89, 0x4c}, {0x20, 0x88, 0x4c},
    {0x21, 0x2a, 0xcb}, {0x20, 0x92, 0x4c},
};

const char kHevcAacHeadsHex[] =
    "212003214eeb216c0f210c0f212c14214ed7216c14210c0e210c0c214eef216c08210c0b214eb7210c08210c0a210c09214e9f"
    "214ee6214ef6214e6e214efa214efd214ef7214efb214edf214ef9214e7e214eff214ebf214e7f216c09214ef3214e7b214e96"
    "214ee9216c0c214ed3214ede214edb214ed6216c0e212c0d214ef4214eda214e2f214ebc214ef2212c0c214e5f210c15212c0e"
    "212c0f214ed4214e97214e6f214ebe214efc214eae214eee212c08214e4e213000214e77013237013657011e9b011c9a012ef7"
    "011e37011237010c5701229b0136f7013837013a37013437013457011a9b0132f7013037012e37012c37012837010012012a57"
    "01209b013637012637015880014237013e3701385701129a013af7014037012237012437012a37011c37012037012e57012cf7"
    "011a37011c5701069b010a9a011ef70116370114370110370126570122f7012c5701447401a653011837012457011a9a012af7"
    "01109b0132570134f7011c9b010c9b011e5701149b01225701169b0126f70138f701145701049b01109a0130f7011a9d0130f9"
    "012639012e39012a5901169d0122f9012a3901283901223901303901285901149d01243901265901129d0124f9012e5901109d"
    "012af9012059010c9d01109c01165901169c011859010a9d011cf9011e9c0126f9011e59011ef9011a59010e9d0110590116f9"
    "012c39010c9c011c59011af901069c0110f90112590114f9012259010e5900f89c01065901069d010e9c01049d01089c01009d"
    "01149c0120f900fe9c012cf901189d012ef9010a9c01209d010c590104f90104590108f9010859010ef900fe9d0106f9011e9d"
    "011a9c013af9";

QByteArray builtInHeads(int count)
{
    if (count == 37)
        return QByteArray(reinterpret_cast<const char *>(kH264AacHeads), sizeof kH264AacHeads);
    return QByteArray::fromHex(QByteArray(kHevcAacHeadsHex));
}
} // namespace

namespace carve {
const LearnerRow &LearnerOf(Learner id) { return kLearners[int(id)]; }

bool IsBuiltInHead(const quint8 *r)
{
    static const QSet<quint32> kBuiltIn = [] {
        QSet<quint32> set;
        for (int count : {37, 206}) {
            const QByteArray heads = builtInHeads(count);
            for (int i = 0; i + 3 <= heads.size(); i += 3)
                set.insert(quint32(quint8(heads[i])) << 16 | quint32(quint8(heads[i + 1])) << 8 | quint8(heads[i + 2]));
        }
        return set;
    }();
    return kBuiltIn.contains(quint32(r[0]) << 16 | quint32(r[1]) << 8 | r[2]);
}

Learned LearnAudio(Learner id, CarverArgs &args, Env &env)
{
    const LearnerRow &row = LearnerOf(id);
    RepairState &s = env.state;
    s.bMuxedResult = s.bMuxStageRan = s.bListMuxedFiles = true;
    args.fpSample.reset(new BufferedReader);
    const bool opened = args.fpSample->open(args.strSample);
    BufferedReader &f = *args.fpSample;
    s.ullFileSize = env.fileLeft = f.size();
    workfiles::EnsureWorkFolderIn(s.strWorkBase);
    if (row.audioFile) {
        args.strAudio = workfiles::PathIn(s.strWorkBase, row.audioFile);
        args.fpAudio.reset(new QFile(args.strAudio));
        args.fpAudio->open(QIODevice::ReadWrite | QIODevice::Truncate);
    }
    args.strAudioHeads = workfiles::PathIn(s.strWorkBase, workfiles::kAudioHeads);
    QFile *heads = nullptr;
    if (row.heads) {
        args.fpAudioHeads.reset(new QFile(args.strAudioHeads));
        args.fpAudioHeads->open(QIODevice::ReadWrite | QIODevice::Truncate);
        heads = args.fpAudioHeads.get();
    }

    auto finish = [&](bool toUnique) {
        args.fpSample.reset();
        args.fpAudioHeads.reset();
        if (row.closeAudioFirst)
            args.fpAudio.reset();
        Learned next;
        next.toUnique = toUnique && row.heads;
        next.next = row.next;
        return next;
    };
    if (row.audioTest == 0 && !s.bSampleHasAudio)
        return finish(false); // no sound track: straight to the splitter
    if (!opened)
        return finish(true);

    quint64 &P = s.ullScanPos;
    P = 4;
    while (!s.bStopRepair) {
        quint64 size = 0;
        bool isMdat = false;
        for (const char *t : {"ftyp", "free", "meta", "wide", "uuid", "frea", "skip"})
            if (f.tagAt(P, t))
                size = f.be32(P - 4);
        if (row.timecodeAndMmpu && f.tagAt(P, "mmpu"))
            size = s.nTopAtomSize = f.be32(P - 4);
        if (row.thum && f.tagAt(P, "thum"))
            size = f.be32(P - 4);
        if (f.tagAt(P, "mdat")) {
            isMdat = true;
            size = f.be32(P - 4);
            if (size == 1)
                size = f.be64(P + 4);
        }
        if (f.tagAt(P, "moov")) {
            s.ullMoovPos = P;
            s.nMoovSize = f.be32(P - 4);
            // Tag by tag through the moov; mdat sends the walk back to the top.
            for (; P < s.ullFileSize && !s.bStopRepair; ++P, --env.fileLeft) {
                if (f.tagAt(P, "mdat"))
                    break;
                if (f.tagAt(P, "trak")) {
                    s.nTrakLeft = f.be32(P - 4);
                    s.ullTrakPos = P;
                    for (quint64 q = P; q < s.ullFileSize && s.nTrakLeft > 0; ++q, --s.nTrakLeft) {
                        if (f.tagAt(q, "vmhd")) {
                            s.bInVideoTrak = true;
                            s.bInSoundTrak = false;
                            break;
                        }
                        if (f.tagAt(q, "smhd")) {
                            s.bInSoundTrak = true;
                            s.bInVideoTrak = false;
                            break;
                        }
                        if (row.timecodeAndMmpu && f.tagAt(q, "gmhd")) {
                            s.bInTimecodeTrak = true;
                            s.bInVideoTrak = s.bInSoundTrak = false;
                            break;
                        }
                    }
                    continue;
                }
                if (f.tagAt(P, "stts")) {
                    (void)f.be32(P + 16);
                    continue;
                }
                if (s.bInVideoTrak) {
                    if (f.tagAt(P, "stsc"))
                        s.bInVideoTrak = false;
                    continue;
                }
                if (!s.bInSoundTrak)
                    continue;
                s.bSampleHasAudio = true;
                if (f.tagAt(P, "stsd")) {
                    if (row.lpcmFields) {
                        s.nSoundBits = f.be32(P + 68);
                        s.nSoundChannels = f.be16(P + 62);
                    } else {
                        s.nSoundChannels = f.be32(P + 34);
                        s.nSoundSampleRate = f.be32(P + 42);
                    }
                    if (row.sowtBits)
                        s.nSoundSampleBits = f.be16(P + 38);
                } else if (row.lpcmFields && f.tagAt(P, "mdhd")) {
                    s.nSoundSampleRate = f.be32(P + 16);
                } else if (row.average && f.tagAt(P, "stsz")) {
                    const quint32 count = f.be32(P + 12);
                    if (count != 0) {
                        // From tag + 4: the version word, the fixed size and the count
                        // are summed in and the last three entries left out. Kept: the
                        // mean only stands in for a length that makes no sense.
                        quint64 sum = 0;
                        const quint64 words = qMin<quint64>(count, (s.ullFileSize - qMin(P, s.ullFileSize)) / 4 + 1);
                        for (quint64 k = 0; k < words; ++k)
                            sum += f.be32(P + 4 + 4 * k);
                        s.nAvgAudioFrame = sum / count;
                    }
                } else if (f.tagAt(P, "stco") || f.tagAt(P, "co64")) {
                    const bool co64 = f.tagAt(P, "co64");
                    s.nAudioChunks = f.be32(P + 8);
                    const int entry = co64 ? 8 : 4;
                    const quint64 table = P + 12;
                    const quint64 count =
                        qMin<quint64>(s.nAudioChunks, (s.ullFileSize - qMin(table, s.ullFileSize)) / entry);
                    if (heads) {
                        QByteArray recs;
                        for (quint64 k = 0; k < count; ++k) {
                            const quint64 off = co64 ? f.be64(table + k * 8) : f.be32(table + k * 4);
                            quint8 b[3];
                            f.readAt(off, b, 3);
                            recs.append(reinterpret_cast<const char *>(b), 3);
                        }
                        if (row.builtIn)
                            recs += builtInHeads(row.builtIn);
                        heads->write(recs);
                    }
                    s.bInSoundTrak = false;
                }
            }
            if (P >= s.ullFileSize || s.bStopRepair)
                break;
            continue; // back at the top level, at the mdat that ended the search
        }
        if (!isMdat && size == 0)
            break;
        // An atom that would run past the end of the sample is no atom here.
        if (size < carve::kAtomHeader || P < 4 || size > s.ullFileSize - qMin<quint64>(s.ullFileSize, P - 4))
            break;
        P += size;
    }
    if (row.audioTest == 1 && !s.bSampleHasAudio)
        return finish(false);
    return finish(true);
}

} // namespace carve
