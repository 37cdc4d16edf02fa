#pragma once
// Appends to a work file of a splitter.
//
// Everything goes through a large buffer, written a few megabytes at a
// time. Video units are held back while they follow each other in the
// damaged file: a chain of units is the same bytes as the stream it becomes,
// with a start code where each length stood. A chain of large units (intra
// frames of big pictures) is copied file to file by the kernel in one piece
// and its start codes written over the lengths afterwards, so those bytes
// never pass through this process.
//
// Writes go to the descriptor at an offset kept here; the QFile is only
// flushed at the start and must not be written to until detach().

#include <QByteArray>
#include <QString>
#include <atomic>
#include <QtGlobal>
#include <memory>
#include <vector>

class BufferedReader;
class QFile;
class BackgroundWriter;

class StreamOut
{
public:
    // kernelCopy false: every byte goes through this process.
    explicit StreamOut(QFile *file, bool kernelCopy = true);
    ~StreamOut();
    StreamOut(const StreamOut &) = delete;
    StreamOut &operator=(const StreamOut &) = delete;

    // Flushes and lets go of the file, which its owner is about to close.
    void detach();
    void write(const void *p, size_t n);
    // len bytes from pos; zeros for what lies past the end of the file.
    void copy(BufferedReader &src, quint64 pos, quint64 len);
    // A start code, then the len bytes of the unit whose length stands at
    // pos. pos + 4 + len must lie within the file.
    void unit(BufferedReader &src, quint64 pos, quint64 len);
    void flush();
    // Why a write failed (an errno value; 0 while every byte got there).
    // Call after flush() or detach() for the whole story.
    int error() const { return m_error.load(); }
    QString errorText() const;

    // Off: every byte goes through this process (what happens anyway where
    // the kernel can't copy between the two files).
    static void SetKernelCopy(bool on);
    // Off: full buffers are written on the caller's thread.
    static void SetBackgroundWrites(bool on);

private:
    void append(const void *p, size_t n);
    void appendFrom(BufferedReader &src, quint64 pos, quint64 len);
    void appendChainByHand(BufferedReader &src, quint64 len);
    void flushChain();
    void flushBuffer();

    QFile *m_file;
    int m_fd = -1;
    quint64 m_off = 0; // where the buffer goes in the file
    bool m_kernelCopy = true;
    QByteArray m_buf;
    BufferedReader *m_chainSrc = nullptr;
    quint64 m_chainBegin = 0, m_chainEnd = 0;
    std::vector<quint64> m_codes; // offsets of the start codes in the chain
    std::atomic<int> m_error{0};
    std::unique_ptr<BackgroundWriter> m_writer; // made at the first full buffer
};
