#pragma once
// The repair run of videomend-cli: the engine's worker thread with a plain
// ledger of rows in place of the window's list.

#include "repair/ThreadVideoRepair.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVector>

struct CliOptions
{
    QStringList files;
    QString sample;
    QString outDir;
    QString workDir;
    bool json = false;
    bool quiet = false;
    bool verbose = false;
};

class CliRun : public QObject
{
    Q_OBJECT
public:
    explicit CliRun(const CliOptions &opt, QObject *parent = nullptr);
    // Runs the first run and, where a sample was given, the second; returns
    // the exit status.
    int exec();

    static const char *const kCompleted;
    static const char *const kAwaiting;
    static const char *const kFailed;
    static const char *const kAborted;

private:
    enum class Stage { Queued, Processing, Reported };
    struct Row
    {
        QString source;   // as given
        QString name;     // file name
        QString output;   // where the result lands
        Stage stage = Stage::Queued;
        int verdict = -1; // -1 none, 0 awaiting, 1 repaired
        quint32 formatCode = 0;
        QString status;
        QString saved;
        bool printed = false;
    };

    void runOnce(const QStringList &files, bool sampleRun);
    void onProcessing();
    void onWriteStatus(bool repaired, bool strh, const QString &name, bool aviStyle);
    void finishRows(bool aborted);
    void printFinal(bool all);
    void drawProgress();

    CliOptions m_opt;
    ThreadVideoRepair m_thread;
    QVector<Row> m_rows;
    QMutex m_lock;
    bool m_aborted = false;
    bool m_tty = false;
    qint64 m_range = 1, m_value = 0;
    int m_file = 0, m_files = 0, m_percent = 0;
    QElapsedTimer m_drawClock;
    QVariantList m_json;
};
