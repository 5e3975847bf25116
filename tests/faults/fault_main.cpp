// A library that is loaded before all others (LD_PRELOAD) and lets one call of the program fail.
// Two ways tell it which.
//
// By hand, the environment names the call of one run:
//   KALVEX_FAULT       KIND:N (the N-th call of that kind fails, counted from 1) or KIND:N+ (all
//                      later ones fail too)
// A test has many runs. The program is then started once and stops before its main function. It
// waits for requests, and each is answered by a copy of the process (fork), which saves the time in
// which the libraries are loaded:
//   KALVEX_FAULT_LINE  the number of an open descriptor (a socket), from which requests like those
//                      above are read, each ending with a line feed. The answer to a request is a
//                      struct FaultAnswer. The end of the requests ends the program.
// Both:
//   KALVEX_FAULT_FOLDER  only files whose paths begin like this are opened and read with failures,
//                        and libraries can make and rename files only there
//
// Kinds: alloc (out of memory), open (too many files), read and write (error of the device), full
// (write to a full disk), short (a write that takes half of its bytes: not an error), interrupt (a
// read or a write interrupted by a signal: not an error), sync, rename, link, and kill (the process
// is killed at its N-th open, write, sync, rename or link).
//
// Calls are counted from the moment at which main begins. What fails before belongs to the loader
// of programs and to the initialisers of static objects, most of them of the libraries. They end
// the process with a message of their own, and a program has no means to do anything about it.
// Nothing has been opened or written then.
#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>

#include "faults/fault_answer.h"
#include "faults/fault_library.h"

namespace kalvex {
namespace {

struct FailingCall {
    Fault kind = Fault::None;
    long number = 0;
    bool lasting = false;
};

Fault KindOf(const char* name, size_t length) {
    static constexpr struct {
        const char* name;
        Fault kind;
    } kKinds[] = {{"alloc", Fault::Alloc},   {"open", Fault::Open}, {"read", Fault::Read},
                  {"write", Fault::Write},   {"full", Fault::Full}, {"short", Fault::Short},
                  {"sync", Fault::Sync},     {"kill", Fault::Kill}, {"interrupt", Fault::Interrupt},
                  {"rename", Fault::Rename}, {"link", Fault::Link}};
    for (const auto& row : kKinds)
        if (strlen(row.name) == length && strncmp(row.name, name, length) == 0) return row.kind;
    return Fault::None;
}

FailingCall ReadFault(const char* text) {
    const char* const colon = text == nullptr ? nullptr : strchr(text, ':');
    if (colon == nullptr) return {};
    return {KindOf(text, static_cast<size_t>(colon - text)), atol(colon + 1),
            strchr(colon, '+') != nullptr};
}

// Set when main begins.
FailingCall fault;
std::atomic<long> calls{0};
bool* reached = nullptr;  // shared with the process that waits for requests

/// A run that goes on for ever because of the fault ends by SIGALRM or SIGXCPU, and the test sees
/// it.
void LimitTime() {
    constexpr rlim_t kProcessorSeconds = 10;
    const rlimit limit{kProcessorSeconds, kProcessorSeconds};
    setrlimit(RLIMIT_CPU, &limit);
    // Without memory, fontconfig may wait for ever for a lock that it holds itself.
    alarm(fault.kind == Fault::Alloc ? 10 : 60);
}

/// Without memory some libraries try the same again and again. So many failures in a row are no
/// work any more: the process ends as if its time were over.
constexpr long kMostFailures = 200000;

using MainFunction = int(int, char**, char**);
MainFunction* programMain = nullptr;

int RunMain(const char* request, int count, char** arguments, char** environment) {
    fault = ReadFault(request);
    LimitTime();
    return programMain(count, arguments, environment);
}

/// Reads up to a line feed. False at the end of the requests.
bool ReadRequest(int line, char* request, size_t size) {
    for (size_t length = 0; length < size; ++length) {
        if (syscall(SYS_read, line, request + length, 1) != 1) return false;
        if (request[length] != '\n') continue;
        request[length] = '\0';
        return true;
    }
    return false;
}

/// Answers requests, each by a copy of the process. Returns in the copies only, with the request.
void Serve(int line, char* request, size_t size) {
    while (ReadRequest(line, request, size)) {
        *reached = false;
        const pid_t child = fork();
        if (child == 0) {
            syscall(SYS_close, line);
            for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
                lseek(stream, 0, SEEK_SET);  // they are common to all copies
            return;
        }
        FaultAnswer answer;
        if (child < 0 || waitpid(child, &answer.state, 0) != child) break;
        answer.reached = *reached;
        if (syscall(SYS_write, line, &answer, sizeof answer) != sizeof answer) break;
    }
    _exit(0);
}

int MainWithFault(int count, char** arguments, char** environment) {
    const char* const line = getenv("KALVEX_FAULT_LINE");
    if (line == nullptr) return RunMain(getenv("KALVEX_FAULT"), count, arguments, environment);
    reached = static_cast<bool*>(
        mmap(nullptr, sizeof(bool), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    char request[40];
    Serve(atoi(line), request, sizeof request);
    return RunMain(request, count, arguments, environment);
}

}  // namespace

bool Fails(Fault kind) {
    if (fault.kind != kind) return false;
    const long call = ++calls;
    if (call != fault.number && !(fault.lasting && call > fault.number)) return false;
    if (call == fault.number && reached != nullptr) *reached = true;
    if (call > fault.number + kMostFailures) kill(getpid(), SIGXCPU);
    return true;
}

}  // namespace kalvex

extern "C" {

/// The C library starts a program through this function.
int __libc_start_main(kalvex::MainFunction* main, int count, char** arguments, void (*initialise)(),
                      void (*finish)(), void (*finishLoader)(), void* stackEnd) {
    kalvex::programMain = main;
    using Start =
        int(kalvex::MainFunction*, int, char**, void (*)(), void (*)(), void (*)(), void*);
    return kalvex::Real<Start>("__libc_start_main")(kalvex::MainWithFault, count, arguments,
                                                    initialise, finish, finishLoader, stackEnd);
}

}  // extern "C"
