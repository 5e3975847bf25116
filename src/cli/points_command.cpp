// points: prints the points of a file as the program reads them, which shows how its rules treat
// short and long lines.
#include <CLI/CLI.hpp>
#include <memory>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/point_table.h"
#include "numbers/decimal.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

ExitStatus Run(const std::string& path) {
    const std::optional<PointTable> table = ReadTable(path);
    if (!table) return ExitStatus::Rejected;
    for (std::size_t i = 0; i < table->x.size(); ++i) {
        if (!WriteOut(FormatGeneral17(table->x[i]) + '\t' + FormatGeneral17(table->y[i]) + '\n'))
            break;
    }
    return ExitStatus::Done;
}

}  // namespace

std::optional<PointTable> ReadTable(const std::string& path) {
    PointFile file = ReadPointFile(path);
    if (file.error == PointFileError::None) return std::move(file.points);
    ShowOnStandardError(WarningBox(Text(StringId::ErrorInFile)));
    return std::nullopt;
}

void AddPointsCommand(CLI::App& tool, ExitStatus& status) {
    CLI::App* command = AddCommand(
        tool, "points", "Print the points of a file as they are read: x and y per point.");
    const auto path = std::make_shared<std::string>();
    command->add_option("FILE", *path, "The point file.")->required();
    command->callback([path, &status] { status = Run(*path); });
}

}  // namespace kalvex
