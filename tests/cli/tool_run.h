// Starts the built tool as a process.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace kalvex {

struct ToolRun {
    int status = -1;  ///< exit status; 128 + signal when a signal ended it; -1: it did not start
    std::string out;
    std::string err;
};

/// Runs a program with these arguments and this standard input until it ends. `environment` has
/// additional NAME=VALUE settings. With `outPath`, standard output goes to that file.
ToolRun RunProgram(const std::vector<std::string>& program,
                   const std::vector<std::string>& arguments, const std::string& input = "",
                   const std::vector<std::string>& environment = {},
                   const std::string& outPath = "");

/// The files that are a process's standard input, output and error.
struct StreamFiles {
    std::string in;
    std::string out;
    std::string err;
};

/// Starts a program with additional settings of the environment and gives its process id, -1 when
/// it does not start. With `line`, that descriptor is inherited under the number `lineInChild`.
[[nodiscard]] pid_t StartProgram(std::vector<std::string> arguments,
                                 const std::vector<std::string>& environment,
                                 const StreamFiles& streams, int line = -1, int lineInChild = -1);

/// The exit status of a program that has ended, from what waitpid says: 128 + signal when a signal
/// ended it.
[[nodiscard]] int ExitStatusOf(int state);

/// Runs the tool in the same way.
ToolRun RunTool(const std::vector<std::string>& arguments, const std::string& input = "",
                const std::vector<std::string>& environment = {}, const std::string& outPath = "");

/// Runs a script of the shell sh, in which $tool starts the tool and the present folder is the
/// given one, until it ends.
ToolRun RunScript(const std::string& script, const std::string& folder);

/// A fresh folder for one test, removed when the test is over.
class TemporaryFolder final {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::string PathOf(const std::string& name) const { return path_ + '/' + name; }

  private:
    std::string path_;
};

std::string ReadFile(const std::string& path);

}  // namespace kalvex
