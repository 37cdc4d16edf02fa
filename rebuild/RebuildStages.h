#pragma once
// The rebuild of a MOV file from the pieces of media data that scanners
// listed in the work log: an ftyp, one mdat holding the pieces in log order,
// and a moov whose sample tables are worked out from the log.
//
// The stages are functions over their inputs (the damaged file, the log, the
// output, the repair state of the file in hand) and a progress interface; the
// stop flag is the state's. The repair thread's members of the same names
// only hand them the thread's members.

#include "repair/StageProgress.h"

#include <QFile>
#include <QList>
#include <QString>
#include <memory>

struct RepairState;
class BufferedReader;

namespace rebuild {

class PlacedPieces;
using Progress = ::StageProgress;

struct Env
{
    RepairState &state;
    BufferedReader &source;              // the damaged file, only read
    std::unique_ptr<QFile> &output;      // the rebuilt file while it is written
    QByteArray &videoStsd, &soundStsd;   // the sample's stsd atoms; freed once written
    // Video lines before each change to sound, and sound lines before each
    // change to video: the chunk runs of the two tracks.
    QList<quint32> &videoRuns, &soundRuns;
    Progress *progress = nullptr;        // may be null
    QString workBase;                    // the chains' work folder lies in it
    PlacedPieces *placed = nullptr;      // pieces a scan copied already, if any
};

// Writes outputPath from the log and lists it in state.lstRepairedFiles; when
// the result came from the muxer (state.bMuxedResult) it only lists it.
void WriteRebuiltFile(Env &env, const QString &logPath, const QString &outputPath);
// The two trak atoms, written at state.ullScanPos of env.output; the last of
// them closes the output.
void BuildVideoTrak(Env &env, const QString &logPath);
void BuildSoundTrak(Env &env, const QString &logPath);

} // namespace rebuild
