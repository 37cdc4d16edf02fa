#pragma once
// The repair run of videomend-cli: the engine's worker thread with a plain
// ledger of rows in place of the window's list.

#include "cli/ProgressLine.h"
#include "cli/WorkPlace.h"
#include "repair/ThreadVideoRepair.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>
#include <atomic>
#include <memory>
#include <vector>

struct CliOptions
{
    QStringList files;
    QString sample;
    QString outDir;
    QString workDir;
    bool json = false;
    bool quiet = false;
    bool verbose = false;
    bool keepWork = false;
};

class CliRun : public QObject
{
    Q_OBJECT
public:
    explicit CliRun(const CliOptions &opt, QObject *parent = nullptr);
    ~CliRun() override;
    // Runs the first run and, where a sample was given, the second; returns
    // the exit status (130 when interrupted).
    int exec();

    // Raised by the SIGINT/SIGTERM handler; lock-free, so safe there.
    static std::atomic<int> interrupts;

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
        QString result;   // where the engine leaves its result
        int place = 0;    // index into m_places
        Stage stage = Stage::Queued;
        int verdict = -1; // -1 none, 0 awaiting, 1 repaired
        quint32 formatCode = 0;
        bool reported = false; // FileReported came in the current run
        bool pending = false;  // waits for the sample run
        bool final = false;
        outcome::FileReport report;
        outcome::Judged judged;
        QString shown;    // the result as printed, "-" for none
    };

    bool setUp();
    void runOnce(bool sampleRun);
    void onProcessing();
    void onVerdict(bool repaired, bool strh, bool aviStyle);
    void onReported(int index, const outcome::FileReport &report);
    QString statusOf(const Row &r) const;
    void settle(int row);
    void finalize(int row, const QString &status);
    void deliver(Row &r);
    void printReady();
    void tick();
    void clearLine();
    void cleanUp();

    CliOptions m_opt;
    ThreadVideoRepair m_thread;
    QVector<Row> m_rows;
    QVector<int> m_runRows; // the rows of the run in hand, by index in its list
    int m_started = 0;      // files of the run in hand the thread has begun
    int m_current = -1;
    int m_nextPrint = 0;
    bool m_sampleRun = false;
    bool m_aborted = false;
    std::unique_ptr<QTemporaryDir> m_private; // the work folder of the command, TMPDIR of the engine
    std::vector<WorkPlace> m_places;
    QSet<QString> m_keep; // results that stay in a work folder

    // Shared with the drawing timer on the main thread: under m_lock, which
    // also keeps lines on stderr whole.
    QMutex m_lock;
    bool m_tty = false;
    bool m_lineShown = false;
    bool m_told = false;
    QString m_file, m_stage, m_logged, m_sampleName;
    int m_doneUnits = 0, m_totalUnits = 1;
    // Written for every step of some walks: atomics, not the lock.
    std::atomic<int> m_stageIndex{-1};
    std::atomic<qint64> m_value{0}, m_range{0};
    cliprogress::Line m_line;
    QString m_lastText;
    QElapsedTimer m_clock;
};
