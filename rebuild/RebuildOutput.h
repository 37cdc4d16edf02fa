#pragma once
// Big-endian stores into the rebuilt file, at its end or over what is there.

#include "rebuild/RebuildConstants.h"
#include "repair/BufferedReader.h"

#include <QFile>
#include <atomic>

namespace rebuild {

class Output
{
public:
    explicit Output(QFile &file) : m_file(file) {}
    quint64 pos() const { return quint64(m_file.pos()); }
    bool seek(quint64 at) { return m_file.seek(qint64(at)); }
    bool resizeTo(quint64 size) { return m_file.flush() && m_file.resize(qint64(size)); }
    void write(const void *data, size_t n) { m_file.write(static_cast<const char *>(data), qint64(n)); }
    template <size_t N>
    void put(const Bytes<N> &b) { write(b.data(), N); }
    void put32(quint32 v) { put(u32(v)); }
    void put64(quint64 v) { put(cat(u32(quint32(v >> 32)), u32(quint32(v)))); }
    // Overwrites at `at` and goes back to where the writing stood.
    void patch32(quint64 at, quint32 v)
    {
        const qint64 back = m_file.pos();
        if (seek(at))
            put32(v);
        m_file.seek(back);
    }
    void patch64(quint64 at, quint64 v)
    {
        patch32(at, quint32(v >> 32));
        patch32(at + 4, quint32(v));
    }
    bool failed() const { return m_file.error() != QFileDevice::NoError || m_copyError != 0; }
    QString errorString() const;

    // Appends n bytes of src from `from`: the kernel copies file to file where
    // it can, else they go through `buffer` (kCopyBuffer bytes) a piece at a
    // time. A stop ends the copy between pieces.
    void copyFrom(BufferedReader &src, quint64 from, quint64 n, quint8 *buffer, const std::atomic<bool> &stop);

private:
    QFile &m_file;
    int m_copyError = 0;
    bool m_kernelCopy = true;
};

// Sets a 32-bit field of a template copy.
template <size_t N>
void set32(Bytes<N> &b, size_t at, quint32 v)
{
    const Bytes<4> x = u32(v);
    for (size_t i = 0; i < 4; ++i)
        b[at + i] = x[i];
}

} // namespace rebuild
