#include "rooms/room_rules.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string_view>

namespace kalvex::rooms {
namespace {

/// Headers of the system and of libraries that cannot be recognised by the form of their names.
struct KnownHeader {
    std::string_view name;
    std::string_view library;  ///< empty: comes with the compiler or the system
};

constexpr KnownHeader kKnownHeaders[] = {
    {"CLI/CLI.hpp", "CLI11::CLI11"},
    {"libdeflate.h", "PkgConfig::LIBDEFLATE"},
    {"sleef.h", "PkgConfig::SLEEF"},
    {"arm_neon.h", ""},
    {"dirent.h", ""},
    {"fcntl.h", ""},
    {"immintrin.h", ""},
    {"locale.h", ""},
    {"poll.h", ""},
    {"sys/file.h", ""},
    {"sys/socket.h", ""},
    {"sys/stat.h", ""},
    {"sys/xattr.h", ""},
    {"unistd.h", ""},
};

std::vector<std::string> Words(const std::string& text) {
    std::vector<std::string> words;
    static const std::regex word("[^ ,|`]+");
    for (std::sregex_iterator at(text.begin(), text.end(), word), end; at != end; ++at)
        words.push_back(at->str());
    return words;
}

std::vector<std::string> Split(const std::string& line, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(line);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

std::string RoomOf(const std::string& path) {
    return path.substr(0, path.find('/'));
}

std::string UnitOf(const std::string& path) {
    return path.substr(0, path.rfind('.'));
}

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsLibraryOf(const std::string& target, const std::string& library) {
    if (std::isupper(static_cast<unsigned char>(target[0])) != 0 && target[0] == 'Q')
        return library.starts_with("Qt6::");
    for (const KnownHeader& known : kKnownHeaders)
        if (known.name == target) return known.library == library;
    return false;
}

/// Whether a header in angle brackets comes with the compiler or the system.
bool IsOfTheSystem(const std::string& target) {
    if (IsLibraryOf(target, "")) return true;
    return std::all_of(target.begin(), target.end(),
                       [](char c) { return (c >= 'a' && c <= 'z') || c == '_' || c == '8'; });
}

bool IsAllowed(const Room& room, const Include& include, const std::set<std::string>& paths) {
    if (!include.quoted)
        return IsOfTheSystem(include.target) ||
               std::any_of(room.libraries.begin(), room.libraries.end(),
                           [&](const auto& name) { return IsLibraryOf(include.target, name); });
    const std::string used = RoomOf(include.target);
    return paths.contains(include.target) && (used == room.name || Contains(room.uses, used));
}

const Room* Find(const std::vector<Room>& rooms, const std::string& name) {
    for (const Room& room : rooms)
        if (room.name == name) return &room;
    return nullptr;
}

/// The depth-first search for circles; the units on the path to the present one are open.
struct Walk {
    const std::map<std::string, std::set<std::string>>& includes;
    std::vector<std::string> path;
    std::set<std::string> done;
    std::vector<std::string> circles;
};

void Visit(Walk& walk, const std::string& unit) {
    if (walk.done.contains(unit)) return;
    const auto open = std::find(walk.path.begin(), walk.path.end(), unit);
    if (open != walk.path.end()) {
        std::string circle;
        for (auto at = open; at != walk.path.end(); ++at)
            circle += *at + " -> ";
        walk.circles.push_back(circle + unit);
        return;
    }
    walk.path.push_back(unit);
    if (const auto found = walk.includes.find(unit); found != walk.includes.end())
        for (const std::string& next : found->second)
            Visit(walk, next);
    walk.path.pop_back();
    walk.done.insert(unit);
}

}  // namespace

std::vector<Room> ReadRooms(const std::string& text) {
    std::vector<Room> rooms;
    for (const std::string& line : Split(text, '\n')) {
        std::vector<std::string> columns = Split(line, '|');
        columns.resize(3);
        rooms.push_back({columns[0], Words(columns[1]), Words(columns[2])});
    }
    return rooms;
}

std::vector<Room> ReadDocumentedRooms(const std::string& markdown) {
    std::vector<Room> rooms;
    for (const std::string& line : Split(markdown, '\n')) {
        const std::vector<std::string> columns = Split(line, '|');
        if (columns.size() < 5 || !columns[1].starts_with(" `")) continue;
        rooms.push_back({Words(columns[1])[0], Words(columns[3]), Words(columns[4])});
    }
    return rooms;
}

std::vector<Include> ReadIncludes(const std::string& source) {
    std::vector<Include> includes;
    static const std::regex line(R"(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"])");
    for (const std::string& text : Split(source, '\n')) {
        std::smatch match;
        if (std::regex_search(text, match, line))
            includes.push_back({match[2].str(), match[1].str() == "\""});
    }
    return includes;
}

std::vector<SourceFile> ReadSources(const std::string& folder) {
    std::vector<SourceFile> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string ending = entry.path().extension().string();
        if (ending != ".h" && ending != ".cpp" && ending != ".inc") continue;
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        files.push_back(
            {entry.path().lexically_relative(folder).generic_string(), ReadIncludes(text.str())});
    }
    std::sort(files.begin(), files.end(),
              [](const SourceFile& a, const SourceFile& b) { return a.path < b.path; });
    return files;
}

std::vector<std::string> WrongRows(const std::vector<Room>& rooms) {
    std::vector<std::string> wrong;
    std::vector<std::string> above;
    for (const Room& room : rooms) {
        for (const std::string& used : room.uses)
            if (!Contains(above, used))
                wrong.push_back(room.name + " uses " + used + ", which is not below it");
        if (Contains(above, room.name)) wrong.push_back(room.name + " has two rows");
        above.push_back(room.name);
    }
    return wrong;
}

std::vector<std::string> WrongIncludes(const std::vector<Room>& rooms,
                                       const std::vector<SourceFile>& files) {
    std::set<std::string> paths;
    for (const SourceFile& file : files)
        paths.insert(file.path);
    std::vector<std::string> wrong;
    for (const SourceFile& file : files) {
        const Room* room = Find(rooms, RoomOf(file.path));
        if (room == nullptr) wrong.push_back(file.path + " is in no room");
        for (const Include& include : file.includes)
            if (room != nullptr && !IsAllowed(*room, include, paths))
                wrong.push_back(file.path + " includes " + include.target);
    }
    return wrong;
}

std::vector<std::string> UnusedEntries(const std::vector<Room>& rooms,
                                       const std::vector<SourceFile>& files) {
    const auto isUsed = [&](const Room& room, const auto& matches) {
        return std::any_of(files.begin(), files.end(), [&](const SourceFile& file) {
            return RoomOf(file.path) == room.name &&
                   std::any_of(file.includes.begin(), file.includes.end(), matches);
        });
    };
    std::vector<std::string> unused;
    for (const Room& room : rooms) {
        for (const std::string& name : room.uses)
            if (!isUsed(room,
                        [&](const Include& i) { return i.quoted && RoomOf(i.target) == name; }))
                unused.push_back(room.name + " does not use " + name);
        for (const std::string& name : room.libraries)
            if (!isUsed(room,
                        [&](const Include& i) { return !i.quoted && IsLibraryOf(i.target, name); }))
                unused.push_back(room.name + " does not use " + name);
    }
    return unused;
}

std::vector<std::string> Circles(const std::vector<SourceFile>& files) {
    std::map<std::string, std::set<std::string>> includes;
    for (const SourceFile& file : files) {
        for (const Include& include : file.includes) {
            const std::string unit = UnitOf(include.target);
            if (include.quoted && unit != UnitOf(file.path))
                includes[UnitOf(file.path)].insert(unit);
        }
    }
    Walk walk{includes, {}, {}, {}};
    for (const auto& [unit, used] : includes)
        Visit(walk, unit);
    return walk.circles;
}

}  // namespace kalvex::rooms
