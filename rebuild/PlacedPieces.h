#pragma once
// The pieces a scan lists, copied into the rebuilt file while the scan goes
// on, each to the place the rebuild gives it behind the ftyp and the mdat
// header: a thread of their own writes them, straight from the scan's window
// where it still holds them. The rebuild then walks its log as always; where
// its list matches what was placed it copies nothing again.

#include "carve/audio/StreamOut.h"

#include <QFile>
#include <QString>
#include <QtGlobal>
#include <memory>

class BufferedReader;

namespace rebuild {

// Where the copied pieces of a rebuild go and how the mdat counts them: a
// piece is counted in the mdat size (up to the damaged file's size) and copied
// only when it ends before the end of the damaged file and fits in what is
// left of that size.
struct PieceCount
{
    quint64 fileSize = 0;
    bool sourceOpen = true; // nothing is copied from a damaged file that isn't open
    quint64 mdatSize = 0; // counted
    quint64 copied = 0;   // bytes copied so far
    quint64 pieces = 0;   // pieces copied so far
    quint64 hash = 0;     // of the copied pieces' places and sizes, in order
    // Counts a piece; true when it is to be copied (to `copied` before the call).
    bool add(quint64 offset, quint64 size);
};

// Bytes of the lead (ftyp) the rebuilt file starts with: the damaged file's
// own ftyp when it has one of a sane size, else the template's.
quint64 LeadSize(BufferedReader &source, quint64 fileSize);

class PlacedPieces
{
public:
    PlacedPieces() = default;
    ~PlacedPieces();
    // Copies from then on into a new file beside outputPath (never the
    // damaged file itself); false when it can't, and then nothing was made.
    // The source must stay open while pieces are added.
    bool start(const QString &outputPath, BufferedReader &source, quint64 fileSize);
    void add(quint64 offset, quint64 size);
    // Waits for every copy; true when each got to its place.
    bool finish();
    // Removes the file when no rebuild took it over.
    void discard();
    // Hands the file over under the output's name, for the rebuild to write
    // the rest of it; false (and the file removed) when it can't be renamed.
    bool handOver();

    const QString &target() const { return m_target; }
    const PieceCount &count() const { return m_count; }
    quint64 lead() const { return m_lead; }

    // Off: scans copy nothing and the rebuild copies every piece itself.
    static void SetEnabled(bool on);
    static bool Enabled();

private:
    QString m_path, m_target;
    QFile m_file;
    BufferedReader *m_source = nullptr;
    std::unique_ptr<StreamOut> m_out;
    PieceCount m_count;
    quint64 m_lead = 0;
    bool m_ok = false;
};

} // namespace rebuild
