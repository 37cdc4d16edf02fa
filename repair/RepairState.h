#pragma once
// The one process-wide record through which the repair stages talk.
//
// The worker thread writes it; the window only sets a handful of flags before
// a run or to stop one. Those flags are atomics so a late read only delays a
// stop and never tears.

#include "repair/Outcome.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <atomic>

class QProcess;

struct RepairState
{
    // --- Run control, kept between the files of a run ---
    std::atomic<bool> bStopRepair{false};
    std::atomic<bool> bRepairRunning{false};
    std::atomic<bool> bSampleRun{false};
    std::atomic<bool> bCustomFolderChosen{false};
    QString strCustomFolder;
    QString strChosenLocation;
    QString strWorkBase;
    QString strSampleFile;
    QStringList lstRepairedFiles;
    QStringList lstMuxedFiles;

    // --- The current file ---
    quint32 nFormatCode = 0;
    quint64 ullScanPos = 0;
    quint64 ullFileSize = 0;
    quint64 ullMdatSize = 0;
    quint32 nLeadAtomSize = 0;
    quint32 nMoovSize = 0;
    quint64 ullMoovPos = 0;
    quint64 ullSampleSize = 0;
    quint64 ullSampleLeft = 0;
    quint64 ullMoovBodyPos = 0;
    quint64 ullTrakPos = 0;
    quint32 nTrakLeft = 0;
    quint32 nTimeScaleVideo = 0;
    quint32 FrameWidth = 0;
    quint32 FrameHeight = 0;
    quint32 nVideoDelta = 0;
    quint32 TimeScaleSound = 0;
    quint32 nSoundSampleRate = 0;
    quint32 nSoundDelta = 0;
    quint32 nSoundFrameSize = 0;
    quint32 nVideoStsdSize = 0;
    quint32 nSoundStsdSize = 0;
    quint32 nCttsAtomSize = 0;
    quint32 nCttsEntries = 0;
    quint32 nCttsCount1 = 0, nCttsOffset1 = 0;
    quint32 nCttsCount2 = 0, nCttsOffset2 = 0;
    quint32 nCttsCount3 = 0, nCttsOffset3 = 0;
    bool bInVideoTrak = false;
    bool bInSoundTrak = false;
    bool bInTimecodeTrak = false;
    bool bSawVideoTrak = false;
    bool bHasCtts = false;
    bool bHevcWithPcm = false;
    bool bSampleHasAudio = false;
    bool bMuxedResult = false;
    // Stays set for the rest of the run once a 3gp/3g2 file was met; that
    // carry-over is intended.
    bool b3gpFile = false;
    bool bMoovParsed = false;
    bool bCarveFailed = false;
    bool bKeepLogHandle = false;
    bool bMtsRepaired = false;
    bool bDatRepaired = false;
    bool bDatDone = false;
    bool bAsfHeadersFound = false;
    bool bAsfMuxFailed = false;
    bool bMpegSampleInUse = false;
    bool bMkvSampleInUse = false;

    // --- Fields of the later stages ---
    QString strFfmpegDir;
    QProcess *procFfmpeg = nullptr;
    QString strProbedFps;
    QString strExactRate; // the sample's frame rate as the last mux gave it ("30000/1001")
    bool bMuxStageRan = false;
    bool bListMuxedFiles = false;
    std::atomic<bool> bInMuxStage{false};
    bool bNoAudioForMux = false;
    quint32 nMuxFps = 0;
    quint32 nMuxRate = 48000;
    quint32 nMuxChannels = 2;
    quint32 nSampleTimeScale = 0;
    quint32 nSampleDuration = 0;
    quint32 nSampleFrames = 0;
    bool bSampleHasDjiTag = false;
    quint32 nFreaAtomSize = 0, nSkipAtomSize = 0, nBeamAtomSize = 0, nTopAtomSize = 0;
    quint32 nChunkCount = 0;
    quint64 ullNextNalPos = 0;
    quint64 nIndexingSize = 0;
    quint64 nIndexingPos = 0; // never set by any stage, so it stays 0
    quint64 ullAudioHeadsSize = 0, ullVideoHeadsSize = 0;
    quint64 nAudioHeadPos = 0, nVideoHeadPos = 0;
    bool bMediaFound = false;
    bool bVideoSeen = false;
    bool bAudioFirst = false;
    quint64 ullAudioRunPos = 0, ullAudioRunSize = 0;
    quint64 ullNextFramePos = 0;
    quint64 nAvgAudioFrame = 0;
    quint32 nAudioChunks = 0;
    quint32 nSoundChannels = 0, nSoundBits = 0, nSoundSampleBits = 0;
    qint32 nMp3FrameLength = 0;
    quint32 nAdtsBytes[7] = {};
    QString strAudioWavPath;
    bool bOnResultsPage = false;
    bool bSaveClicked = false;

    // What the carve of the file in hand wrote, for the front ends; cleared
    // before each file.
    struct CarveReport
    {
        quint64 videoUnits = 0;   // units written to the video stream
        quint64 soundFrames = 0;  // frames written to the audio stream (ADTS or MP3)
        quint64 soundBytes = 0;   // bytes of sound taken from the file
        quint64 mediaBytes = 0;   // bytes of media data walked
        quint64 claimedBytes = 0; // of them, taken into a stream
        QString failReason;       // why the file has no result, when a write failed
        bool carved = false;      // the result comes from the carve
        outcome::Why why = outcome::Why::None; // why the file has no (full) result
        QString whyDetail;
        // Notes the first reason; a later one doesn't hide the cause.
        void fail(outcome::Why w, const QString &detail)
        {
            if (why == outcome::Why::None) {
                why = w;
                whyDetail = detail;
            }
        }
    } carve;

    // Puts every field back to its start value (tests and a fresh process).
    void reset();
};

extern RepairState pApp;
