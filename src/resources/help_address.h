// The address of the help page of a language, and the file that belongs to an address.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kalvex {

/// US English, whose page every installation has. It also stands for an unknown language.
inline constexpr int kEnglishLanguage = 1033;

/// The Windows number of a locale such as "ru-RU", "ru_RU.UTF-8", "zh-Hant-TW" or "de". A territory
/// that the table lacks counts as the language's first one; kEnglishLanguage for a language that it
/// lacks, for "C" and for an empty name.
[[nodiscard]] int LanguageNumber(std::string_view locale);

/// The address of the help page: "res://MODULE/HTML/#172" for US English, for any other language
/// "res://MODULE.0NUMBER.mui/HTML/#172", the number in lower-case hexadecimal. A number of 0 or
/// less is an unknown language and gets the English address.
[[nodiscard]] std::string HelpAddress(std::string_view module, int language);

/// The file that an address stands for (UTF-8): "0419/index.html" for Russian in the first of
/// the folders that has it, else the English one ("0409"); empty when there is neither, or for a
/// text that is no such address.
[[nodiscard]] std::string HelpPage(std::string_view address,
                                   const std::vector<std::filesystem::path>& folders);

}  // namespace kalvex
