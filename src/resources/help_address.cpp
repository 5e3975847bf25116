// The address of a page consists of the program's path and the language. The page in US English
// belongs to the program itself, every other page to a language file beside it. In the file system
// each page has a folder that is named by the four hexadecimal digits of its language.
//
// An unknown language counts as English, so that every address leads to a page. A language without
// a page gets the English one.
#include "resources/help_address.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <system_error>

namespace kalvex {
namespace {

struct Language {
    std::string_view code;
    std::string_view territory;
    int number;
};

// The first row of a language also stands for territories that have no row.
constexpr Language kLanguages[] = {
    {"ar", "SA", 1025}, {"az", "AZ", 1068}, {"be", "BY", 1059}, {"bg", "BG", 1026},
    {"ca", "ES", 1027}, {"cs", "CZ", 1029}, {"da", "DK", 1030}, {"de", "DE", 1031},
    {"de", "CH", 2055}, {"de", "AT", 3079}, {"el", "GR", 1032}, {"en", "US", 1033},
    {"en", "GB", 2057}, {"en", "AU", 3081}, {"en", "CA", 4105}, {"es", "ES", 3082},
    {"es", "MX", 2058}, {"et", "EE", 1061}, {"eu", "ES", 1069}, {"fa", "IR", 1065},
    {"fi", "FI", 1035}, {"fr", "FR", 1036}, {"fr", "BE", 2060}, {"fr", "CA", 3084},
    {"fr", "CH", 4108}, {"gl", "ES", 1110}, {"he", "IL", 1037}, {"hi", "IN", 1081},
    {"hr", "HR", 1050}, {"hu", "HU", 1038}, {"hy", "AM", 1067}, {"id", "ID", 1057},
    {"is", "IS", 1039}, {"it", "IT", 1040}, {"it", "CH", 2064}, {"ja", "JP", 1041},
    {"ka", "GE", 1079}, {"kk", "KZ", 1087}, {"ko", "KR", 1042}, {"ky", "KG", 1088},
    {"lt", "LT", 1063}, {"lv", "LV", 1062}, {"mk", "MK", 1071}, {"mn", "MN", 1104},
    {"ms", "MY", 1086}, {"nb", "NO", 1044}, {"nl", "NL", 1043}, {"nl", "BE", 2067},
    {"nn", "NO", 2068}, {"no", "NO", 1044}, {"pl", "PL", 1045}, {"pt", "BR", 1046},
    {"pt", "PT", 2070}, {"ro", "RO", 1048}, {"ru", "RU", 1049}, {"sk", "SK", 1051},
    {"sl", "SI", 1060}, {"sq", "AL", 1052}, {"sv", "SE", 1053}, {"sv", "FI", 2077},
    {"th", "TH", 1054}, {"tr", "TR", 1055}, {"tt", "RU", 1092}, {"uk", "UA", 1058},
    {"uz", "UZ", 1091}, {"vi", "VN", 1066}, {"zh", "CN", 2052}, {"zh", "TW", 1028},
    {"zh", "HK", 3076}, {"zh", "SG", 4100},
};

constexpr std::string_view kScheme = "res://";
constexpr std::string_view kPage = "/HTML/#172";
constexpr std::string_view kLanguageFile = ".mui";
constexpr std::string_view kEnglishFolder = "0409";

std::string Hexadecimal(int number) {
    std::array<char, 8> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16);
    return {digits.data(), result.ptr};
}

/// Whether a part of a locale's name is a territory: two capital letters.
bool IsTerritory(std::string_view part) {
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    return part.size() == 2 && std::all_of(part.begin(), part.end(), isCapital);
}

/// The four digits between ".0" or "." and ".mui" at the end of a module name, if they are there.
std::optional<std::string> LanguageFolder(std::string_view module) {
    if (!module.ends_with(kLanguageFile)) return std::nullopt;
    module.remove_suffix(kLanguageFile.size());
    const std::size_t point = module.rfind('.');
    if (point == std::string_view::npos) return std::nullopt;
    const std::string_view digits = module.substr(point + 1);
    int number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    const bool whole = result.ec == std::errc() && result.ptr == digits.data() + digits.size();
    if (!whole || number <= 0 || number > 0xffff) return std::nullopt;
    const std::string shortest = Hexadecimal(number);
    return std::string(4 - shortest.size(), '0') + shortest;
}

std::string PageIn(std::string_view language, const std::vector<std::filesystem::path>& folders) {
    for (const std::filesystem::path& folder : folders) {
        const std::filesystem::path page = folder / language / "index.html";
        std::error_code error;
        if (std::filesystem::is_regular_file(page, error)) return page.string();
    }
    return {};
}

}  // namespace

int LanguageNumber(std::string_view locale) {
    locale = locale.substr(0, locale.find_first_of(".@"));
    const std::size_t end = std::min(locale.find_first_of("-_"), locale.size());
    const std::string_view code = locale.substr(0, end);
    std::string_view territory;
    while (!locale.empty()) {
        const std::size_t length = std::min(locale.find_first_of("-_"), locale.size());
        if (IsTerritory(locale.substr(0, length))) territory = locale.substr(0, length);
        locale.remove_prefix(std::min(length + 1, locale.size()));
    }
    int number = 0;
    for (const Language& row : kLanguages) {
        if (row.code != code) continue;
        if (row.territory == territory) return row.number;
        if (number == 0) number = row.number;
    }
    return number == 0 ? kEnglishLanguage : number;
}

std::string HelpAddress(std::string_view module, int language) {
    std::string address(kScheme);
    address += module;
    if (language > 0 && language != kEnglishLanguage) {
        address += ".0" + Hexadecimal(language);
        address += kLanguageFile;
    }
    address += kPage;
    return address;
}

std::string HelpPage(std::string_view address, const std::vector<std::filesystem::path>& folders) {
    if (!address.starts_with(kScheme) || !address.ends_with(kPage)) return {};
    address.remove_suffix(kPage.size());
    if (const auto folder = LanguageFolder(address)) {
        std::string page = PageIn(*folder, folders);
        if (!page.empty()) return page;
    }
    return PageIn(kEnglishFolder, folders);
}

}  // namespace kalvex
