#pragma once
#include <QtGlobal>

// Length in bytes of the MPEG audio frame whose header is the 4 bytes given,
// or -1 when they are no header this program carves. Layer II keeps its
// "+4 for padding" rule, unlike the standard's, on purpose.
// Also keeps the answer in the repair state's nMp3FrameLength.
int Mp3FrameLength(const quint8 *header);
// The same, keeping nothing.
int Mp3FrameSize(const quint8 *header);
