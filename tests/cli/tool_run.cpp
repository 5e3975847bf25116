// Standard input, output and error are files in a temporary folder, because a pipe could fill up
// and block when the tool reads or writes much. Later settings of the environment replace earlier
// ones.
#include "cli/tool_run.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kalvex {
namespace {

std::vector<std::string> Environment(const std::vector<std::string>& settings) {
    std::vector<std::string> all = settings;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const std::string name = text.substr(0, text.find('=') + 1);
        const bool replaced =
            std::any_of(settings.begin(), settings.end(),
                        [&](const std::string& s) { return s.starts_with(name); });
        if (!replaced) all.push_back(text);
    }
    return all;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

int Run(std::vector<std::string> arguments, const std::vector<std::string>& environment,
        const StreamFiles& streams) {
    const pid_t child = StartProgram(std::move(arguments), environment, streams);
    int state = 0;
    return child < 0 || waitpid(child, &state, 0) != child ? -1 : ExitStatusOf(state);
}

}  // namespace

pid_t StartProgram(std::vector<std::string> arguments, const std::vector<std::string>& environment,
                   const StreamFiles& streams, int line, int lineInChild) {
    std::vector<std::string> all = Environment(environment);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    constexpr int kWrite = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, streams.in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, streams.out.c_str(), kWrite, 0600);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, streams.err.c_str(), kWrite, 0600);
    if (line >= 0) posix_spawn_file_actions_adddup2(&files, line, lineInChild);
    pid_t child = -1;
    const int failure = posix_spawnp(&child, arguments.front().c_str(), &files, nullptr,
                                     Pointers(arguments).data(), Pointers(all).data());
    posix_spawn_file_actions_destroy(&files);
    return failure == 0 ? child : -1;
}

int ExitStatusOf(int state) {
    return WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
}

ToolRun RunProgram(const std::vector<std::string>& program,
                   const std::vector<std::string>& arguments, const std::string& input,
                   const std::vector<std::string>& environment, const std::string& outPath) {
    const TemporaryFolder folder;
    std::ofstream(folder.PathOf("in"), std::ios::binary) << input;
    std::vector<std::string> all = program;
    all.insert(all.end(), arguments.begin(), arguments.end());
    const std::string out = outPath.empty() ? folder.PathOf("out") : outPath;
    ToolRun run;
    run.status = Run(all, environment, {folder.PathOf("in"), out, folder.PathOf("err")});
    if (outPath.empty()) run.out = ReadFile(out);
    run.err = ReadFile(folder.PathOf("err"));
    return run;
}

ToolRun RunTool(const std::vector<std::string>& arguments, const std::string& input,
                const std::vector<std::string>& environment, const std::string& outPath) {
    return RunProgram({KALVEX_CLI_COMMAND}, arguments, input, environment, outPath);
}

ToolRun RunScript(const std::string& script, const std::string& folder) {
    std::string tool;
    for (const std::string word : {KALVEX_CLI_COMMAND})
        tool += (tool.empty() ? "" : " ") + word;
    const TemporaryFolder streams;
    std::ofstream(streams.PathOf("in"), std::ios::binary) << "";
    ToolRun run;
    run.status = Run({"/bin/sh", "-c", "cd \"$1\" && " + script, "sh", folder}, {"tool=" + tool},
                     {streams.PathOf("in"), streams.PathOf("out"), streams.PathOf("err")});
    run.out = ReadFile(streams.PathOf("out"));
    run.err = ReadFile(streams.PathOf("err"));
    return run;
}

TemporaryFolder::TemporaryFolder() {
    path_ = (std::filesystem::temp_directory_path() / "kalvex-test-XXXXXX").string();
    if (mkdtemp(path_.data()) == nullptr) std::abort();
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

}  // namespace kalvex
