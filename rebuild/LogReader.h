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

#include <QString>
#include <QtGlobal>

namespace rebuild {

enum class PieceKind : quint8 { Video, Sound };

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
    explicit LogReader(const QString &path);
    bool isOpen() const { return m_file.isOpen(); }
    // The next piece; false at the end of the log.
    bool next(Piece &piece);

    // One deciphered line's fields; false for any other line.
    static bool parseFields(const char *text, size_t len, Piece &piece);

private:
    bool decipher(const char *line, size_t len, Piece &piece);

    BufferedReader m_file;
    quint64 m_pos = 0;
    RepairLine m_cipher; // for the rare compressed or SHA-1 lines
    quint8 m_line[kMaxLogLine + 1]; // a line that straddles the end of the window
};

} // namespace rebuild
