#include "Layouts.h"

#include <cstring>

namespace layouts {

namespace {

// English, and the rows every language shares.
const Rect kBase[] = {
    {"AddFile_frame", 0, 0, 850, 600},
    {"frame_2", 0, 0, 850, 600},
    // Title bars.
    {"logoLabl_1", 22, 10, 30, 30},
    {"ProductLabl_1", 60, 12, 360, 26},
    {"MiniMaBtn", 782, 4, 30, 24},
    {"closeBtn", 814, 4, 30, 24},
    {"logoLabl_2", 22, 10, 30, 30},
    {"label_2", 60, 12, 360, 26},
    {"MiniMiseBtn2", 782, 4, 30, 24},
    {"closeBtn_2", 814, 4, 30, 24},
    // Toolbars: packed from the right.
    {"MenuBtn_1", 0, 37, 28, 26},
    {"SeperateLbl_1", 0, 42, 1, 16},
    {"LanguageBtn_1", 0, 37, 110, 26},
    {"SeperateLbl_3", 0, 42, 1, 16},
    {"AbutBtn_1", 0, 37, 28, 26},
    {"HelpBtn_1", 0, 37, 28, 26},
    {"SeperateLbl_4", 0, 42, 1, 16},
    {"UpdateBtn_1", 0, 37, 28, 26},
    {"SeperateLbl_5", 0, 42, 1, 16},
    {"MenuBtn_2", 0, 37, 28, 26},
    {"SeperateLbl_2", 0, 42, 1, 16},
    {"LanguageBtn_2", 0, 37, 110, 26},
    {"SeperateLbl_6", 0, 42, 1, 16},
    {"AbutBtn_2", 0, 37, 28, 26},
    {"HelpBtn_2", 0, 37, 28, 26},
    {"SeperateLbl_7", 0, 42, 1, 16},
    {"UpdateBtn_2", 0, 37, 28, 26},
    {"SeperateLbl_8", 0, 42, 1, 16},
    // The add page.
    {"label_5", 0, 150, 850, 36},
    {"add_filebtn", 345, 200, 160, 150},
    {"pushButton", 345, 372, 160, 40},
    {"label_6", 22, 84, 600, 28},
    {"label_7", 22, 112, 805, 44},
    {"SelectAllBtn", 22, 180, 150, 20},
    {"AddFileBtn", 761, 172, 30, 24},
    {"RemoveBtn", 797, 172, 30, 24},
    {"Frame1_ListLabl_2", 22, 210, 141, 20},
    {"MainString_labl", 22, 456, 805, 20},
    {"chnageLoc_Labl", 22, 478, 200, 20},
    {"ChnageLoc_Btn", 222, 478, 160, 20},
    {"RepairBtn", 687, 530, 140, 40},
    // The results page.
    {"BackBtn", 22, 80, 30, 30},
    {"stringLabl", 62, 78, 765, 30},
    {"stringLabl_2", 62, 108, 765, 40},
    {"Select_All", 22, 148, 220, 20},
    {"Frame2_ListLabl", 250, 148, 141, 20},
    {"FileNameLabl", 22, 442, 805, 20},
    {"FileProgress", 22, 464, 805, 10},
    {"OverAllProgessLabl", 22, 482, 160, 20},
    {"OverAllProgessCheck", 182, 482, 500, 20},
    {"PercentLabl", 727, 482, 100, 20},
    {"overAllProgess_2", 22, 504, 805, 10},
    {"PreviewBtn", 22, 530, 120, 40},
    {"referenceLinkBtn", 150, 530, 220, 40},
    {"MainString_labl_2", 22, 578, 400, 18},
    {"chnageLoc_Labl_2", 430, 578, 200, 18},
    {"ChnageLoc_Btn_2", 640, 578, 120, 18},
    {"saveBtn", 587, 530, 240, 40},
    {"stopBtn", 687, 530, 140, 40},
};

const Rect kMoreTools[] = {
    {"MoreToolsBtn_1", 0, 37, 28, 26},
    {"MoreToolsBtn_2", 0, 37, 28, 26},
};

// Where a language's texts need other room than English's.
struct LanguageRows
{
    int language;
    std::vector<Rect> rows;
};

const LanguageRows kLanguages[] = {
    {0, {}},
    {1, {}},
    {2, {}},
    {3, {}},
    {4, {}},
    {5, {}},
    {6, {}},
    {7, {}},
    {8, {}},
    {9, {{"LanguageBtn_1", 0, 37, 150, 26}, {"LanguageBtn_2", 0, 37, 150, 26}}},
    {10, {}},
};

} // namespace

const Rect *Find(const std::vector<Rect> &table, const char *name)
{
    for (const Rect &r : table)
        if (std::strcmp(r.name, name) == 0)
            return &r;
    return nullptr;
}

std::vector<Rect> For(int language, bool moreTools)
{
    std::vector<Rect> table(std::begin(kBase), std::end(kBase));
    if (moreTools)
        table.insert(table.end(), std::begin(kMoreTools), std::end(kMoreTools));
    const int n = language >= 0 && language < int(std::size(kLanguages)) ? language : 0;
    for (const Rect &own : kLanguages[n].rows)
        for (Rect &r : table)
            if (std::strcmp(r.name, own.name) == 0)
                r = own;
    return table;
}

} // namespace layouts
