#include "ui/parts/standard_error.h"

#include <fcntl.h>
#include <unistd.h>

#include <QTest>
#include <array>
#include <csignal>
#include <string>

using namespace kalvex;

namespace {

/// Standard error as a pipe, while an object of this class lives.
class ErrorPipe final {
  public:
    ErrorPipe() {
        made = pipe(ends.data()) == 0;
        dup2(ends[1], STDERR_FILENO);
    }
    ~ErrorPipe() {
        dup2(before, STDERR_FILENO);
        for (const int number : {before, ends[0], ends[1]})
            close(number);
    }
    ErrorPipe(const ErrorPipe&) = delete;
    ErrorPipe& operator=(const ErrorPipe&) = delete;

    /// Takes what is in the pipe.
    std::string Read() const {
        std::string all;
        std::array<char, 4096> bytes{};
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
        for (ssize_t count = 0; (count = read(ends[0], bytes.data(), bytes.size())) > 0;)
            all.append(bytes.data(), static_cast<std::size_t>(count));
        return all;
    }

    bool made = false;

  private:
    int before = dup(STDERR_FILENO);
    std::array<int, 2> ends{};
};

}  // namespace

class StandardErrorTest final : public QObject {
    Q_OBJECT
  private slots:
    void WritesWhatThereIsRoomFor() {
        const std::string text(10000, 'x');
        std::string written;
        {
            const ErrorPipe pipe;
            QVERIFY(pipe.made);
            WriteToStandardError(text);
            WriteToStandardError("a line\n");
            written = pipe.Read();
        }
        QVERIFY(written == text + "a line\n");
    }
    // A call that waits is ended by the alarm, and with it the test.
    void DropsTheRestOfAFullPipe() {
        const std::string text(1 << 20, 'x');
        std::string written;
        MessageAnswer answer = MessageAnswer::Ok;
        alarm(20);
        {
            const ErrorPipe pipe;
            QVERIFY(pipe.made);
            WriteToStandardError(text);
            answer = WriteMessageLineNow({u"A", u"b", MessageIcon::None, MessageButtons::YesNo});
            written = pipe.Read();
        }
        alarm(0);
        QVERIFY(!written.empty() && written.size() < text.size());
        QVERIFY(answer == MessageAnswer::No);
    }
    void AClosedStandardErrorIsLeftAlone() {
        const int before = dup(STDERR_FILENO);
        close(STDERR_FILENO);
        WriteToStandardError("a line\n");
        dup2(before, STDERR_FILENO);
        close(before);
    }
};

QTEST_MAIN(StandardErrorTest)
#include "standard_error_test.moc"
