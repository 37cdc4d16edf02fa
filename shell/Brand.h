#pragma once
// Brands and market variants are rows of two tables. Each program links one
// source of shell/brands/ per table (Brand<Name>.cpp, Market<Name>.cpp) that
// names its row; everything else in the shell is compiled once.

enum class Brand { First, Second, Third };
enum class MarketVariant { None, Japan, Korea, China };

// How a program looks for updates: the Japanese variant doesn't, the Chinese
// one only opens the page named by CN/CN_Update_Lnk when asked.
enum class UpdateWay { Check, OpenLink, None };

// Help as a page per topic beside the program, or one file per language.
enum class HelpKind { TopicPages, LanguageFile };

struct BrandPalette
{
    const char *accent;
    const char *hover;
    const char *pressed;
    const char *light;
};

struct BrandRow
{
    Brand brand;
    const char *name;            // "Halvern": build option, file names
    const char *productName;     // in titles, trailing blank included
    const char *organisation;    // settings company key
    const char *application;     // settings file name
    const char *translationSub;  // in front of <XX> under VideoTranslation/
    const char *imageRoot;       // ":/images/" + this + "<folder>/"
    const char *companyLogo;     // file under the image root
    const char *infoImage;       // the dialogs' info icon
    const char *updateStem;      // the version file's stem on the server
    HelpKind help;
    bool updateAfterRun;         // UpdateBtn_2 is enabled again when a run ends
    const char *stopTextColour;  // nullptr: Stop looks like the other buttons
    bool languageButton;
    bool ownListSheets;          // a list sheet for each of the five steps
    BrandPalette palette;
};

struct MarketRow
{
    MarketVariant variant;
    const char *name;
    int forcedLanguage;          // LanguageType, or -1
    const char *ownFileOverride; // own translation file of the forced language, or nullptr
    bool languageMenu;
    UpdateWay update;
    const char *dateFormat;      // of the file list's date columns
    const char *helpLinkKey;     // settings key of the help page, or nullptr
    float stripEnd;              // phase at which the toolbar strip stops
};

namespace brand {

constexpr int kBrandCount = 3;
constexpr int kMarketCount = 4;
extern const BrandRow kBrands[kBrandCount];
extern const MarketRow kMarkets[kMarketCount];

// The rows of this program: defined by the linked Brand<Name>.cpp and
// Market<Name>.cpp.
const BrandRow &Current();
const MarketRow &Market();

// The language button and its menus: the brand and the variant both allow them.
inline bool HasLanguageMenu() { return Current().languageButton && Market().languageMenu; }
// The update button: not in a variant that never updates.
inline bool HasUpdateButton() { return Market().update != UpdateWay::None; }

} // namespace brand
