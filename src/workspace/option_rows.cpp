// Reading and setting a field through its row.
#include "workspace/option_rows.h"

#include <algorithm>

#include "numbers/truncate.h"

namespace kalvex {

std::vector<const OptionRow*> RowsInOrder(int (*placeOf)(const OptionRow& row)) {
    std::vector<const OptionRow*> rows;
    for (const OptionRow& row : kOptionRows) {
        if (placeOf(row) != 0) rows.push_back(&row);
    }
    std::ranges::stable_sort(rows, {}, [placeOf](const OptionRow* row) { return placeOf(*row); });
    return rows;
}

double ValueOf(const Options& options, const OptionRow& row) {
    return std::visit([&](auto field) { return static_cast<double>(options.*field); }, row.field);
}

std::int32_t StoredNumberOf(const Options& options, const OptionRow& row) {
    return TruncateToInt32(ValueOf(options, row));
}

void SetValue(Options& options, const OptionRow& row, double value) {
    const auto set = [&]<typename Value>(Value Options::*field) {
        options.*field = static_cast<Value>(value);
    };
    std::visit(set, row.field);
}

std::u16string ChoiceText(const OptionChoice& choice) {
    if (choice.word != StringId{}) return std::u16string(Text(choice.word));
    return FillIn(Text(StringId::TextSizeFormat),
                  {NumberText(choice.number), Text(StringId::TextSizeUnit)});
}

}  // namespace kalvex
