// The order is fixed: all files are read before anything is checked, and all questions come last.
#include "graph/file_lines.h"

#include <algorithm>

#include "base/encoding.h"
#include "interp/method_table.h"
#include "interp/point_file.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

constexpr std::size_t kManyPoints = 50;

MessageBox WarningBox(std::u16string text) {
    return {std::u16string(Text(StringId::Warning)), std::move(text), MessageIcon::Exclamation,
            MessageButtons::Ok};
}

bool ReadPoints(FunctionEntry& entry) {
    entry.pointPixels = {};
    PointFile file = ReadPointFile(ToUtf8(entry.workingText));
    entry.points = std::move(file.points);
    return file.error == PointFileError::None;
}

}  // namespace

bool IsSelectedFile(const FunctionEntry& entry) {
    return entry.selected == 1 && entry.type == static_cast<std::int32_t>(EquationType::File);
}

bool ReadPointFiles(FunctionList& functions) {
    return std::all_of(functions.begin(), functions.end(), [](FunctionEntry& entry) {
        return !IsSelectedFile(entry) || ReadPoints(entry);
    });
}

bool HasGoodTermCount(const ApproxParameters& parameters, std::size_t points) {
    const MethodRow* const row = FindMethod(parameters.approx);
    if (row == nullptr) return true;
    const auto isGood = [&](const MethodParameter& parameter) {
        if (parameter.kind != ParameterKind::Terms) return true;
        const std::int32_t terms = parameters.*parameter.whole;
        // KEEP: as many terms as points pass, although the message asks for fewer.
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
        // KEEP: the others are still asked about after a No.
        const MessageAnswer answer = show({std::u16string(Text(StringId::Warning)),
                                           FillIn(Text(StringId::ManyLines), {entry.text}),
                                           MessageIcon::Information, MessageButtons::YesNo});
        confirmed = confirmed && answer == MessageAnswer::Yes;
    }
    return confirmed;
}

bool PrepareFileLines(FunctionList& functions, const ShowMessage& show) {
    if (!ReadPointFiles(functions)) {
        show(WarningBox(std::u16string(Text(StringId::ErrorInFile))));
        return false;
    }
    return CheckTermCounts(functions, show) && ConfirmManyLines(functions, show);
}

}  // namespace kalvex
