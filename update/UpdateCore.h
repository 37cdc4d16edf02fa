#pragma once
// What the update does without a window: where its two files live, how a
// file is fetched, how the version on the server is read and compared.

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <atomic>

namespace update {

// Of one check and the download it may lead to.
struct UpdateState
{
    bool bManualCheck = false;
    bool bMajorUpdate = false;
    bool bMinorUpdate = false;
    bool bUpdateOffered = false;
    QString strMinorVersion;
    QString strMajorVersion;
    QString strVersionFilePath;
    QString strInstallerPath;
};
extern UpdateState updState;

// Time and size limits; tests make them small.
struct Limits
{
    int checkMs = 10000;                    // the whole version check, both tries
    int stallMs = 30000;                    // an installer without a byte for this long fails
    qint64 versionMaxBytes = 64 * 1024;
    qint64 installerMaxBytes = qint64(1) << 30;
    int tickMs = 50;                        // how often limits and stops are looked at
};
extern Limits limits;

// Whether a network is up: asked of the system, or said by a test.
enum class Network { Ask, Online, Offline };
extern Network networkSeam;

constexpr quint64 kDefaultMinSize = 10485760; // AverageUpdateSize when it is 0 or absent
constexpr int kMinVersionFileBytes = 4;

// The two files on the server: the brand's stem and one of these endings.
enum class FetchKind { VersionFile, Installer };
struct FetchRow
{
    FetchKind kind;
    const char *suffix;
};
constexpr FetchRow kFetchRows[] = {{FetchKind::VersionFile, ".txt"}, {FetchKind::Installer, ".exe"}};
QString ServerName(const QString &stem, FetchKind kind);

// <temp>/updatetmp-<uid>
QString UpdateFolder();
// True when `folder` is a real folder (no link) owned by this user, made
// with mode 0700 first when `create` is set; a looser mode is tightened.
bool FolderIsOurs(const QString &folder, bool create);
// Removes the two files of updState, then the folder if that left it empty.
void RemoveUpdateFiles();
// The folder of the two files, if it is ours and empty.
void RemoveFolderIfEmpty();

struct FetchResult
{
    bool ok = false;
    qint64 bytes = 0;
    QString error;
};
// Fetches an http(s) URL into `target`, following redirects that are no less
// safe, within the limits of `kind`; a second try follows a failed first one
// (the check shares its time between both). Waits in a local event loop that
// takes no user input. A failed fetch leaves no file.
FetchResult Fetch(const QUrl &url, const QString &target, FetchKind kind,
                  const std::atomic<bool> *stop = nullptr);

// The latest version named by a version file: its first line that isn't
// blank, trimmed, if it has the form A.B.C.D (A of one or two digits, the
// others of one); empty otherwise.
QString LatestVersionOf(const QByteArray &text);

struct VersionVerdict
{
    bool bMajorUpdate = false;
    bool bMinorUpdate = false;
};
// Nothing unless `latest` is newer by QVersionNumber. Then the parts are
// compared by their place in each string: the number before the first dot,
// then the digits one, three and five places after it.
VersionVerdict CompareVersions(const QString &current, const QString &latest);

} // namespace update
