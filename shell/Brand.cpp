#include "Brand.h"

namespace brand {

namespace {
constexpr char kDateFormat[] = "ddd MMM dd yyyy hh:mm:ss";
constexpr char kDateFormatJapan[] = "yyyy MMM dd ddd hh:mm:ss";
} // namespace

const BrandRow kBrands[kBrandCount] = {
    {Brand::First, "Halvern", "Halvern Videomend ", "Halvern Works", "Halvern Videomend", "", "",
     "img_CompanyLogo.png", "Info.png", "HalvernVideomend", HelpKind::TopicPages, false, nullptr, true, false,
     {"#1a6fd1", "#155db2", "#114c93", "#e8eef6"}},
    {Brand::Second, "Quorrel", "Quorrel Videomend ", "Quorrel Works", "Quorrel Videomend", "Quorrel/", "",
     "img_CompanyLogoQuorrel.png", "Info.png", "QuorrelVideomend", HelpKind::LanguageFile, true, nullptr, true,
     false, {"#1a6fd1", "#155db2", "#114c93", "#e8eef6"}},
    {Brand::Third, "Tessalvane", "Tessalvane Videomend", "Tessalvane Works", "Tessalvane Videomend",
     "Tessalvane/", "Tessalvane/", "img_CompanyLogo.png", "Info1.png", "TessalvaneVideomend",
     HelpKind::LanguageFile, false, "#E31F26", false, true, {"#2b3a4a", "#3a4d61", "#1d2835", "#eceff2"}},
};

const MarketRow kMarkets[kMarketCount] = {
    {MarketVariant::None, "None", -1, nullptr, true, UpdateWay::Check, kDateFormat, nullptr, 1.1f},
    {MarketVariant::Japan, "Japan", 5, nullptr, false, UpdateWay::None, kDateFormatJapan, "JA/HelpLink_JA", 0.6f},
    {MarketVariant::Korea, "Korea", 7, "LANG_KO_Myung", false, UpdateWay::Check, kDateFormat, nullptr, 0.9f},
    {MarketVariant::China, "China", 6, nullptr, false, UpdateWay::OpenLink, kDateFormat, "CN/HelpLink_CN", 1.1f},
};

} // namespace brand
