// An MPEG program stream inside what looked like an atom file. The first run
// lets ffmpeg copy it whole; the sample run (the sample isn't read) copies the
// payloads of its video and audio packets into two streams for the muxer.

#include "carve/audio/MediaWalk.h"
#include "carve/audio/StreamOut.h"
#include "carve/video/CarveConstants.h"
#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QFile>

namespace carve {

namespace {
bool startCode(BufferedReader &f, quint64 p, quint8 id)
{
    quint8 t[4];
    const quint8 *b = BytesAt(f, p, t, 4);
    return b[0] == 0 && b[1] == 0 && b[2] == 1 && b[3] == id;
}
} // namespace

bool MpegPsFirstRun(CarverArgs &args, Env &env)
{
    // The pack start is looked for at the first position only: the position
    // never moves, so one look decides. ffmpeg's copy follows either way.
    BufferedReader f;
    env.state.ullScanPos = 0;
    return f.open(args.strSource) && startCode(f, 0, kPackStart);
}

Split SplitMpegPsInMov(CarverArgs &args, Env &env)
{
    RepairState &s = env.state;
    const std::atomic<bool> &stop = s.bStopRepair;
    workfiles::EnsureWorkFolderIn(s.strWorkBase);
    // "/video.hevc" and "/audio.aac", whatever the stream really holds.
    args.strVideo = workfiles::PathIn(s.strWorkBase, workfiles::kVideoHevc);
    args.strAudio = workfiles::PathIn(s.strWorkBase, workfiles::kAudioAac);
    args.fpVideo.reset(new QFile(args.strVideo));
    args.fpVideo->open(QIODevice::ReadWrite | QIODevice::Truncate);
    args.fpAudio.reset(new QFile(args.strAudio));
    args.fpAudio->open(QIODevice::ReadWrite | QIODevice::Truncate);
    BufferedReader f;
    f.open(args.strSource);
    const quint64 size = s.ullFileSize = f.size();
    Split out;
    {
        StreamOut video(args.fpVideo.get(), !env.plainWalk), audio(args.fpAudio.get(), !env.plainWalk);
        // A packet's payload: L - h - 3 bytes from + 9 + h (L the packet length,
        // h the header data length); a packet too short for its header copies nothing.
        auto payload = [&](quint64 p, StreamOut &to) {
            const quint64 L = f.be16(p + 4), h = f.u8(p + 8);
            if (L >= h + 3 && L - h - 3 > 0) {
                to.copy(f, p + 9 + h, qMin<quint64>(L - h - 3, size - qMin(size, p + 9 + h)));
                s.carve.claimedBytes += L - h - 3;
            }
            return p + 6 + L;
        };
        // The stream starts with a pack where the walk found it: the first one,
        // no further in than the atoms in front of it reach.
        quint64 start = 0;
        while (start + 4 <= qMin(size, kPsLook) && !startCode(f, start, kPackStart))
            ++start;
        if (start + 4 <= size && startCode(f, start, kPackStart)) {
            s.bMediaFound = true;
            // The first run of video packets...
            quint64 p = start;
            while (p + 4 <= size && !stop && !startCode(f, p, kVideoPes))
                ++p;
            while (p + 9 <= size && !stop && startCode(f, p, kVideoPes))
                p = payload(p, video);
            // ... and then every packet from the start, that run again among them.
            for (p = start; p + 4 <= size && !stop;) {
                if (startCode(f, p, kVideoPes) && f.be16(p + 4)) {
                    p = payload(p, video);
                    ++s.carve.videoUnits;
                } else if (startCode(f, p, kAudioPes) && f.be16(p + 4)) {
                    p = payload(p, audio);
                    ++s.carve.soundFrames;
                } else if (startCode(f, p, kPackStart)) {
                    for (p += 4; p + 4 <= size && !startCode(f, p, kVideoPes) && !startCode(f, p, kAudioPes); ++p) {
                    }
                } else if (IsPadding(f, p, kPaddingOuter)) {
                    p += kPaddingOuter;
                } else {
                    ++p;
                }
                if (env.progress && size)
                    env.progress->setValue(qint64(qMin(p, size) * 100 / size));
            }
        } else {
            out.outcome = Split::Refused; // no pack start: the stage ends
        }
        s.carve.mediaBytes = size;
        video.detach();
        audio.detach();
        if (video.error() || audio.error()) {
            const StreamOut &bad = video.error() ? video : audio;
            s.carve.fail(outcome::Why::WriteFailed, bad.errorText());
            out.outcome = Split::WriteFailed;
        }
    }
    args.fpVideo.reset();
    args.fpAudio.reset();
    return out;
}

} // namespace carve
