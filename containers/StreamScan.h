#pragma once
// The scanners of recordings whose pieces are listed rather than carved:
// 3GP (H.263 or MPEG-4 with AMR), ProRes and Motion JPEG. Each walks the
// damaged file once and writes, in file order, a ciphered work-log line per
// piece of picture or sound it finds; the rebuild then copies the pieces
// into a new file and indexes them.
//
// The three walks share one skeleton: the buffered reader, one writer of
// log lines, the progress and the stop test. What differs (tags, frame
// starts, sizes) is data in ContainerConstants.h. Every position is judged
// as a byte-by-byte walk would judge it; the searches only get there faster.

#include <QByteArray>
#include <QtGlobal>
#include <atomic>

class BufferedReader;
class QIODevice;
class StageProgress;
namespace rebuild {
class PlacedPieces;
}

namespace streamscan {

enum class Family { ThreeGp, ProRes, MotionJpeg };

struct Found
{
    quint64 videoPieces = 0, soundPieces = 0;
    quint64 videoBytes = 0, soundBytes = 0;
};

// Walks `file` from its start to its end, or to a stop. Lines go to `log`
// when it is open; progress to `progress` when it isn't null; each piece
// also to `pieces` when it isn't null (the rebuild's copy, started early).
Found Scan(Family family, BufferedReader &file, QIODevice *log, const std::atomic<bool> &stop,
           StageProgress *progress, rebuild::PlacedPieces *pieces = nullptr);

// The name of a family's pictures, for reasons shown to the user.
const char *FamilyName(Family family);

} // namespace streamscan
