#include "repair/RepairState.h"

RepairState pApp;

void RepairState::reset()
{
    // Atomics can't be assigned as a whole record, hence field by field.
    bStopRepair = false;
    bRepairRunning = false;
    bSampleRun = false;
    bCustomFolderChosen = false;
    bInMuxStage = false;
    strCustomFolder.clear();
    strChosenLocation.clear();
    strWorkBase.clear();
    strSampleFile.clear();
    lstRepairedFiles.clear();
    lstMuxedFiles.clear();
    nFormatCode = 0;
    ullScanPos = ullFileSize = ullMdatSize = 0;
    nLeadAtomSize = nMoovSize = 0;
    ullMoovPos = ullSampleSize = ullSampleLeft = ullMoovBodyPos = ullTrakPos = 0;
    nTrakLeft = nTimeScaleVideo = FrameWidth = FrameHeight = nVideoDelta = 0;
    TimeScaleSound = nSoundSampleRate = nSoundDelta = nSoundFrameSize = 0;
    nVideoStsdSize = nSoundStsdSize = nCttsAtomSize = nCttsEntries = 0;
    nCttsCount1 = nCttsOffset1 = nCttsCount2 = nCttsOffset2 = nCttsCount3 = nCttsOffset3 = 0;
    bInVideoTrak = bInSoundTrak = bInTimecodeTrak = bSawVideoTrak = false;
    bHasCtts = bHevcWithPcm = bSampleHasAudio = bMuxedResult = b3gpFile = false;
    bMoovParsed = bCarveFailed = bKeepLogHandle = false;
    bMtsRepaired = bDatRepaired = bDatDone = bAsfHeadersFound = bAsfMuxFailed = false;
    bMpegSampleInUse = bMkvSampleInUse = false;
    carve = CarveReport();
    strFfmpegDir.clear();
    strProbedFps.clear();
    strExactRate.clear();
    bMuxStageRan = bListMuxedFiles = bNoAudioForMux = false;
    nMuxFps = 0;
    nMuxRate = 48000;
    nMuxChannels = 2;
    nSampleTimeScale = nSampleDuration = nSampleFrames = 0;
    bSampleHasDjiTag = false;
    nFreaAtomSize = nSkipAtomSize = nBeamAtomSize = nTopAtomSize = nChunkCount = 0;
    ullNextNalPos = nIndexingSize = nIndexingPos = 0;
    ullAudioHeadsSize = ullVideoHeadsSize = nAudioHeadPos = nVideoHeadPos = 0;
    bMediaFound = bVideoSeen = bAudioFirst = false;
    ullAudioRunPos = ullAudioRunSize = ullNextFramePos = nAvgAudioFrame = 0;
    nAudioChunks = nSoundChannels = nSoundBits = nSoundSampleBits = 0;
    nMp3FrameLength = 0;
    for (quint32 &b : nAdtsBytes)
        b = 0;
    strAudioWavPath.clear();
    bOnResultsPage = bSaveClicked = false;
}
