// Run: scripts/fuzz
//
// Any bytes are a settings file. Reading it as an INI text and writing that text keeps all values.
// What the program loads from the file and stores into it is loaded the same by the next starts but
// for what storing rounds, and the file then stays as it is, byte by byte.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz_input.h"
#include "settings/ini_text.h"
#include "settings/registry_file.h"
#include "settings/settings.h"
#include "settings/settings_names.h"
#include "workspace/option_rows.h"

namespace {

using namespace kalvex;
using fuzz::Require;
using fuzz::Same;

namespace fs = std::filesystem;

/// A folder in memory where the system has such a one; one for each process, gone at its end.
struct Folder {
    fs::path path =
        (fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) /
        ("kalvex-settings-fuzz-" + std::to_string(getpid()));
    Folder() { fs::create_directory(path); }
    ~Folder() { fs::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
};

const fs::path& FolderPath() {
    static const Folder folder;
    return folder.path;
}

std::string FilePath() {
    return FolderPath() / "kalvex.ini";
}

/// The copies of settings that were not understood.
void RemoveOtherFiles() {
    for (const auto& entry : fs::directory_iterator(FolderPath()))
        if (entry.path() != FilePath()) fs::remove(entry.path());
}

std::string FileBytes() {
    std::ifstream file(FilePath(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void CheckIni(std::string_view bytes) {
    const IniText ini = ReadIni(bytes);
    const std::string written = WriteIni(ini);
    const IniText again = ReadIni(written);
    Require(again.values.size() == ini.values.size());
    for (const IniValue& value : ini.values) {
        const IniValue* const found = FindIniValue(again, value.section, value.name);
        Require(found != nullptr && found->text == value.text);
    }
    Require(WriteIni(again) == written);
}

/// The program's start, and the storing that it does while it runs.
Workspace LoadAndStore() {
    const Registry registry = OpenRegistryFile(FilePath());
    const ShowMessage show = [](const MessageBox&) { return MessageAnswer::Ok; };
    Workspace workspace;
    static_cast<void>(CreateDefaultKeys(registry));
    LoadFunctionTexts(registry, workspace, show);
    LoadFunctionSettings(registry, workspace, show);
    LoadSettings(registry, workspace, show);
    CreateMissingKeys(registry, workspace);
    const bool stored = WriteTogether(registry, [&] {
        for (const OptionRow& row : kOptionRows) {
            if (row.kind == OptionKind::Range) continue;
            const std::int32_t number = StoredNumberOf(workspace.options, row);
            Require(StoreOption(registry, row.name, number) == 1);
        }
        return StoreView(registry, workspace.view, workspace.options) &&
               StoreFunctionSettings(registry, workspace.functions) &&
               StoreFunctionTexts(registry, workspace.lines);
    });
    Require(stored);
    return workspace;
}

void RequireSame(const FunctionEntry& a, const FunctionEntry& b) {
    Require(a.type == b.type && a.color == b.color && a.selected == b.selected);
    for (const auto& whole : kWholeParameters)
        Require(a.method.*whole.field == b.method.*whole.field);
    for (const auto& real : kRealParameters)
        Require(Same(a.method.*real.field, b.method.*real.field));
}

void RequireSame(const Workspace& a, const Workspace& b) {
    for (std::size_t slot = 0; slot < a.functions.size(); ++slot) {
        Require(a.lines[slot] == b.lines[slot]);
        RequireSame(a.functions[slot], b.functions[slot]);
    }
    for (const OptionRow& row : kOptionRows)
        Require(Same(ValueOf(a.options, row), ValueOf(b.options, row)));
    for (const ViewValue& value : kViewValues)
        Require(Same(a.view.*value.field, b.view.*value.field));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckIni(bytes);
    std::ofstream(FilePath(), std::ios::binary) << bytes;
    // The first storing cuts texts to 50 characters and numbers to six decimals, by which bounds
    // may become equal. The next start puts defaults in their place, whose decimals are cut by the
    // second storing. From then on nothing changes any more.
    static_cast<void>(LoadAndStore());
    static_cast<void>(LoadAndStore());
    const Workspace third = LoadAndStore();
    const std::string stored = FileBytes();
    const Workspace fourth = LoadAndStore();
    RemoveOtherFiles();
    RequireSame(third, fourth);
    Require(FileBytes() == stored);
    return 0;
}
