#pragma once
// The repair worker: takes a list of files (and, in a second run, a sample),
// finds out what each file is, runs its pipeline and reports by signals.
// It never touches a widget.

#include "carve/video/CarverArgs.h"
#include "containers/Avi.h"
#include "containers/Asf.h"
#include "containers/Mkv.h"
#include "rebuild/PlacedPieces.h"
#include "repair/BufferedReader.h"
#include "repair/RepairState.h"
#include "repair/StageProgress.h"

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QMutex>
#include <QStringList>
#include <QThread>
#include <QWaitCondition>
#include <memory>

namespace mux {
enum class StageId : int;
}
#include "carve/video/CarveStages.h"

class ThreadVideoRepair : public QThread
{
    Q_OBJECT
public:
    explicit ThreadVideoRepair(QObject *parent = nullptr);
    ~ThreadVideoRepair() override;

    // Copies the list and starts the thread at low priority; if a run is
    // still going, asks it to stop instead. The flag is kept, not read.
    void StartRepair(const QStringList &list, bool flag);
    void SetSampleFile(const QString &path);

    // --- Members, in the order the rest of the engine knows them ---
    BufferedReader pSource;  // the damaged file, read-only
    std::unique_ptr<QFile> pOutput;
    std::unique_ptr<rebuild::PlacedPieces> pPlaced; // a scan's pieces, copied while it ran
    BufferedReader pSample;  // the sample, read-only
    QFile hLog;              // logFile.txt
    QString strRepairedDir;
    QString strLogPath;
    QString strEntryCopy;
    QString strFileName;
    QByteArray pVideoStsd, pSoundStsd;
    QString strSampleName;
    QString strSourceName;
    QString strSourcePath;
    QString strMkvSample;
    QString strAsfSample;
    QString strAsfSource;
    asf::Headers asfHeaders; // what ReadAsfHeaders kept of the file or the sample
    QString strOutputPath;
    QString strBaseCopy;
    QString strFinalName;  // output name after the mux stages' renaming rules
    QString strAltName;    // "1_" + strFileName: the second try of a mux
    QString strCarvedName; // the source's file name as a carver saw it
    QString strSpliceName; // the damaged file's name, as the splitter saw it
    QString strScratch[4];
    quint64 ullFileLeft = 0;
    bool bAviSample = false;
    bool hasVideo_Strh = false;
    QList<quint32> lstSoundChunkSamples, lstVideoChunkSamples;
    QStringList lstFiles;
    bool bStartFlag = false;

    // --- Classification (atom walk, scans, moov parsers) ---
    bool WalkDamagedFile();   // first run: walk, then tail scan; true when a moov or a probe hit
    bool ScanSampleFile(const QString &sample); // second run
    void ParseMoovOfDamagedFile();
    void ParseMoovOfSample();

    // --- Pipelines of the atom path ---
    void RepairImkhFile(CarverArgs &args);
    void CarveMpegPsInMov(CarverArgs &args);
    void RepairTsInMov(CarverArgs &args);
    void Repair3gpStream(CarverArgs &args);
    void RepairMotionJpeg(CarverArgs &args);
    void RepairProResStream(CarverArgs &args);
    void CarveH264WithImaAdpcm(CarverArgs &args);
    void CarveH264WithOpus(CarverArgs &args);
    void CarveHevcWithAlaw(CarverArgs &args);
    void CarveH264WithAlaw(CarverArgs &args);
    void CarveH264WithAc3(CarverArgs &args);
    void CarveAv1Video(CarverArgs &args);
    void CarveMpeg4Video(CarverArgs &args);
    void CarveHevcWithUlaw(CarverArgs &args);
    void CarveH264WithUlaw(CarverArgs &args);
    void CarveHevcWithLpcm(CarverArgs &args);
    void CarveH264WithLpcm(CarverArgs &args);
    void CarveHevcWithAac(CarverArgs &args);
    void CarveHevcWithTwosPcm(CarverArgs &args);
    void CarveH264WithTwosPcm(CarverArgs &args);
    void CarveH264WithSowtPcm(CarverArgs &args);
    void CarveH264WithMp3(CarverArgs &args);
    void CarveH264WithAac(CarverArgs &args);

    // --- The H.264 carving chain: the driver, then its stages ---
    void CarveH264(quint32 code, CarverArgs &args);
    void CarveHevc(quint32 code, CarverArgs &args);
    void CarveChain(const carve::CarverRow &row, CarverArgs &args);
    void H264FirstRunCheck(const carve::CarverRow &row, CarverArgs &args);
    void HarvestH264Sample(const carve::CarverRow &row, CarverArgs &args);
    void WriteUniqueSequences(bool video, CarverArgs &args);
    carve::Learned LearnAudio(carve::Learner id, CarverArgs &args);
    // The splitter, then the mux stage of what it wrote.
    void RunSplitter(carve::Splitter id, CarverArgs &args);
    void SplitH264Aac(CarverArgs &args);
    void SplitH264Mp3(CarverArgs &args);
    void SplitHevcAac(CarverArgs &args);
    void SplitHevcLpcm(CarverArgs &args);
    void SplitHevcTwos(CarverArgs &args);
    void SplitMpeg4Aac(CarverArgs &args);
    void SplitAv1Aac(CarverArgs &args);
    void SplitH264Lpcm(CarverArgs &args);
    void SplitH264Twos(CarverArgs &args);
    void SplitH264Sowt(CarverArgs &args);
    void SplitAc3(CarverArgs &args);
    void BuildAlawWav(CarverArgs &args);
    void BuildUlawWav(CarverArgs &args);
    void BuildImaWav(CarverArgs &args);
    void BuildOpusWav(CarverArgs &args);
    void BuildHevcAlawWav(CarverArgs &args);
    void BuildHevcUlawWav(CarverArgs &args);
    void RunFinaliser(carve::Finaliser id, CarverArgs &args);

    // --- Paths of other containers ---
    void RepairAviFile(const QString &fileName);
    void ReadAviHeaders(bool hasSoundChunks);
    void ReadAviHeadersOfSample(bool hasSoundChunks);
    void ListAviChunks();
    // Each flag: that header or format is read from the damaged file (1) or
    // the sample (0). Empty on success, else the write error.
    QString WriteAviFile(bool hasSoundChunks, int videoHeader, int videoFormat, int soundHeader, int soundFormat);
    avi::Headers aviHeaders;   // where the stream headers stand
    avi::ChunkList aviChunks;  // what the chunk scan counted
    void RepairFlvFile(const QString &fileName);
    void RepairDatFile(const QString &sourceName);
    void RepairMtsFile();
    void ReadAsfHeaders();
    void RepairAsfFile(const QString &repairedDir);
    // The remuxed output's header, then the damaged file from its first packet, into "1_" + name.
    void JoinAsfResult(const QString &output, const QString &source);
    void RepairMkvFile(quint64 size, BufferedReader &file);
    void RemuxMkv();
    void CarveMkvWithSample(BufferedReader &file, quint64 codecId);
    void CarveMkvBlocks(QFile &video);
    void MuxMkvStreams(CarverArgs &args);
    void ListMkvClusters();
    // Each flag: Tracks or Info is read from the damaged file (1) or the
    // sample (0). Empty on success, else the write error.
    QString WriteMkvFile(int tracksFromFile, int infoFromFile);
    mkv::Heads mkvHeads;          // where Info and Tracks stand
    mkv::ClusterList mkvClusters; // what the cluster scan listed
    void RepairMpegFile(quint64 found, BufferedReader &file, quint64 size);

    // --- Mux stages: one per carving chain, all run by RunMuxStage ---
    // withSound: -1 lets the stage decide by the sample; 0 or 1 is the branch a
    // splitter took.
    void RunMuxStage(mux::StageId id, CarverArgs &args, int withSound = -1);
    void MuxH264Aac(CarverArgs &args);
    void MuxHevcAac(CarverArgs &args);
    void MuxAv1(CarverArgs &args);
    void MuxH264Ac3(CarverArgs &args);
    void MuxTs(CarverArgs &args);
    void MuxH264Alaw(CarverArgs &args);
    void MuxH264Ulaw(CarverArgs &args);
    void MuxHevcAlaw(CarverArgs &args);
    void MuxHevcUlaw(CarverArgs &args);
    void MuxH264Opus(CarverArgs &args);
    void MuxH264Ima(CarverArgs &args);
    void MuxH264Sowt(CarverArgs &args);
    void MuxH264Lpcm(CarverArgs &args);
    void MuxHevcLpcm(CarverArgs &args);
    void MuxH264Twos(CarverArgs &args);
    void MuxHevcTwos(CarverArgs &args);
    void MuxH264Mp3(CarverArgs &args);
    void MuxMpeg4(CarverArgs &args);
    void MuxMpegPs(CarverArgs &args);
    void MuxMkv(CarverArgs &args);
    // One row of the command table by its name, into the work folder under
    // outName (strFileName when empty). False when the row is unknown or
    // ffmpeg could not be started.
    // finished: set false when a row with a time limit was cut off.
    bool RunMuxRow(const QString &rowName, CarverArgs &args, const QString &outName = QString(),
                   bool *finished = nullptr);

    // --- Index rebuild ---
    void WriteRebuiltFile(const QString &logPath);
    void BuildVideoTrak();
    void BuildSoundTrak();

Q_SIGNALS:
    void RepairFinish();
    void disableAddReferenceBtn();
    void Info(const QString &text);
    void DestInfo(const QString &text);
    void MaxProgress(int max);
    void ProgressValue(int value);
    void ProcessAborted();
    void ProcessAborted1();
    void FileNamelabel(const QString &name);
    void WriteStatus(bool bRepaired, bool hasVideoStrh, const QString &fileName, bool bDefaultCode);
    void ShowProgressBar();
    // 64-bit so that a range given as a file size still fits; the window scales.
    void SetProgressBarRange(qint64 range);
    void setProgressvalue(qint64 value);
    void ShowOverAllProgressBar();
    void OverAllProgressBarMax(int files);
    void OverAllProgressValue(int file, int percent, int files);
    void WriteProcessingStatus(const QString &fileName);
    void WriteAVIFileStatus(bool hasVideoStrh, const QString &fileNmae);
    void ffmpegstopbtn();
    // Once per file of the list (index into it), after its last verdict:
    // why it has no result and how much of it a carve used.
    void FileReported(int index, const QString &fileName, const outcome::FileReport &report);

protected:
    void run() override;

private:
    void RepairDriver(const QStringList &list, const QString &sample);
    void SetUpWorkFolder();
    // Returns true when a stop means the whole loop must be left.
    bool AtomPath(const QString &entry, const QString &sample);
    // True (with the reason noted) when the sample's codec, frame size or
    // sound differ from what the recording shows of its own.
    bool SampleDiffers(const QString &entry, const QString &sample);
    // Notes "nothing recoverable" for a file with no atoms and no NAL units.
    void NoteEmptyFile(const QString &entry);
    bool RunAtomPipelines(CarverArgs &args, const QString &entry);
    void AsfPath(const QString &sample);
    void AviHeaderSearch(BufferedReader &file, quint64 size, bool hasSoundChunks, int fromDamaged);
    QString AviIndexPath() const;
    void MkvOrMpegPath(const QString &sample, bool mkv);
    static quint64 SampleWindowStart(quint64 size);
    void CleanTemporaryWorkFolder();
    bool CreateLog();
    void CloseLog();
    // Entries whose stage isn't built yet take the failure path of a carver.
    void StageNotBuilt(const char *what, bool atomPipeline);

    // Walk pieces.
    void WalkAtoms(BufferedReader &file, bool sample, bool &moovFound);
    void TsCheck(BufferedReader &file, bool &moovFound);
    bool TailScan(bool &moovFound);
    // One search step of the tail and window scans; true when mvhd was parsed.
    bool SearchStep(BufferedReader &file, bool sample, quint64 pos, bool &moovFound);
    void ParseMoov(bool sample);

    QMutex m_mutex;
    QWaitCondition m_wait;
};

// A stage's progress as the thread's signals.
class ThreadProgress : public StageProgress
{
public:
    explicit ThreadProgress(ThreadVideoRepair &t) : m_thread(t) {}
    void setRange(qint64 range) override { Q_EMIT m_thread.SetProgressBarRange(range); }
    void setValue(qint64 value) override { Q_EMIT m_thread.setProgressvalue(value); }

private:
    ThreadVideoRepair &m_thread;
};
