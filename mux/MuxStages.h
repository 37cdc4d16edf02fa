#pragma once
// The mux stages: each wraps the stream files of one carving chain with
// ffmpeg, choosing among its rows of the command table by what the sample and
// the work files say, and falling back to the picture alone when the sound is
// refused.

#include "mux/MuxTable.h"

namespace mux {

enum class StageId : int {
    H264Aac, HevcAac, Av1, H264Ac3, Ts, H264Alaw, H264Ulaw, HevcAlaw, HevcUlaw, H264Opus, H264Ima,
    H264Sowt, H264Lpcm, HevcLpcm, H264Twos, HevcTwos, H264Mp3, Mpeg4, MpegPs, Mkv,
    Count
};

// How a stage picks its first command.
enum class Choose {
    Always,         // the first row
    SampleHasAudio, // first row with sound, else the video-only row
    NoAudioFlag,    // first row unless bNoAudioForMux
    AudioFileSize,  // first row when the audio work file isn't empty
    Av1,            // empty audio sets bNoAudioForMux; re-encode without sound then
    NeverAudio,     // sets bNoAudioForMux itself and takes the video-only row
};

// What sends a stage to its fallback row after the first command.
enum class Fallback {
    None,
    EmptyOutput,            // output of size 0 (an empty one is removed first) or none
    EmptyOutputVideoNotEmpty, // the same, while the video work file has bytes
};

enum StageFlag : unsigned {
    kSecondTryAtSampleRate = 1u << 0, // also writes "1_" + name at the sample's rate when it is unusual
    kDashTreatment = 1u << 1,         // runs under a name without leading "-" and renames afterwards
    kRsvAsMp4 = 1u << 2,              // an .rsv source gives name.mp4
    kMkvAsMov = 1u << 3,              // an .mkv source gives stem.mov
    kInMuxStageVideoOnly = 1u << 4,   // the video-only run is the long one the stop dialog speaks of
    kPcmDescription = 1u << 5,        // fills {fmt}, {rate}, {ch}
    kClearArgsAfter = 1u << 6,        // empties the first four paths of the record afterwards
    kAudioIsWavPath = 1u << 7,        // the audio is strAudioWavPath
    kProbedFps = 1u << 8,             // the rate is the probe's text, 30 without one
    kLogVideoOnlyExit = 1u << 9,      // the video-only run logs its exit code
};

struct Stage
{
    StageId id;
    const char *name;
    RowId first;
    RowId videoOnly; // RowId::Count: none
    RowId fallback;  // RowId::Count: none
    Choose choose;
    Fallback fallbackWhen;
    unsigned flags;
    QList<const char *> removes; // work files gone after the stage
};

const Stage &StageOf(StageId id);

// Leaves the stream files of a chain in the work folder after the mux, for
// looking into a repair that went wrong (and for tests).
void SetKeepWorkFiles(bool keep);
bool KeepWorkFiles();
// Removes the work files the stage would have removed after its run (unless
// they are to be kept): what a chain leaves when it ends without a mux.
void RemoveWorkFiles(StageId id);
const Stage *StageByName(const QString &name);

} // namespace mux
