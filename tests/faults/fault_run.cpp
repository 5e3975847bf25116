#include "faults/fault_run.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>

#include "faults/fault_answer.h"

namespace kalvex {
namespace {

// High, so that the program's own files have the numbers that they have without a test.
constexpr int kLineInProgram = 100;

/// How far apart the allocations are that fail, from KALVEX_FAULTS; 0 for the short test.
long WantedStep() {
    const char* const wanted = std::getenv("KALVEX_FAULTS");
    if (wanted == nullptr) return 0;
    return std::string_view(wanted) == "all" ? 1 : std::atol(wanted);
}

long Next(const FaultKind& kind, long number) {
    if (std::string_view(kind.name) != "alloc") return number + 1;
    const long step = WantedStep();
    return number + (step > 0 ? step : 1 + number / 8);
}

}  // namespace

FaultyProgram::FaultyProgram(const std::vector<std::string>& arguments,
                             const std::vector<std::string>& environment)
    : streams_{folder_.PathOf("in"), folder_.PathOf("out"), folder_.PathOf("err")} {
    int ends[2] = {-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    std::ofstream(streams_.in) << "";
    std::vector<std::string> all = environment;
    all.push_back(std::string("LD_PRELOAD=") + KALVEX_FAULT_LIBRARY);
    all.push_back("KALVEX_FAULT_LINE=" + std::to_string(kLineInProgram));
    line_ = ends[0];
    process_ = StartProgram(arguments, all, streams_, ends[1], kLineInProgram);
    close(ends[1]);
}

FaultyProgram::~FaultyProgram() {
    close(line_);
    if (process_ >= 0) waitpid(process_, nullptr, 0);
}

FaultRun FaultyProgram::Run(const std::string& fault) {
    for (const std::string& stream : {streams_.out, streams_.err})
        std::ofstream(stream, std::ios::trunc) << "";
    FaultRun result;
    result.fault = fault;
    const std::string request = fault + '\n';
    FaultAnswer answer;
    if (send(line_, request.data(), request.size(), MSG_NOSIGNAL) < 0 ||
        recv(line_, &answer, sizeof answer, MSG_WAITALL) != sizeof answer)
        return result;
    result.reached = answer.reached;
    result.run = {ExitStatusOf(answer.state), ReadFile(streams_.out), ReadFile(streams_.err)};
    return result;
}

int ForEachFault(FaultyProgram& program, const FaultKind& kind, const FaultSteps& steps) {
    int count = 0;
    // A call that is only interrupted or short is made again, so it cannot fail for ever.
    for (const bool lasting : {false, true}) {
        if (lasting && (kind.harmless || kind.kills)) continue;
        bool reached = true;
        for (long number = 1; reached; number = Next(kind, number)) {
            steps.before();
            const FaultRun run = program.Run(std::string(kind.name) + ':' + std::to_string(number) +
                                             (lasting ? "+" : ""));
            steps.after(run);
            reached = run.reached;
            count += reached ? 1 : 0;
        }
    }
    return count;
}

void RecordFaults(const std::string& flow, const FaultKind& kind, int count) {
    testing::Test::RecordProperty(kind.name, count);
    std::cout << flow << ": " << count << " failing calls of the kind " << kind.name << '\n';
}

}  // namespace kalvex
