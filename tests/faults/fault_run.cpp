#include "faults/fault_run.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace kalvex {
namespace {

bool EverySingleOne() {
    const char* const wanted = std::getenv("KALVEX_FAULTS");
    return wanted != nullptr && std::string_view(wanted) == "all";
}

long Next(const FaultKind& kind, long number) {
    const bool all = std::string_view(kind.name) != "alloc" || EverySingleOne();
    return number + (all ? 1 : 1 + number / 8);
}

}  // namespace

FaultRun RunWithFault(const FaultKind& kind, long number, bool lasting, const StartWith& start) {
    const TemporaryFolder folder;
    const std::string mark = folder.PathOf("reached");
    FaultRun result;
    result.fault = std::string(kind.name) + ':' + std::to_string(number) + (lasting ? "+" : "");
    result.run = start({std::string("LD_PRELOAD=") + KALVEX_FAULT_LIBRARY,
                        "KALVEX_FAULT=" + result.fault, "KALVEX_FAULT_MARK=" + mark});
    result.reached = std::filesystem::exists(mark);
    return result;
}

void ForEachFault(const FaultKind& kind, const StartWith& start,
                  const std::function<void(const FaultRun&)>& check) {
    // A call that is only interrupted or short is made again, so it cannot fail for ever.
    for (const bool lasting : {false, true}) {
        if (lasting && (kind.harmless || kind.kills)) continue;
        bool reached = true;
        for (long number = 1; reached; number = Next(kind, number)) {
            const FaultRun run = RunWithFault(kind, number, lasting, start);
            check(run);
            reached = run.reached;
        }
    }
}

}  // namespace kalvex
