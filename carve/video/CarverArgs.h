#pragma once
// The record of one carving chain: the paths (and open handles) that pass from
// stage to stage. The driver fills the first two paths; each stage fills what
// it creates. Chains without sample signatures use only the short form
// (source, sample, video, audio and their handles) and leave the rest empty.

#include "repair/BufferedReader.h"

#include <QFile>
#include <QString>
#include <memory>

struct CarverArgs
{
    QString strSource;      // the damaged file
    QString strSample;      // the sample (reference) file
    QString strVideoHeads;  // "/videotext.txt"
    QString strIndexing;    // "/Indexing"
    QString strVideoUnique; // "/VideoUNIQUEfile.txt"
    QString strAudioHeads;  // "/audio.txt"
    QString strSpare;       // never set
    QString strAudioUnique; // "/AudioUNIQUEfile.txt"
    QString strVideo;       // the video stream file
    QString strAudio;       // the audio stream file

    // The damaged file and the sample are only ever read, through the buffered
    // reader; the work files are written through QFile.
    std::unique_ptr<BufferedReader> fpSample;
    std::unique_ptr<BufferedReader> fpSource;
    std::unique_ptr<QFile> fpAudio;
    std::unique_ptr<QFile> fpVideo;
    std::unique_ptr<QFile> fpVideoHeads;
    std::unique_ptr<QFile> fpAudioHeads;
    std::unique_ptr<QFile> fpAudioUnique;
};
