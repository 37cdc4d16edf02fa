#include "rebuild/PlacedPieces.h"

#include "rebuild/RebuildConstants.h"
#include "repair/BufferedReader.h"

#include <QFileInfo>
#include <cstdio>

namespace rebuild {

bool PieceCount::add(quint64 offset, quint64 size)
{
    const bool inFile = sourceOpen && offset < fileSize && size < fileSize - offset;
    const quint64 room = fileSize - qMin(mdatSize, fileSize);
    mdatSize = size < room ? mdatSize + size : fileSize;
    if (!inFile || size > room)
        return false;
    hash = (hash ^ offset) * 0x100000001b3ull;
    hash = (hash ^ size) * 0x100000001b3ull;
    copied += size;
    ++pieces;
    return true;
}

quint64 LeadSize(BufferedReader &source, quint64 fileSize)
{
    if (!source.isOpen() || !source.tagAt(4, kFtypTag) || source.be32(0) > fileSize)
        return kTemplateLead;
    return source.be32(0);
}

namespace {
std::atomic<bool> g_enabled{true};
} // namespace

void PlacedPieces::SetEnabled(bool on) { g_enabled = on; }
bool PlacedPieces::Enabled() { return g_enabled; }

PlacedPieces::~PlacedPieces() { discard(); }

bool PlacedPieces::start(const QString &outputPath, BufferedReader &source, quint64 fileSize)
{
    discard();
    const QString canonical = QFileInfo(outputPath).canonicalFilePath();
    if (!source.isOpen() || (!canonical.isEmpty() && canonical == QFileInfo(source.path()).canonicalFilePath()))
        return false;
    // Under a name of its own until the rebuild takes it: a stop leaves
    // whatever stood under the output's name as it was.
    const QFileInfo out(outputPath);
    m_file.setFileName(out.absolutePath() + "/." + out.fileName() + ".part");
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::NewOnly))
        return false;
    m_path = m_file.fileName();
    m_target = outputPath;
    m_lead = LeadSize(source, fileSize);
    m_count = PieceCount();
    m_count.fileSize = fileSize;
    m_source = &source;
    m_out.reset(new StreamOut(&m_file, true, m_lead + quint64(kMdatHead.size())));
    m_ok = true;
    return true;
}

void PlacedPieces::add(quint64 offset, quint64 size)
{
    if (m_out && m_count.add(offset, size))
        m_out->copy(*m_source, offset, size);
}

bool PlacedPieces::finish()
{
    if (m_out) {
        m_out->detach();
        m_ok = m_ok && m_out->error() == 0;
        m_out.reset();
    }
    m_file.close();
    return m_ok && !m_path.isEmpty();
}

bool PlacedPieces::handOver()
{
    if (m_path.isEmpty() || ::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(m_target).constData()) != 0) {
        discard();
        return false;
    }
    m_path.clear();
    return true;
}

void PlacedPieces::discard()
{
    m_out.reset();
    m_file.close();
    if (!m_path.isEmpty())
        QFile::remove(m_path);
    m_path.clear();
    m_ok = false;
}

} // namespace rebuild
