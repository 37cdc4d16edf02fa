#pragma once
// Openings of sound learned from the damaged file itself. A sample shows the
// first bytes of its own sound frames; an AAC frame's third byte carries the
// loudness, so other sound opens with other bytes. Behind a video unit of the
// damaged file stands either the next unit or what the recorder put between
// units, mostly a frame of sound: the bytes there that recur are its heads.

#include "carve/video/CarveConstants.h"

#include <QByteArray>
#include <QtGlobal>
#include <atomic>

class BufferedReader;

namespace carve {

struct LearnedHeads
{
    QByteArray records;      // 3-byte heads, most frequent first
    quint64 candidates = 0;  // units looked behind
    quint64 recorded = 0;    // of them, followed by something that isn't a unit
    quint32 threshold = 0;   // times a head had to recur to be kept
};

// One sequential pass from `from` to the end of the file. A candidate unit is
// a position that passes `unit` with a length that stays inside the file and,
// when `videoHeads` (3-byte records of the sample's units) isn't empty, whose
// first two bytes open one of the sample's units too: quiet sound is full of
// zero bytes, and its frames repeat, so chance candidates would recur. The
// 3 bytes behind it are counted unless a unit starts there too, or they are
// blank (00 00 .., FF FF FF). Heads seen often enough that chance can't
// explain them are returned. `stop` may be null.
LearnedHeads LearnHeadsBehindUnits(BufferedReader &f, quint64 from, const NalSet &unit,
                                   const QByteArray &videoHeads, const std::atomic<bool> *stop);

// How often one of 2^24 values must recur among n that fall at random before
// the count says more than chance.
quint32 RecurrenceThreshold(quint64 n);

} // namespace carve
