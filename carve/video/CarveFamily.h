#pragma once
// The carving chains as data. A chain is a line of stages, each calling the
// next as its last act: video harvest of the sample, unique writer, audio
// harvest, unique writer, splitter, mux stage. The rows below say, per
// member, what differs; one routine per stage does the work.

#include <QtGlobal>

namespace mux {
enum class StageId : int;
}

namespace carve {

// The audio harvests of the sample, one per chain.
enum class Learner {
    Aac, HevcAac, Mpeg4Aac, Av1Aac, Ac3, Lpcm, HevcLpcm, Ima, Opus, Mp3, Alaw, Ulaw, HevcAlaw, HevcUlaw, Sowt,
    Twos, HevcTwos, Count
};

// The stages that walk the damaged file.
enum class Splitter {
    H264Aac, HevcAac, Mpeg4Aac, Av1Aac, Ac3, H264Lpcm, HevcLpcm, ImaWav, OpusWav, H264Mp3, AlawWav, UlawWav,
    HevcAlawWav, HevcUlawWav, H264Sowt, H264Twos, HevcTwos, Count
};

// The first-run remux of a file whose index still points at frames.
enum class Finaliser {
    H264Lpcm, H264Aac, H264Mp3, Mpeg4, HevcTwos, HevcAac, HevcLpcm, H264Twos, Aac192, Aac192Opus, H264Sowt, Av1,
    MpegPs, Count
};

struct LearnerRow
{
    Learner id;
    const char *name;
    const char *audioFile;   // work file the harvest creates; nullptr: the splitter does
    bool heads;              // writes "/audio.txt"
    int builtIn;             // 0, 37 (H.264 AAC) or 206 (HEVC AAC) known heads appended
    bool average;            // works out nAvgAudioFrame
    bool timecodeAndMmpu;    // also knows gmhd and the top-level mmpu
    bool thum;               // also knows the top-level thum
    bool lpcmFields;         // version 2 sound description: rate from mdhd, bits and channels from stsd
    bool sowtBits;           // nSoundSampleBits from stsd
    int audioTest;           // where the no-sound test is made: 0 before the walk, 1 after, -1 never
    bool closeAudioFirst;    // closes the audio file before going on
    Splitter next;
};

// What the first run asks of the chunk table, and which units a sample harvest takes.
enum class EntryRule {
    FirstByte, // H.264: the first chunk begins with 00
    HevcLpcm,  // HEVC: every chunk begins like a unit of the LPCM header set
    HevcAac,   // HEVC: the same with the AAC chain's wide set
    Av1Obu,    // AV1: every chunk but the last opens with an OBU header (stco; co64 as H.264)
};

struct CarverRow
{
    const char *name;
    quint32 code;
    bool fullHarvest;    // signatures of every chunk, and the unique lists
    bool indexing;       // writes "/Indexing"
    bool mdatSeenRule;   // a file too short for its mdat and moov isn't searched further
    bool thum;           // knows the top-level "thum"
    bool djiTag;         // notes "DJI." between a trak and its vmhd
    bool countOneAlone;  // a first-run table of one entry is tested by itself
    Finaliser finaliser;
    Learner learner;
    bool hevc = false;                         // "hvcC" and "/video.hevc" in place of "avcC" and "/video.h264"
    EntryRule entryRule = EntryRule::FirstByte;
    bool mpeg4 = false;                        // "esds" and "/video.m4v": object headers, no unit signatures
    bool av1 = false;                          // "/video.Av01", nothing taken from the sample's video
};

const LearnerRow &LearnerOf(Learner id);
// One of the openings built in for samples too short to show them all.
bool IsBuiltInHead(const quint8 *record);
const char *SplitterName(Splitter id);

} // namespace carve
