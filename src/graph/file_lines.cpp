// The order is fixed: all files are read before anything is checked, and all questions come last.
#include "graph/file_lines.h"

#include <algorithm>

#include "base/encoding.h"
#include "interp/method_table.h"
#include "interp/point_file.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

constexpr std::size_t kManyPoints = 50;

bool ReadPoints(FunctionEntry& entry, const std::string& path) {
    entry.pointPixels = {};
    PointFile file = ReadPointFile(path);
    entry.points = std::move(file.points);
    return file.error == PointFileError::None;
}

}  // namespace

bool IsSelectedFile(const FunctionEntry& entry) {
    return entry.selected == 1 && entry.type == EquationType::File;
}

FilePaths PathsOf(const FunctionList& functions) {
    FilePaths paths;
    for (std::size_t slot = 0; slot < paths.size(); ++slot)
        paths[slot] = ToUtf8(functions[slot].workingText);
    return paths;
}

bool ReadPointFiles(FunctionList& functions, const FilePaths& paths) {
    for (std::size_t slot = 0; slot < paths.size(); ++slot) {
        FunctionEntry& entry = functions[slot];
        if (IsSelectedFile(entry) && !ReadPoints(entry, paths[slot])) return false;
    }
    return true;
}

bool HasGoodTermCount(const ApproxParameters& parameters, std::size_t points) {
    const MethodRow* const row = FindMethod(parameters.approx);
    if (row == nullptr) return true;
    const auto isGood = [&](const MethodParameter& parameter) {
        if (parameter.kind != ParameterKind::Terms) return true;
        const std::int32_t terms = parameters.*parameter.whole;
        // KEEP: as many terms as points are allowed, although the message asks for fewer.
        return terms >= 1 && static_cast<std::size_t>(terms) <= points;
    };
    return std::all_of(row->form.parameters.begin(), row->form.parameters.end(), isGood);
}

MessageBox TermCountBox(int function) {
    return WarningBox(FillIn(Text(StringId::TooManyTerms), {NumberText(function)}));
}

bool CheckTermCounts(const FunctionList& functions, const ShowMessage& show) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const FunctionEntry& entry = functions[static_cast<std::size_t>(slot)];
        const bool good = HasGoodTermCount(entry.method, CountOf(entry.points));
        if (!IsSelectedFile(entry) || good) continue;
        show(TermCountBox(slot + 1));
        return false;
    }
    return true;
}

bool ConfirmManyLines(const FunctionList& functions, const ShowMessage& show) {
    bool confirmed = true;
    for (const FunctionEntry& entry : functions) {
        if (!IsSelectedFile(entry) || CountOf(entry.points) <= kManyPoints) continue;
        // KEEP: after the answer No the other lines are asked about all the same.
        const std::u16string question = FillIn(Text(StringId::ManyLines), {entry.text});
        const MessageAnswer answer = show(
            BoxOf(StringId::Warning, question, MessageIcon::Information, MessageButtons::YesNo));
        confirmed = confirmed && answer == MessageAnswer::Yes;
    }
    return confirmed;
}

bool PrepareFileLines(FunctionList& functions, const FilePaths& paths, const ShowMessage& show) {
    if (!ReadPointFiles(functions, paths)) {
        show(WarningBox(Text(StringId::ErrorInFile)));
        return false;
    }
    return CheckTermCounts(functions, show) && ConfirmManyLines(functions, show);
}

bool PrepareFileLines(FunctionList& functions, const ShowMessage& show) {
    return PrepareFileLines(functions, PathsOf(functions), show);
}

}  // namespace kalvex
