#pragma once
// Reads the pieces that the scanners listed in the work log, in their order.
//
// Each line is deciphered, split at blanks, and gives a label, an offset and
// a size (fields 0, 3 and 6). Lines that don't decipher (the plain lines of
// the moov parse, damage) or that lack those fields are passed over. The log
// is read through a large window and the common lines are deciphered in
// place, without an allocation, since a long recording lists hundreds of
// thousands of pieces and the rebuild reads the log up to seven times.

#include "rebuild/RebuildConstants.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"

#include <QIODevice>
#include <QString>
#include <QtGlobal>

namespace rebuild {

enum class PieceKind : quint8 { Video, Sound };

// How a line names its piece: "AVC(Vide) at = O Size = S" (fields 0, 3, 6), or
// "O S", the chunk and tag lists of the AVI and FLV paths (kind left Video).
enum class LineForm : quint8 { Labelled, Pair };

struct Piece
{
    PieceKind kind = PieceKind::Video;
    quint64 offset = 0;
    quint64 size = 0;
};

class LogReader
{
public:
    // A log that can't be opened reads as empty.
    explicit LogReader(const QString &path, LineForm form = LineForm::Labelled);
    bool isOpen() const { return m_file.isOpen(); }
    // The next piece; false at the end of the log.
    bool next(Piece &piece);

    // One deciphered line's fields; false for any other line.
    static bool parseFields(const char *text, size_t len, Piece &piece, LineForm form = LineForm::Labelled);

private:
    bool decipher(const char *line, size_t len, Piece &piece);

    BufferedReader m_file;
    LineForm m_form;
    quint64 m_pos = 0;
    RepairLine m_cipher; // for the rare compressed or SHA-1 lines
    quint8 m_line[kMaxLogLine + 1]; // a line that straddles the end of the window
};

// Appends "offset size", ciphered, and a line end: the pair form above. False
// when the log refused the bytes.
bool WritePairLine(QIODevice &log, RepairLine &cipher, quint64 offset, quint64 size);

} // namespace rebuild
