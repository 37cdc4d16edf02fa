#pragma once
// The work files of a carving chain: the only place that knows their names.
// Each name starts with "/" and is appended to the work folder's path. The
// spelling and case are part of the contract between the stages ("/audio.pcm"
// and "/Audio.pcm" are two files of two different chains).

#include <QString>

namespace workfiles {

constexpr char kVideoH264[] = "/video.h264";
constexpr char kVideoHevc[] = "/video.hevc";
constexpr char kVideoM4v[] = "/video.m4v";
constexpr char kVideoAv1[] = "/video.Av01";
constexpr char kAudioAac[] = "/audio.aac";
constexpr char kAudioAc3[] = "/audio.ac3";
constexpr char kAudioWav[] = "/audio.wav";
constexpr char kAudioPcm[] = "/audio.pcm";
constexpr char kAudioPcmGaps[] = "/Audio.pcm";
constexpr char kAudioWavFull[] = "/AudioWAV.wav";
constexpr char kAudioHeads[] = "/audio.txt";
constexpr char kVideoHeads[] = "/videotext.txt";
constexpr char kIndexing[] = "/Indexing";
constexpr char kVideoUnique[] = "/VideoUNIQUEfile.txt";
constexpr char kAudioUnique[] = "/AudioUNIQUEfile.txt";

constexpr int kRecordBytes = 3;          // one signature record
constexpr int kMaxUniqueRecords = 10000; // of a unique file

// Makes sure of "Repaired" under the work base and returns its absolute path.
// Unlike a process-wide change of directory, nothing else depends on it: the
// external program gets the folder as its working directory instead.
QString EnsureWorkFolder();
QString EnsureWorkFolderIn(const QString &workBase);

// Work folder path + name ("/video.h264" -> ".../Repaired/video.h264").
QString Path(const char *name);
QString PathIn(const QString &workBase, const char *name);

// Where a stage's output is looked for: the chosen folder's "Repaired" when
// the user picked one with Select Folder, else the work folder.
QString OutputFolder();

} // namespace workfiles
