#pragma once
// The eleven languages of the window: files, menu texts, column widths,
// help pages; and the one routine that switches translators.

#include <QString>

class QUrl;

namespace languages {

constexpr int kCount = 11;

struct Language
{
    int nType;                // the value of LanguageType
    const char *menuText;     // translated in the context "Languages"
    const char *folder;       // <XX>: folder and file code
    const char *ownFile;      // LANG_<XX>
    const char *qtFile;       // names as they were always shipped (qt_KO, qt_HE...)
    int fileListWidths[5];    // pFileList columns 0, 1, 2, 7, 8
    int repairListWidths[7];  // pRepairList columns 0, 1, 2, 6, 7, 8, 9
};

// nullptr for any value outside 0..10: such a value installs no language.
const Language *ByType(int n);
QString MenuText(int n);

// <appDir>/VideoTranslation/<XX>, with the brand's sub-folder in front of <XX>
QString Folder(const QString &appDir, int n);

// Removes every translator installed before, then loads the own file and the
// Qt file of `n` and installs what loaded. A file that is missing leaves its
// texts in English. Returns whether the own file loaded.
bool Install(int n, const QString &appDir);

// Topics of the help pages, picked by the state of the window.
enum class HelpTopic { About, AddingFiles, Repairing, AdvancedRepair, PreviewAndSave };
// <appDir>/help/<XX>/<topic>.html, with English where a language has none.
QString HelpPage(const QString &appDir, int n, HelpTopic topic);
// The one help file of a language, for brands that ship one: <appDir>/HelpVideo_<XX>.html.
QString HelpFile(const QString &appDir, int n);
// What help opens: the market variant's link, the brand's language file, or
// the topic's page; empty when there is nothing to open.
QUrl HelpUrl(const QString &appDir, int n, HelpTopic topic);
// The licence page of the language, English where it has none.
QString LicensePage(const QString &appDir, int n);

} // namespace languages
