#pragma once
// The stages of a carving chain as functions over their inputs: the files of
// CarverArgs, the repair state of the file in hand, the row of their family,
// and a progress interface (the stop flag is the state's). None of them calls
// the next stage or runs ffmpeg: the repair thread drives a chain stage
// after stage by its row, and tests call a stage on a file directly.

#include "carve/video/CarveFamily.h"
#include "carve/video/CarverArgs.h"
#include "repair/StageProgress.h"

#include <QIODevice>

#include <QString>

struct RepairState;
class HeadList;

namespace carve {

using Progress = ::StageProgress;

// What every stage is given besides its files.
struct Env
{
    RepairState &state;
    Progress *progress = nullptr;  // may be null
    QString fileName;              // the damaged file's name, for log lines
    quint64 fileLeft = 0;          // falls by one for each byte a moov search steps over
    // The splitters add the heads learned from the damaged file to the
    // sample's list (off only where a test compares).
    bool learnHeads = true;
    // The plain walk: the head list read from its file record by record in
    // place of the lookup table, every position one at a time, every byte of
    // a unit through the process. Slow; it proves that the quick walk writes
    // the same files.
    bool plainWalk = false;
    // The work log, for splitters that list what they classified; may be null.
    QIODevice *workLog = nullptr;
};

// --- The H.264 carver family ---
const CarverRow &H264CarverRow(quint32 formatCode);
// --- The HEVC twins (FormatCode 6, and 5, 11, 12, 13 with an HEVC sample) ---
const CarverRow &HevcCarverRow(quint32 formatCode);
// --- MPEG-4 Visual (FormatCode 7) ---
const CarverRow &Mpeg4CarverRow();
// --- AV1 (FormatCode 15) ---
const CarverRow &Av1CarverRow();

enum class FirstRun { Remux, Failed };
// The first run, without a sample: does the damaged file's own index point at
// frames (remux it) or not (the user is led to the sample run)?
FirstRun H264FirstRunCheck(const CarverRow &row, CarverArgs &args, Env &env);
// The sample run's first stage: parameter sets, signatures of the units and
// the sample's figures. Leaves the video stream open for the splitter.
void HarvestH264Sample(const CarverRow &row, CarverArgs &args, Env &env);
// The top-level atoms from state.ullScanPos; true at "moov".
bool H264TopLevelWalk(const CarverRow &row, BufferedReader &f, RepairState &s, bool &mdatSeen);

// --- Unique lists ---
// "/videotext.txt" or "/audio.txt" reduced to its distinct records.
void WriteUniqueSequences(bool video, CarverArgs &args, Env &env);

// --- Audio harvests ---
struct Learned
{
    bool toUnique = false; // the head list is to be reduced before the splitter
    Splitter next = Splitter::H264Aac;
};
Learned LearnAudio(Learner id, CarverArgs &args, Env &env);

// --- Splitters ---
struct Split
{
    enum Outcome {
        Muxable,     // the streams are ready for the mux stage
        NotBuilt,    // this member's walk isn't written yet
        Refused,     // the sound can't be framed (no ADTS rate): the file fails
        WriteFailed, // a stream lost bytes on the way to the disk (state.carve says why)
    } outcome = Muxable;
    int withSound = 1; // the branch taken: 1 with sound, 0 video alone
};
bool SplitterBuilt(Splitter id);
// heads: the audio head list to walk; nullptr reads "/AudioUNIQUEfile.txt".
Split SplitStreams(Splitter id, CarverArgs &args, Env &env, HeadList *heads = nullptr);

// --- A program stream under an atom file's name (FormatCode 2) ---
// First run: whether the pack start stands at the first position.
bool MpegPsFirstRun(CarverArgs &args, Env &env);
// Sample run: the payloads of the video and audio packets into two streams.
Split SplitMpegPsInMov(CarverArgs &args, Env &env);

} // namespace carve
