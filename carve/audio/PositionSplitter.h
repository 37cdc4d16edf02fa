#pragma once
// The splitters that tell sound by where it stands (raw PCM, A-law, mu-law,
// IMA ADPCM, Opus between chains of units) or by its own frames (AC-3).

#include "carve/video/CarveStages.h"

namespace carve {

bool PositionSplitterBuilt(Splitter id);
Split SplitByPosition(Splitter id, CarverArgs &args, Env &env);

// Bytes of an AC-3 frame by sample rate code and frame size code; -1 for a
// reserved rate (3) or a code past the table (38 and up).
int Ac3FrameSize(int fscod, int frmsizecod);

// Looks through a unit's payload, piece by piece, for what the coder never
// leaves in one: 00 00 01 or 00 00 02, or three zeros at its very end.
class EscapeCheck
{
public:
    // False once a forbidden pattern turned up (then no more feeding needed).
    bool feed(const quint8 *b, size_t len);
    // Whether the whole payload passed; call after its last piece.
    bool finish() const { return m_zeros < 3; }

private:
    size_t m_zeros = 0; // zeros just behind the next byte
};

} // namespace carve
