// The rules of the rooms, applied to a table of rooms and to the #include lines of source files.
#pragma once

#include <string>
#include <vector>

namespace kalvex::rooms {

/// A row of the table: a room, the rooms that it uses, its libraries (CMake targets).
struct Room {
    std::string name;
    std::vector<std::string> uses;
    std::vector<std::string> libraries;
    friend bool operator==(const Room&, const Room&) = default;
};

/// What one #include line names.
struct Include {
    std::string target;
    bool quoted = true;  ///< "target", otherwise <target>
};

struct SourceFile {
    std::string path;  ///< below src/, with slashes: "graph/trace.cpp"
    std::vector<Include> includes;
};

/// The rows of the build's table: "name|room room|library library" per line.
std::vector<Room> ReadRooms(const std::string& text);

/// The rows of the table of rooms in the documentation: its lines "| `name` | ... | uses |
/// libraries |", the names separated by commas.
std::vector<Room> ReadDocumentedRooms(const std::string& markdown);

/// The #include lines of a source text.
std::vector<Include> ReadIncludes(const std::string& source);

/// All source files below a folder (.h, .cpp, .inc), in order of their paths.
std::vector<SourceFile> ReadSources(const std::string& folder);

/// Rows of the table that use a room which is not above them, or that name a room twice.
std::vector<std::string> WrongRows(const std::vector<Room>& rooms);

/// Includes that the table does not allow, and files that belong to no room.
std::vector<std::string> WrongIncludes(const std::vector<Room>& rooms,
                                       const std::vector<SourceFile>& files);

/// Entries of the table, rooms and libraries, that no file of the room includes.
std::vector<std::string> UnusedEntries(const std::vector<Room>& rooms,
                                       const std::vector<SourceFile>& files);

/// Units that include each other in a circle, one line per circle. A unit is a header and its
/// source: the files whose paths differ only in their endings.
std::vector<std::string> Circles(const std::vector<SourceFile>& files);

}  // namespace kalvex::rooms
